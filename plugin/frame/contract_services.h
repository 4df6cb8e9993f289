#pragma once

#include <string>

#include "frame/contract_containers.h"

namespace arap {

/// A currency of the general-ledger services.
class Currency : public View {
 public:
  using View::View;
  Variant ExchangeRate() const { return get(Member::ExchangeRate); }
  /// "*": the rate multiplies; "/": the rate divides.
  std::string Operator() const { return Concat(get(Member::Operator)); }
  /// A bill's rate is always a multiplier. 0 when the currency has neither operator.
  double Multiplier() const {
    const std::string sOperator = Operator();
    if (sOperator == "*") return NumberOf(ExchangeRate());
    if (sOperator == "/") return Divide(1, NumberOf(ExchangeRate()));
    return 0;
  }
  /// Number of decimals of amounts in this currency.
  std::int16_t ScaleX() const { return IntegerOf(get(Member::ScaleX)); }
  Variant Name() const { return get(Member::Name); }
};

/// General-ledger client services, NUVLPCGLView.GLData.
class GLData : public View {
 public:
  using View::View;
  /// True when the user has the right. nSubSystem is kRightsSubSystem, nObject the class of the bills, nRight one of
  /// the bits kRightCheck, kRightUncheck and kRightDelete (frame/session.h).
  bool AccessCheck(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) const {
    return ToBoolean(call(Member::AccessCheck, nSubSystem, nObject, nRight));
  }
  /// A line of the action log. nResult is 1 for success, 2 for failure, -1 for an operation that the bill's state
  /// refused.
  void WriteLog(const Variant& vCode, std::int32_t nResult, const Variant& vText) const {
    call(Member::WriteLog, vCode, nResult, vText);
  }
  Currency GetCurrency(std::int32_t nCurrencyID) const { return Currency(call(Member::GetCurrency, nCurrencyID)); }
  /// Told false when a settlement class ends. The rules never set it.
  void SetDeleteOptions(bool bDelete) const { put(Member::DeleteOptions, bDelete); }
  /// Currencies are read anew from here on.
  void RefreshCurrencySet() const { get(Member::CurrencySet).object()->call(Member::Refresh); }
};

}  // namespace arap

#pragma once

#include "frame/contract_containers.h"

namespace arap {

/// A currency of the general-ledger services.
class Currency : public View {
 public:
  using View::View;
  Variant ExchangeRate() const { return get(Member::ExchangeRate); }
  /// "*": the rate multiplies; "/": the rate divides.
  std::string Operator() const { return Concat(get(Member::Operator)); }
  /// Number of decimals of amounts in this currency.
  std::int16_t ScaleX() const { return IntegerOf(get(Member::ScaleX)); }
  Variant Name() const { return get(Member::Name); }
};

/// General-ledger client services, NUVLPCGLView.GLData.
class GLData : public View {
 public:
  using View::View;
  bool AccessCheck(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) const {
    return ToBoolean(call(Member::AccessCheck, nSubSystem, nObject, nRight));
  }
  void WriteLog(const Variant& vCode, std::int32_t nResult, const Variant& vText) const {
    call(Member::WriteLog, vCode, nResult, vText);
  }
  Currency GetCurrency(std::int32_t nCurrencyID) const { return Currency(call(Member::GetCurrency, nCurrencyID)); }
  void SetDeleteOptions(bool bDelete) const { put(Member::DeleteOptions, bDelete); }
  void RefreshCurrencySet() const { get(Member::CurrencySet).object()->call(Member::Refresh); }
};

}  // namespace arap

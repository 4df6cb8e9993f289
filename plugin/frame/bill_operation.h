#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/host_contract.h"

/// Check, uncheck and delete through a bill service, as far as the four bill classes do it alike.
namespace arap {

/// An operation on one bill by its id, as DoOptToBill and CheckBillSimple number it.
enum class BillOperation : std::int32_t { Delete = 0, Check = 1, Uncheck = 2 };

/// The user's word for an operation; "" for a number without one, which takes no task either.
std::string VerbOf(std::int32_t nCheckType);

/// What CheckBillSimple is asked: TransType, InterID, CheckType and PropsString, which is parsed anew on the way.
Dictionary OperationData(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType);

/// What CheckBill is asked to do.
enum class CheckFlag : std::int32_t { Uncheck = 0, Check = 1 };

/// What CheckBill answered, and its text for the user.
struct CheckAnswer {
  std::int32_t nResult;
  std::string sMessage;

  /// 1 is the service's only answer that means failure.
  bool Failed() const { return nResult == 1; }
};
CheckAnswer AskCheckBill(std::string_view sService, std::int32_t nInterID, CheckFlag flag);

/// True when a bill of this date is before the period that begins at sPeriodStart. Both are compared as the text of
/// their day; a date without text sorts first, and nothing sorts before a period without a start.
bool IsBeforePeriod(const Variant& vBillDate, std::string_view sPeriodStart);

}  // namespace arap

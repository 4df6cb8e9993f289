#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "frame/host_contract.h"

/// Check, uncheck and delete through a bill service, as far as the four bill classes do it alike.
namespace arap {

/// An operation on one bill by its id, as DoOptToBill and CheckBillSimple number it.
enum class BillOperation : std::int32_t { Delete = 0, Check = 1, Uncheck = 2 };

/// One operation as DoOptToBill gets it. A number without an operation has no verb and takes no task.
struct OperationCall {
  std::int32_t nTransType;
  std::int32_t nInterID;
  std::int32_t nCheckType;
};
/// What a bill class gives to its operations.
struct OperationRules {
  std::string_view sTaskCode;
  std::string_view sService;
  /// Writes the action log of the service's code; the text is the user's.
  std::function<void(std::int16_t nCode, const std::string& sText)> log;
};
/// CheckBillSimple of the service, under a task that nHeldTask keeps until it is given back. vCode becomes the
/// service's code; vMessage the text for the user, which a code other than -1, 0 and 1 leaves alone, and log isn't
/// called. True exactly for code 0. Raises nothing: an error gives the task back and becomes vMessage.
bool OperateUnderTask(std::int32_t& nHeldTask, const OperationCall& call, const OperationRules& rules, Variant& vCode,
                      Variant& vMessage);

/// What CheckBill is asked to do.
enum class CheckFlag : std::int32_t { Uncheck = 0, Check = 1 };

/// What CheckBill answered, and its text for the user.
struct CheckAnswer {
  std::int32_t nResult;
  std::string sMessage;
  Ref<Object> oService;  // lives as long as the handler that asked

  /// 1 is the service's only answer that means failure.
  bool Failed() const { return nResult == 1; }
};
CheckAnswer AskCheckBill(std::string_view sService, std::int32_t nInterID, CheckFlag flag);

/// True when a bill of this date is before the period that begins at sPeriodStart. Both are compared as the text of
/// their day; a date without text sorts first, and nothing sorts before a period without a start.
bool IsBeforePeriod(const Variant& vBillDate, std::string_view sPeriodStart);

}  // namespace arap

#include "frame/bill_operation.h"
#include "frame/session.h"
#include "settlement/settlement_bill.h"

/// One operation on one bill by its id, from a list or from outside a window.
namespace arap {

bool SettlementBill::DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType,
                                 Variant& vCode, Variant& vMessage) {
  const OperationRules rules{GetTaskCode(nCheckType), side_.sBillService,
                             [this](std::int16_t nCode, const std::string& sText) { LogOperation(nCode, sText); }};
  return OperateUnderTask(m_lTaskId, {nTransType, nInterID, nCheckType}, rules, vCode, vMessage);
}

void SettlementBill::LogOperation(std::int16_t nCode, const std::string& sText) const {
  switch (nCode) {
    case -1: return WriteActionLog("RP1000202A", -1, sText);  // the payment's code on both sides; required
    case 0: return WriteActionLog(side_.sLogCode, 1, sText);
    case 1:
      switch (side_.failureLog) {
        case FailureLog::Written: return WriteActionLog(side_.sLogCode, 1, sText);  // as a success; required
        case FailureLog::None: return;
      }
      return;
    default: return;
  }
}

}  // namespace arap

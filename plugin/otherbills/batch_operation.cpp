#include "frame/bill_operation.h"
#include "frame/session.h"
#include "otherbills/other_bill.h"

/// One operation on one bill by its id, from a list or from outside a window.
namespace arap {

bool OtherBill::DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                            Variant& vMessage) {
  const OperationRules rules{GetTaskCode(nCheckType), side_.sBillService,
                             [this](std::int16_t nCode, const std::string& sText) { LogOperation(nCode, sText); }};
  return OperateUnderTask(m_lTaskId, {nTransType, nInterID, nCheckType}, rules, vCode, vMessage);
}

/// -1 refused by the bill's state, 0 done, 1 failed; another code isn't logged.
void OtherBill::LogOperation(std::int16_t nCode, const std::string& sText) const {
  switch (nCode) {
    case -1: return WriteActionLog(side_.sListLogCode, -1, sText);
    case 0: return WriteActionLog(side_.sListLogCode, 1, sText);
    case 1: return WriteActionLog(side_.sListLogCode, 2, sText);
    default: return;
  }
}

}  // namespace arap

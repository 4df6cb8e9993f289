#include "otherbills/other_bill.h"

namespace arap {

OtherBill::OtherBill(const OtherBillSide& side)
    : ListedBillClass(side.sClassName.view()), side_(side), m_rsInOutType(FetchInOutTypes()) {}

OtherBill::~OtherBill() {
  m_BillInterface.clear();
  m_LstInterface.clear();
  m_rsInOutType = {};
  ReleaseEditTasksOfBill();
  CommitHeldTask();
}

std::string_view OtherBill::GetTaskCode(int nIndex) const {
  return nIndex >= 0 && nIndex < static_cast<int>(side_.aTaskCodes.size()) ? side_.aTaskCodes[nIndex].view() : "";
}

}  // namespace arap

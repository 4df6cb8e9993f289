#include "inouttypes/type_bill.h"

namespace arap {

clsRPInOutType::clsRPInOutType() : BillClass("clsRPInOutType"), m_rsInOutType(FetchInOutTypes()) {}

clsRPInOutType::~clsRPInOutType() {
  m_BillInterface.clear();
  m_BaseInterface.clear();
  m_rsInOutType = {};
  ReleaseEditTasksOfBill();
  CommitHeldTask();
}

void clsRPInOutType::Show(const Ref<Object>& oSource) {
  const std::string sTypeName = TypeNameOf(oSource);
  if (sTypeName == kBillEvent) m_BillInterface.set(oSource);
  if (sTypeName == kBaseClassEvent) m_BaseInterface.set(oSource);
}

std::string_view clsRPInOutType::GetTaskCode(int nIndex) const {
  switch (nIndex) {
    case 0: return "pu0552";
    case 5: return "pu0551";
    case 6: return "pu0553";
    case 7: return "pu0550";
    default: return "";
  }
}

}  // namespace arap

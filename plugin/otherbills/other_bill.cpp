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

void OtherBill::OnBillEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_BillInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_BillInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarClick: return m_BillInterface_MenuBarClick(Tool(argument(args, 0)), argument(args, 1));
    case Event::AfterLoadBill: return m_BillInterface_AfterLoadBill();
    case Event::AfterNewBill: return m_BillInterface_AfterNewBill();
    case Event::BeginEdit: return m_BillInterface_BeginEdit(FieldInfo(argument(args, 0)));
    case Event::Change:
      return m_BillInterface_Change(FieldInfo(argument(args, 0)), FieldRecord(argument(args, 1)), argument(args, 4));
    case Event::HeadCtlLostFocus: return m_BillInterface_HeadCtlLostFocus(ObjectArgument<FieldInfo>(args, 1));
    case Event::BeforeSave: return m_BillInterface_BeforeSave(argument(args, 0));
    case Event::AfterSave: return m_BillInterface_AfterSave();
    case Event::BeforeLoadBill:
    case Event::BeforLoadBillFillData:
    case Event::AfterNewEmptyData:
    case Event::AfterDoAction:
    case Event::BeforeSelBills:
    case Event::AfterSelBillBeforeFillData:
    case Event::AfterSelBill:
    case Event::SaveBillFailed:
    case Event::AfterGetData:
    case Event::RefreshList:
    case Event::ClassGroupSelected: return;
  }
}

void OtherBill::OnListEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_LstInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_LstInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarClick: return m_LstInterface_MenuBarClick(Tool(argument(args, 0)), argument(args, 1));
    default: return;  // no other event of a list is heard
  }
}

}  // namespace arap

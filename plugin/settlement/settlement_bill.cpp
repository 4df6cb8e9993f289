#include "settlement/settlement_bill.h"

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

SettlementBill::SettlementBill(const SettlementSide& side) : ListedBillClass(side.sClassName.view()), side_(side) {}

SettlementBill::~SettlementBill() {
  ReleaseEditTasksOfBill();
  m_BillInterface.clear();
  m_LstInterface.clear();
  m_rsList = {};
  m_oListDataServer = {};
  ResumeNext([] { GetGLData().SetDeleteOptions(false); });
  ResumeNext([] { GetGLData().RefreshCurrencySet(); });
  CommitHeldTask();
}

void SettlementBill::Show(const Ref<Object>& oSource) {
  ListedBillClass::Show(oSource);
  if (TypeNameOf(oSource) != kListEvents) return;
  m_rsList = List().ListData();
  m_oListDataServer = List().ListDataServer();
}

std::string_view SettlementBill::GetTaskCode(int nIndex) const {
  return nIndex >= 0 && nIndex < static_cast<int>(side_.aTaskCodes.size()) ? side_.aTaskCodes[nIndex].view() : "";
}

void SettlementBill::OnBillEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_BillInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_BillInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::BeforeLoadBill: return m_BillInterface_BeforeLoadBill();
    case Event::BeforLoadBillFillData: return m_BillInterface_BeforLoadBillFillData();
    case Event::AfterLoadBill: return m_BillInterface_AfterLoadBill();
    case Event::AfterNewBill: return m_BillInterface_AfterNewBill();
    case Event::BeginEdit: return m_BillInterface_BeginEdit(FieldInfo(argument(args, 0)));
    case Event::Change:
      return m_BillInterface_Change(FieldInfo(argument(args, 0)), FieldRecord(argument(args, 1)),
                                    LongOf(argument(args, 3)), argument(args, 4));
    case Event::HeadCtlLostFocus: return m_BillInterface_HeadCtlLostFocus(ObjectArgument<FieldInfo>(args, 1));
    case Event::AfterDoAction: return m_BillInterface_AfterDoAction(Concat(argument(args, 5)));
    case Event::BeforeSelBills:
      return m_BillInterface_BeforeSelBills(LongOf(argument(args, 0)), argument(args, 1).object(), argument(args, 3));
    case Event::AfterSelBillBeforeFillData:
      return m_BillInterface_AfterSelBillBeforeFillData(Dictionary(argument(args, 0)));
    case Event::AfterSelBill: return m_BillInterface_AfterSelBill();
    case Event::BeforeSave: return m_BillInterface_BeforeSave(argument(args, 0));
    case Event::SaveBillFailed: return m_BillInterface_SaveBillFailed();
    case Event::MenuBarClick: return m_BillInterface_MenuBarClick(Tool(argument(args, 0)), argument(args, 1));
    case Event::AfterNewEmptyData:
    case Event::AfterSave:
    case Event::AfterGetData:
    case Event::RefreshList:
    case Event::ClassGroupSelected: return;
  }
}

void SettlementBill::OnListEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_LstInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_LstInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarClick: return m_LstInterface_MenuBarClick(Tool(argument(args, 0)), argument(args, 1));
    default: return;  // after AfterGetData nothing is left to do; the other events aren't the list's
  }
}

}  // namespace arap

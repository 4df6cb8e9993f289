#include "inouttypes/type_bill.h"

namespace arap {

namespace {

/// The argument in front of the last one: the id of the group selected, however many values the host sends before it.
const Variant& LastButOne(Arguments args) {
  if (args.size() < 2) throw AutomationError(ErrorNumber::WrongNumberOfArguments);
  return args[args.size() - 2];
}

}  // namespace

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

void clsRPInOutType::OnBaseEvent(Event event, Arguments args) {
  switch (event) {
    case Event::BarInitialize: return m_BaseInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarInitialize: return m_BaseInterface_MenuBarInitialize();
    case Event::ClassGroupSelected: return m_BaseInterface_ClassGroupSelected(LongOf(LastButOne(args)));
    case Event::AfterGetData: return m_BaseInterface_AfterGetData();
    case Event::MenuBarClick: return m_BaseInterface_MenuBarClick(Tool(argument(args, 0)), argument(args, 1));
    default: return;
  }
}

void clsRPInOutType::OnBillEvent(Event event, Arguments args) {
  switch (event) {
    case Event::MenuBarInitialize: return m_BillInterface_MenuBarInitialize(ActiveBar(argument(args, 0)));
    case Event::AfterNewBill: return m_BillInterface_AfterNewBill();
    case Event::AfterNewEmptyData: return m_BillInterface_AfterNewEmptyData();
    case Event::AfterLoadBill: return m_BillInterface_AfterLoadBill();
    case Event::BeforeSave: return m_BillInterface_BeforeSave(argument(args, 0));
    case Event::AfterSave: return m_BillInterface_AfterSave();
    case Event::SaveBillFailed: return m_BillInterface_SaveBillFailed(argument(args, 0));
    case Event::MenuBarClick: return m_BillInterface_MenuBarClick(Tool(argument(args, 0)));
    default: return;
  }
}

}  // namespace arap

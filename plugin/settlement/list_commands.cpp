#include "frame/list_commands.h"

#include <array>

#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

namespace arap {

std::span<const SettlementBill::ListCommand> SettlementBill::ListCommands() const {
  static constexpr std::array kWithViewBill{
      ListCommand{"mnuEditDelete"_key, &SettlementBill::DeleteListCommand},
      ListCommand{"Check"_key, &SettlementBill::CheckListCommand},
      ListCommand{"UnCheck"_key, &SettlementBill::UncheckListCommand},
      ListCommand{"Voucher"_key, &SettlementBill::VoucherListCommand},
      ListCommand{"viewBill"_key, &SettlementBill::ViewBillListCommand},
  };
  switch (side_.listExtras) {
    case ListExtras::ViewBill: return kWithViewBill;
    case ListExtras::ExportShown: return std::span(kWithViewBill).first(kWithViewBill.size() - 1);
  }
  return {};
}

/// No trap: errors pass to the host. A command that stands in no list is the host's alone, mnuEditModify among them.
void SettlementBill::m_LstInterface_MenuBarClick(const Tool& oTool, Variant& vCancel) {
  const Selection selection{List().SelectedRows(), MustRefreshList()};
  const std::string sName = Concat(oTool.Name());
  for (const ListCommand& command : ListCommands()) {
    if (EqualsNoCase(sName, command.sName)) return (this->*command.run)(selection, vCancel);
  }
}

/// The server that Show kept; a source set past Show is asked for its own.
ListDataServer SettlementBill::ListServer() const {
  const bool bKept = m_oListDataServer.is_object() && !m_oListDataServer.is_nothing();
  return ListDataServer(bKept ? m_oListDataServer : List().ListDataServer());
}

/// The deleting is done here, so the host is always told to leave it.
void SettlementBill::DeleteListCommand(const Selection& selection, Variant& vCancel) {
  vCancel = true;
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightDelete)) return;
  if (!CheckSelectedStatus(selection.oRows, BillOperation::Delete)) return;
  if (ShowMessage(LoadText("是否删除数据 ?"), kQuestion, LoadText(kTitle)) != kAnswerYes) return;
  OperateOnSelected(selection, BillOperation::Delete);
}

void SettlementBill::CheckListCommand(const Selection& selection, Variant& vCancel) {
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightCheck) ||
      !CheckSelectedStatus(selection.oRows, BillOperation::Check)) {
    vCancel = true;
    return;
  }
  OperateOnSelected(selection, BillOperation::Check);
}

/// One bill of an earlier period stops the whole batch before any is touched.
void SettlementBill::UncheckListCommand(const Selection& selection, Variant& vCancel) {
  if (!CheckAccess(kRightsSubSystem, side_.nBillClass, kRightUncheck)) {
    vCancel = true;
    return;
  }
  if (!SelectedBillsAreInPeriod(ListServer(), selection.oRows, vCancel)) return;
  if (!CheckSelectedStatus(selection.oRows, BillOperation::Uncheck)) {
    vCancel = true;
    return;
  }
  OperateOnSelected(selection, BillOperation::Uncheck);
}

void SettlementBill::VoucherListCommand(const Selection& selection, Variant& vCancel) {
  ShowVoucherOfSelected(ListServer(), selection.oRows, vCancel);
}

/// A list window has no open bill: its id is 0, and nothing is shown. With a bill open as well the list object isn't
/// there, which is an error; required.
void SettlementBill::ViewBillListCommand(const Selection&, Variant&) {
  const Ref<Object>& oBill = m_BillInterface.source();
  const std::int32_t nInterID = oBill ? GetBillLong(BillEvent(oBill), "FInterId"_key, kHead) : 0;
  const Vector oColumns = NewVector();
  for (const auto& [nPrimary, sColumn] : {std::pair{1, "FInterID"_key}, std::pair{3, "FTranType"_key}}) {
    const Dictionary oColumn = NewDictionary();
    oColumn.SetValue("FISPrimary"_key, std::int32_t{nPrimary});
    oColumn.SetValue("FColName"_key, sColumn);
    oColumns.Add(oColumn);
  }
  if (nInterID != 0) throw AutomationError(ErrorNumber::ObjectNotSet);
}

/// The first refusal ends the test: no bill of the batch is touched.
bool SettlementBill::CheckSelectedStatus(const Vector& oRows, BillOperation operation) {
  if (IsSelectionEmpty(oRows)) return false;
  const ListDataServer oServer = ListServer();
  return WalkSelectedBills(oRows, [&](const Variant& vBillID) {
           const Recordset rs = oServer.GetBillDetail(vBillID);
           return PassesStatusTests(rs, operation) && PassesListTests(rs, operation);
         }) == RowWalk::AllRows;
}

bool SettlementBill::PassesListTests(const Recordset& rs, BillOperation operation) {
  switch (operation) {
    case BillOperation::Delete: return SourcesExist(rs);
    case BillOperation::Check: return true;
    case BillOperation::Uncheck:
      if (NumberOf(rs.Value("FCheckAmountFor"_key)) == 0) return true;
      ShowInfo(LoadText("该单据已经被核销,不能反审核!"));
      return false;
  }
  return true;
}

/// Walks the entries of the bill to their end.
bool SettlementBill::SourcesExist(const Recordset& rs) {
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::int32_t nClassID = LongOf(NullToValue(rs.Value("FClassID_SRC"_key), std::int32_t{0}));
    const std::int32_t nInterID = LongOf(NullToValue(rs.Value("FInterID"_key), std::int32_t{0}));
    if (SourceBillExists(nClassID, nInterID)) continue;
    ShowMessage(LoadText(side_.sSourceGone), kWarning, kTitle);
    return false;
  }
  return true;
}

void SettlementBill::OperateOnSelected(const Selection& selection, BillOperation operation) {
  RunOnSelected(ListServer(), selection.oRows, operation,
                [this](std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                       Variant& vMessage) { DoOptToBill(nTransType, nInterID, nCheckType, vCode, vMessage); });
  if (selection.bRefresh) RefreshList(List(), false);
}

}  // namespace arap

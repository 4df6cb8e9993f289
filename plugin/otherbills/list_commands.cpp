#include "frame/list_commands.h"

#include <array>

#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "otherbills/other_bill.h"

namespace arap {

std::span<const OtherBill::ListCommand> OtherBill::ListCommands() {
  static constexpr std::array kCommands{
      ListCommand{"mnuDataViewNextBill"_key, &OtherBill::RelatedBillsListCommand},
      ListCommand{"mnuEditDelete"_key, &OtherBill::DeleteListCommand},
      ListCommand{"Check"_key, &OtherBill::CheckListCommand},
      ListCommand{"UnCheck"_key, &OtherBill::UncheckListCommand},
      ListCommand{"Voucher"_key, &OtherBill::VoucherListCommand},
  };
  return kCommands;
}

/// No trap: errors pass to the host. A command that stands in no list is the host's alone.
void OtherBill::m_LstInterface_MenuBarClick(const Tool& oTool, Variant& vCancel) {
  const Selection selection{List().SelectedRows(), MustRefreshList()};
  const std::string sName = Concat(oTool.Name());
  for (const ListCommand& command : ListCommands()) {
    if (EqualsNoCase(sName, command.sName)) return (this->*command.run)(selection, vCancel);
  }
}

ListDataServer OtherBill::ListServer() const { return ListDataServer(List().ListDataServer()); }

/// The related bills viewer hangs on this tool.
void OtherBill::RelatedBillsListCommand(const Selection& selection, Variant& vCancel) {
  ShowRelatedBills(selection.oRows);
  vCancel = true;
}

/// The deleting is done here, so the host is always told to leave it.
void OtherBill::DeleteListCommand(const Selection& selection, Variant& vCancel) {
  vCancel = true;
  if (!CheckAccess(kRightsSubSystem, kListRightsClass, kRightDelete)) return;
  if (!CheckSelectedStatus(selection.oRows, BillOperation::Delete)) return;
  if (ShowMessage(LoadText("是否删除数据 ?"), kQuestion, kTitle) != kAnswerYes) return;
  OperateOnSelected(selection, BillOperation::Delete);
}

void OtherBill::CheckListCommand(const Selection& selection, Variant& vCancel) {
  if (CheckAccess(kRightsSubSystem, kListRightsClass, kRightCheck) &&
      CheckSelectedStatus(selection.oRows, BillOperation::Check)) {
    OperateOnSelected(selection, BillOperation::Check);
  } else {
    vCancel = true;
  }
}

/// One early bill refuses the whole selection.
void OtherBill::UncheckListCommand(const Selection& selection, Variant& vCancel) {
  if (!CheckAccess(kRightsSubSystem, kListRightsClass, kRightUncheck)) {
    vCancel = true;
    return;
  }
  if (!SelectedBillsAreInPeriod(ListServer(), selection.oRows, vCancel)) return;
  if (CheckSelectedStatus(selection.oRows, BillOperation::Uncheck)) {
    OperateOnSelected(selection, BillOperation::Uncheck);
  } else {
    vCancel = true;
  }
}

void OtherBill::VoucherListCommand(const Selection& selection, Variant& vCancel) {
  ShowVoucherOfSelected(ListServer(), selection.oRows, vCancel);
}

bool OtherBill::CheckSelectedStatus(const Vector& oRows, BillOperation operation) const {
  if (IsSelectionEmpty(oRows)) return false;
  return WalkSelectedBills(oRows, [&](const Variant& vBillID) {
           return PassesStatusTests(ListServer().GetBillDetail(vBillID), operation);
         }) == RowWalk::AllRows;
}

void OtherBill::OperateOnSelected(const Selection& selection, BillOperation operation) {
  RunOnSelected(ListServer(), selection.oRows, operation,
                [this](std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType, Variant& vCode,
                       Variant& vMessage) { DoOptToBill(nTransType, nInterID, nCheckType, vCode, vMessage); });
  if (selection.bRefresh) RefreshList(List(), true);
}

/// Only for a single row that names its bill and the bill's class.
void OtherBill::ShowRelatedBills(const Vector& oRows) const {
  if (IsSelectionEmpty(oRows) || oRows.Size() != 1) return;
  const Variant vRow = oRows.Item(1);
  const std::optional<Variant> vBillID = SelectedBillId(vRow);
  const std::optional<Variant> vClassTypeID = SelectedValue(vRow, "FClassTypeID"_key);
  if (!vBillID || !vClassTypeID) return;
  const Ref<Object> oViewer = CreateServerObject("NUVClassLookUp.RelateBilllookUp");
  oViewer->put(Member::BillTypeID, *vClassTypeID);
  oViewer->put(Member::BillInterID, *vBillID);
  oViewer->call(Member::ShowList);
}

}  // namespace arap

#include "frame/list_commands.h"

#include <string>

#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "frame/voucher_access.h"

namespace arap {

namespace {

constexpr std::int32_t kStatusChecked = 1;
/// FVoucherId of a bill whose voucher lies in another system.
constexpr std::int32_t kVoucherElsewhere = -1;

/// The system value as a boolean: a number other than 0, or the word True.
bool IsOn(const std::string& sValue) { return EqualsNoCase(Trim(sValue), "True") || Val(sValue) != 0; }

/// The text that refuses the operation on a bill of this status; "" when nothing does.
std::string_view RefusalByStatus(BillOperation operation, bool bChecked) {
  switch (operation) {
    case BillOperation::Delete: return bChecked ? "不能删除已经审核的单据!" : "";
    case BillOperation::Check: return bChecked ? "不能审核已经审核的单据!" : "";
    case BillOperation::Uncheck: return bChecked ? "" : "只能反审核已经审核的单据!";
  }
  return "";
}

/// The grid window with one line a bill.
class ResultGrid {
 public:
  ResultGrid() : grid_(CreateLocalObject("NUVDisplayer.DispBuilder")) {
    grid_->put(Member::Cols, std::int32_t{1});
    grid_->put(Member::Titles, LoadText("提示信息|"));
    grid_->call(Member::SetColWidth, std::int32_t{1}, std::int32_t{5000});
  }
  void Add(const std::string& sMessage) const { grid_->call(Member::Add, sMessage + "|"); }
  void Show() const { grid_->call(Member::Show, std::int32_t{1}); }

 private:
  Ref<Object> grid_;
};

}  // namespace

std::optional<Variant> SelectedValue(const Variant& vRow, Key sColumn) {
  const Dictionary oRow(vRow);
  if (!oRow.Lookup(sColumn)) return std::nullopt;
  const Variant vValue = oRow.Value(sColumn);
  return vValue.is_object() ? FieldRecord(vValue).Value("FFLD"_key) : vValue;
}

std::optional<Variant> SelectedBillId(const Variant& vRow) { return SelectedValue(vRow, "FBillID"_key); }

bool IsSelectionEmpty(const Vector& oRows) { return oRows.IsNothing() || oRows.LBound() == 0; }

RowWalk WalkSelectedBills(const Vector& oRows, const std::function<bool(const Variant& vBillID)>& visit) {
  if (IsSelectionEmpty(oRows)) return RowWalk::AllRows;
  const std::int32_t nLast = oRows.UBound();
  for (std::int32_t nRow = oRows.LBound(); nRow <= nLast; ++nRow) {
    const std::optional<Variant> vBillID = SelectedBillId(oRows.Item(nRow));
    if (!vBillID) return RowWalk::RowWithoutId;
    if (!visit(*vBillID)) return RowWalk::Stopped;
  }
  return RowWalk::AllRows;
}

bool MustRefreshList() { return !IsOn(GetSysParam("IC", "RefreshAfterAdd", "0")); }

void RefreshList(const ListEvents& oList, bool bFlag) {
  const Ref<Object> oForm = oList.ListForm().object();
  oForm->call(Member::RefreshList, bFlag);
  oForm->call(Member::letmessage);
}

bool PassesStatusTests(const Recordset& rs, BillOperation operation) {
  if (rs.Eof() || rs.Bof()) {
    ShowInfo(LoadText("数据可能已经被删除,请刷新!"));
    return false;
  }
  const std::string_view sRefusal = RefusalByStatus(operation, LongOf(rs.Value("FStatus"_key)) == kStatusChecked);
  if (!sRefusal.empty()) ShowInfo(LoadText(sRefusal));
  return sRefusal.empty();
}

bool RunOnSelected(const ListDataServer& oServer, const Vector& oRows, BillOperation operation,
                   const OperateOnBill& operate) {
  if (IsSelectionEmpty(oRows)) return false;
  const ResultGrid grid;
  Variant vCode = std::int16_t{0};
  Variant vMessage = "";
  std::int32_t nBefore = 0;
  std::int32_t nOperations = 0;
  const RowWalk walk = WalkSelectedBills(oRows, [&](const Variant& vBillID) {
    const std::int32_t nBillID = LongOf(vBillID);
    if (nBillID == nBefore) return true;
    nBefore = nBillID;
    operate(oServer.ClassTypeId(), nBillID, static_cast<std::int32_t>(operation), vCode, vMessage);
    grid.Add(Concat(vMessage));
    ++nOperations;
    return true;
  });
  if (walk == RowWalk::RowWithoutId) return false;
  const std::string sMessage = Concat(vMessage);
  if (sMessage.empty()) return true;
  if (nOperations == 1) {
    ShowInfo(sMessage);
  } else {
    grid.Show();
  }
  return true;
}

bool SelectedBillsAreInPeriod(const ListDataServer& oServer, const Vector& oRows, Variant& vCancel) {
  const std::string sStart = GetCurrentPeriodStart();
  const RowWalk walk = WalkSelectedBills(oRows, [&](const Variant& vBillID) {
    return !IsBeforePeriod(oServer.GetBillDetail(vBillID).Value("FDate"_key), sStart);
  });
  if (walk == RowWalk::Stopped) {
    ShowMessage(LoadText("不能反审核以前期间的单据，反审核失败。"), kWarning, kTitle);
    vCancel = true;
  }
  return walk == RowWalk::AllRows;
}

void ShowVoucherOfSelected(const ListDataServer& oServer, const Vector& oRows, Variant& vCancel) {
  std::int32_t nVoucher = 0;
  bool bRead = false;
  const RowWalk walk = WalkSelectedBills(oRows, [&](const Variant& vBillID) {
    bRead = true;
    nVoucher = LongOf(oServer.GetBillDetail(vBillID).Value("FVoucherId"_key));
    return nVoucher <= 0;
  });
  if (walk == RowWalk::RowWithoutId) return;
  if (nVoucher >= 1 && CheckVoucherAccountRight(nVoucher)) {
    ShowInfo(LoadText("存在您无科目权限的会计科目，请系统管理员授权后再进入。"));
    vCancel = true;
    return;
  }
  if (!bRead) return;
  if (nVoucher >= 1) return ShowVoucherEdit(nVoucher, 1);
  ShowInfo(LoadText(nVoucher == kVoucherElsewhere ? "关联的凭证不在当前系统中" : "单据未记账。"));
}

}  // namespace arap

#include "frame/voucher_access.h"

#include "frame/failure.h"
#include "frame/open_choices.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// Entries of the voucher on accounts outside the rights of the user whom sUserText marks.
std::string AccountsWithoutRightSql(const std::string& sUserText, std::int32_t nVoucherID) {
  return "select FVoucherID from t_VoucherEntry e left join "
         "(select case when CharIndex('" +
         sUserText +
         "',FRightUserID)>0 then 1 else 0 end as FHaveRight,FAccountID from t_Account) a "
         "on e.FAccountID=a.FAccountID where a.FHaveRight = 0 and  e.FVoucherID = " +
         std::to_string(nVoucherID);
}

/// The voucher made from the bill; 0 when there is none.
std::int32_t VoucherOfBill(const BillEvent& oBill, std::string_view sBillTable) {
  const std::string sSql =
      "select FVoucherID from " + std::string(sBillTable) + " " + "where FBillID=" + std::to_string(oBill.InterID());
  const Recordset rs(ExecuteCommand(sSql));
  return rs.Eof() ? 0 : LongOf(rs.Value("FVoucherID"_key));
}

Variant FirstArgument(EditorArgument editorArgument) {
  switch (editorArgument) {
    case EditorArgument::PropsString: return GetPropsString();
    case EditorArgument::ModeOne: return std::int32_t{1};
  }
  return {};
}

}  // namespace

bool CheckVoucherRight(std::int32_t nVoucherID) {
  const Ref<Object> oVoucherInfo = CreateServerObject("NUVLPSGLVoucher.VoucherInfo");
  const bool bHasRight = ToBoolean(oVoucherInfo->call(Member::CheckVoucherRight, GetPropsString(), nVoucherID));
  if (!bHasRight) ShowInfo(LoadText("存在您无科目权限的会计科目，请系统管理员授权后再进入！"));
  return bHasRight;
}

bool CheckVoucherAccountRight(std::int32_t nVoucherID) {
  ParsePropsString(GetPropsString());
  const Ref<Object> oConnection = CreateLocalObject("NUVConnection.AppConnection");
  const Ref<Object> oItemInfo = CreateServerObject("NUVLPSGLItem.ItemInfo");
  const Dictionary oRight(oItemInfo->call(Member::GetDataRight, oConnection, UserID(), open_choices::kAccountClass));
  if (!ToBoolean(oRight.Value(open_choices::kRightInUse))) return false;
  const std::string sSql = AccountsWithoutRightSql(Concat(oRight.Value(open_choices::kRightUserText)), nVoucherID);
  const Recordset rs(oConnection->call(Member::Execute, ConnectString(), sSql));
  return !rs.Eof();
}

Dictionary VoucherEditOptions() {
  const Dictionary oOptions = NewDictionary();
  oOptions.SetValue("AddAfterSave"_key, false);
  oOptions.SetValue("DetailMode"_key, false);
  oOptions.SetValue("DisableAddNew"_key, true);
  oOptions.SetValue("CheckCell"_key, false);
  oOptions.SetValue("CheckEntry"_key, false);
  oOptions.SetValue("HotTrace"_key, false);
  return oOptions;
}

void ShowVoucherEdit(std::int32_t nVoucherID, std::int32_t nMode) {
  const WaitCursor wait;
  try {
    const Dictionary oOptions = VoucherEditOptions();
    const Ref<Object> oEditor = CreateLocalObject("NUVMVEdit.MVoucherEdit");
    oEditor->call(Member::LoadVoucher, nMode, nVoucherID, Missing{}, oOptions);
  } catch (const AutomationError& error) {
    ShowInfo(LoadText("加载凭证编辑组建失败：") + error.description());
  }
}

void ShowVoucherOfBill(const BillEvent& oBill, std::string_view sBillTable, EditorArgument editorArgument) {
  try {
    const std::int32_t nVoucherID = VoucherOfBill(oBill, sBillTable);
    if (nVoucherID == 0) return ShowInfo(LoadText("单据未记账。"));
    // Without the right it shows its own message.
    if (!CheckVoucherRight(nVoucherID)) return;
    const Dictionary oOptions = VoucherEditOptions();
    const Ref<Object> oEditor = CreateLocalObject("NUVMVEdit.MVoucherEdit");
    oEditor->call(Member::LoadVoucher, FirstArgument(editorArgument), std::to_string(nVoucherID), Missing{}, oOptions);
  } catch (const AutomationError& error) {
    ShowInfo(LoadText("加载凭证编辑组建失败：") + error.description());
  }
}

}  // namespace arap

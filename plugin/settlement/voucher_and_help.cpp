#include <string>

#include "frame/bill_fields.h"
#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "frame/voucher_access.h"
#include "settlement/settlement_bill.h"

namespace arap {

void SettlementBill::ShowBillHelp() const {
  const Ref<Object> oHelp = CreateLocalObject("NUVCHMResTool.ClsCHMHelp");
  oHelp->call(Member::ShowHelp, "NUVV11.chm"_key, side_.sHelpTopic, std::int32_t{0});
}

/// The voucher made from the bill; 0 when there is none.
std::int32_t SettlementBill::VoucherOfBill() const {
  const std::string sSql = "select FVoucherID from " + std::string(side_.sBillTable.view()) + " " +
                           "where FBillID=" + std::to_string(Bill().InterID());
  const Recordset rs(ExecuteCommand(sSql));
  if (rs.Eof()) return 0;
  return LongOf(NullToValue(rs.Value("FVoucherID"_key), std::int32_t{0}));
}

void SettlementBill::OpenVoucherOfBill() const {
  const std::int32_t nVoucherID = VoucherOfBill();
  if (nVoucherID == 0) {
    ShowInfo(LoadText("单据未记账。"));
    return;
  }
  // Without the right it shows its own message.
  if (!CheckVoucherRight(nVoucherID)) return;
  const Dictionary oOptions = VoucherEditOptions();
  const Ref<Object> oEditor = CreateLocalObject("NUVMVEdit.MVoucherEdit");
  oEditor->call(Member::LoadVoucher, GetPropsString(), std::to_string(nVoucherID), Missing{}, oOptions);
}

/// A trap of its own: any error is told as one of the editor.
void SettlementBill::ShowBillVoucher() const {
  try {
    OpenVoucherOfBill();
  } catch (const AutomationError& error) {
    ShowMessage(LoadText("加载凭证编辑组建失败：") + error.description(), kNotice, kTitle);
  }
}

}  // namespace arap

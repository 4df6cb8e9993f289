#include "frame/failure.h"
#include "frame/server_objects.h"
#include "settlement/settlement_bill.h"

namespace arap {

void SettlementBill::SaveSettleFields() {
  // An error ends the procedure without a message.
  ResumeNext([this] {
    const BillEvent oBill = Bill();
    const double dSettle = NumberOf(oBill.GetFieldValue("FSettleID"_key, kHead, FieldValueKind::Stored));
    // The number goes into the statement as it stands, quotes included; required.
    const std::string sNo = Concat(oBill.GetFieldValue("FSettleIDNO"_key, kHead, FieldValueKind::Stored));
    const double dBillId = NumberOf(oBill.GetFieldValue("FBillID"_key, kHead, FieldValueKind::Stored));
    std::string sSql = " UPDATE ";
    sSql.append(side_.sBillTable).append(" SET FSettleID=").append(TextOf(dSettle));
    sSql.append(",FSettleIDNo='").append(sNo).append("' WHERE FBillID=").append(TextOf(dBillId));
    ExecuteCommand(sSql);
  });
}

}  // namespace arap

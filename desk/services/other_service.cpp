#include "data/automation_names.h"
#include "data/recordset.h"
#include "services/bill_service.h"
#include "services/other_posting.h"

namespace desk {

namespace {

// The service of one side's other bills.
class OtherService final : public BillService {
 public:
  OtherService(std::string sTypeName, Session& session, const OtherTables& tables)
      : BillService(std::move(sTypeName), session, tables.sBillName,
                    std::make_unique<OtherPosting>(session.database(), tables, lock_lost(session, tables.nClass))),
        tables_(tables) {
    on(tables.numberQuery, [this](Arguments args) { return Variant(bills_of_number(text_argument(args, 1))); });
    on(Member::GetBill, [this](Arguments) { return Variant(keeps_hint_back()); });
  }

 private:
  Ref<SqlRecordset> bills_of_number(const std::string& sBillNo) {
    return make_recordset(session().database().query(
        side_sql(tables_.side, "SELECT FBillID, FBillNo, FDate, FStatus FROM {other} WHERE FBillNo = ?"),
        {Bind(sBillNo)}));
  }

  // Whether the company wants no hint about the settlement account after the save of a credit bill.
  bool keeps_hint_back() {
    return !session()
                .database()
                .query(
                    "SELECT 1 FROM t_SystemProfile WHERE FCategory = 'IC' AND FKey = 'HideSettleAcctHint'"
                    " AND FValue = '1'")
                .empty();
  }

  const OtherTables& tables_;
};

}  // namespace

void register_other_services(Session& session) {
  const auto add = [&session](const char* sProgID, const char* sTypeName, const OtherTables& tables) {
    session.registry().add(sProgID, [&session, sTypeName, &tables] {
      return Ref<arap::Object>(arap::make_object<OtherService>(sTypeName, session, tables));
    });
  };
  add("NUVlpsArApBill.clsArOtherBill", "clsArOtherBill", kOtherReceivableTables);
  add("NUVlpsArApBill.clsApOtherBill", "clsApOtherBill", kOtherPayableTables);
}

}  // namespace desk

#include "data/automation_names.h"
#include "data/recordset.h"
#include "services/bill_service.h"
#include "services/settlement_posting.h"

namespace desk {

namespace {

// The settlement bill service of one side.
class SettlementService final : public BillService {
 public:
  SettlementService(std::string sTypeName, Session& session, const SettlementTables& tables)
      : BillService(std::move(sTypeName), session, tables.sBillName,
                    std::make_unique<SettlementPosting>(session.database(), tables, lock_lost(session, tables.nClass))),
        tables_(tables) {
    on(Member::GetUnCheckAmountFor, [this](Arguments args) {
      SettlementPosting posting(this->session().database(), tables_);
      return Variant(
          posting.unused_advance(long_argument(args, 1), long_argument(args, 2), long_argument(args, 3)).to_double());
    });
    on(Member::GetSourceBillData, [this](Arguments args) { return Variant(source_bill_data(long_argument(args, 1))); });
  }

 private:
  // The sources of a bill, with what was given back of each so far.
  Ref<SqlRecordset> source_bill_data(std::int32_t nBillID) {
    return make_recordset(session().database().query(
        side_sql(tables_,
                 "SELECT e.{number} AS FBillNo, e.FBillDate AS FBillDate, e.FBillAmountFor AS FBillAmountFor,"
                 " e.FBillAmount AS FBillAmount, e.FBill{got}AmountFor AS FBill{got}AmountFor,"
                 " e.FBillUn{got}AmountFor AS FBillUn{got}AmountFor, e.FBillSettleAmountFor AS FBillSettleAmountFor,"
                 " e.FBillSettleAmount AS FBillSettleAmount, c.FName AS FCurrencyName,"
                 " e.FEntryExchangeRate AS FEntryExchangeRate, e.FBillNote AS FBillNote,"
                 " e.FBackAmountFor AS FAllBackAmountFor, 0 AS FBackAmountFor, 0 AS FBackAmount,"
                 " e.FInterID AS FInterID, e.FClassID_SRC AS FClassID_SRC"
                 " FROM {entry} e LEFT JOIN t_Currency c ON c.FCurrencyID = e.FBillCurrencyID"
                 " WHERE e.FBillID = ? ORDER BY e.FIndex"),
        {Bind(nBillID)}));
  }

  const SettlementTables& tables_;
};

}  // namespace

void register_settlement_services(Session& session) {
  const auto add = [&session](const char* sProgID, const char* sTypeName, const SettlementTables& tables) {
    session.registry().add(sProgID, [&session, sTypeName, &tables] {
      return Ref<arap::Object>(arap::make_object<SettlementService>(sTypeName, session, tables));
    });
  };
  add("NUVlpsArApBill.clsArBill", "clsArBill", kReceiptTables);
  add("NUVlpsArApBill.clsApBill", "clsApBill", kPaymentTables);
}

}  // namespace desk

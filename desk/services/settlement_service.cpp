#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"
#include "services/component.h"
#include "services/session.h"
#include "services/settlement_posting.h"

namespace desk {

namespace {

// What CheckBillSimple answers in Code.
enum class SimpleCode : std::int16_t { Refused = -1, Done = 0, Failed = 1 };
enum class SimpleOperation : std::int32_t { Delete = 0, Check = 1, Uncheck = 2 };

// The settlement bill service of one side.
class SettlementService final : public Component {
 public:
  SettlementService(std::string sTypeName, Session& session, const SettlementTables& tables)
      : Component(std::move(sTypeName)),
        session_(session),
        tables_(tables),
        posting_(session.database(), tables, [&session, &tables](std::int32_t nBillID) {
          return session.tasks().has_lost(edit_function(tables.nClass), nBillID);
        }) {
    on(Member::CheckBill, [this](Arguments args) { return check_bill(args); });
    on(Member::CheckBillSimple, [this](Arguments args) { return check_bill_simple(argument(args, 0)); });
    on(Member::GetUnCheckAmountFor, [this](Arguments args) {
      return Variant(
          posting_.unused_advance(long_argument(args, 1), long_argument(args, 2), long_argument(args, 3)).to_double());
    });
    on(Member::GetSourceBillData, [this](Arguments args) { return Variant(source_bill_data(long_argument(args, 1))); });
  }

 private:
  // CheckBill(sProps, nInterID, nFlag, sMessage by reference): 1 is failure, 0 success.
  Variant check_bill(Arguments args) {
    const bool bCheck = long_argument(args, 2) == 1;
    PostingResult result;
    try {
      result = bCheck ? posting_.check(long_argument(args, 1), session_.user_name())
                      : posting_.uncheck(long_argument(args, 1));
    } catch (const DeskError& error) {
      result.sRefusal = error.what();
    }
    argument(args, 3) = result.bDone ? std::string(tables_.sBillName) + "[" + result.sBillNo + "]" +
                                           (bCheck ? "审核成功。" : "反审核成功。")
                                     : result.sRefusal;
    return std::int32_t{result.bDone ? 0 : 1};
  }

  PostingResult operate(SimpleOperation operation, std::int32_t nBillID) {
    switch (operation) {
      case SimpleOperation::Delete: return posting_.remove(nBillID);
      case SimpleOperation::Check: return posting_.check(nBillID, session_.user_name());
      case SimpleOperation::Uncheck: return posting_.uncheck(nBillID);
    }
    throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "CheckType");
  }

  Variant check_bill_simple(const Variant& vData) {
    const arap::Dictionary oData(vData);
    const auto operation = static_cast<SimpleOperation>(arap::LongOf(oData.Value("CheckType")));
    PostingResult result;
    SimpleCode code = SimpleCode::Refused;
    try {
      result = operate(operation, arap::LongOf(oData.Value("InterID")));
      if (result.bDone) code = SimpleCode::Done;
    } catch (const DeskError& error) {
      result.sRefusal = error.what();
      code = SimpleCode::Failed;
    }
    const arap::Dictionary oAnswer(session_.registry().create(arap::open_choices::kDictionary));
    oAnswer.SetValue("Code", static_cast<std::int16_t>(code));
    oAnswer.SetValue("Description", result.sRefusal);
    oAnswer.SetValue("BillNo", result.sBillNo);
    return oAnswer;
  }

  // The sources of a bill, with what was given back of each so far.
  Ref<SqlRecordset> source_bill_data(std::int32_t nBillID) {
    return make_recordset(session_.database().query(
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

  Session& session_;
  const SettlementTables& tables_;
  SettlementPosting posting_;
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

#include "services/bill_service.h"

#include "data/automation_names.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"

namespace desk {

namespace {

// What CheckBillSimple answers in Code.
enum class SimpleCode : std::int16_t { Refused = -1, Done = 0, Failed = 1 };
enum class SimpleOperation : std::int32_t { Delete = 0, Check = 1, Uncheck = 2 };

PostingResult operate(BillPosting& posting, SimpleOperation operation, std::int32_t nBillID, const std::string& sUser) {
  switch (operation) {
    case SimpleOperation::Delete: return posting.remove(nBillID);
    case SimpleOperation::Check: return posting.check(nBillID, sUser);
    case SimpleOperation::Uncheck: return posting.uncheck(nBillID);
  }
  throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "CheckType");
}

}  // namespace

BillPosting::LockLost lock_lost(Session& session, std::int32_t nClass) {
  return [&session, nClass](std::int32_t nBillID) { return session.tasks().has_lost(edit_function(nClass), nBillID); };
}

BillService::BillService(std::string sTypeName, Session& session, std::string_view sBillName,
                         std::unique_ptr<BillPosting> posting)
    : Component(std::move(sTypeName)), session_(session), bill_name_(sBillName), posting_(std::move(posting)) {
  on(Member::CheckBill, [this](Arguments args) { return check_bill(args); });
  on(Member::CheckBillSimple, [this](Arguments args) { return check_bill_simple(argument(args, 0)); });
}

// CheckBill(sProps, nInterID, nFlag, sMessage by reference): 1 is failure, 0 success.
Variant BillService::check_bill(Arguments args) {
  const bool bCheck = long_argument(args, 2) == 1;
  PostingResult result;
  try {
    result = bCheck ? posting_->check(long_argument(args, 1), session_.user_name())
                    : posting_->uncheck(long_argument(args, 1));
  } catch (const DeskError& error) {
    result.sRefusal = error.what();
  }
  argument(args, 3) = result.bDone ? bill_name_ + "[" + result.sBillNo + "]" + (bCheck ? "审核成功。" : "反审核成功。")
                                   : result.sRefusal;
  return std::int32_t{result.bDone ? 0 : 1};
}

Variant BillService::check_bill_simple(const Variant& vData) {
  const arap::Dictionary oData(vData);
  const auto operation = static_cast<SimpleOperation>(arap::LongOf(oData.Value("CheckType")));
  PostingResult result;
  SimpleCode code = SimpleCode::Refused;
  try {
    result = operate(*posting_, operation, arap::LongOf(oData.Value("InterID")), session_.user_name());
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

}  // namespace desk

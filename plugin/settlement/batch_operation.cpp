#include "frame/bill_operation.h"
#include "frame/server_objects.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "settlement/settlement_bill.h"

/// One operation on one bill by its id, from a list or from outside a window.
namespace arap {

bool SettlementBill::DoOptToBill(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType,
                                 Variant& vCode, Variant& vMessage) {
  try {
    const std::string sVerb = VerbOf(nCheckType);
    if (!sVerb.empty()) {
      CommitTask(m_lTaskId);
      m_lTaskId = ExecFunc(kTaskSystem, GetTaskCode(nCheckType), 0, 0, nInterID);
    }
    const Dictionary oData = OperationData(nTransType, nInterID, nCheckType);
    const Ref<Object> oService = CreateServerObject(side_.sBillService);
    const Dictionary oAnswer(oService->call(Member::CheckBillSimple, oData));
    vCode = IntegerOf(oAnswer.Value("Code"_key));
    ReportOperation(IntegerOf(vCode), sVerb, oAnswer, vMessage);
    CommitTask(m_lTaskId);
    return IntegerOf(vCode) == 0;
  } catch (const AutomationError& error) {
    CommitHeldTask();
    vMessage = error.description();
    return false;
  }
}

void SettlementBill::ReportOperation(std::int16_t nCode, const std::string& sVerb, const Dictionary& oAnswer,
                                     Variant& vMessage) {
  const std::string sDesc = Concat(oAnswer.Value("Description"_key));
  const auto text_with_number = [&](std::string_view sTemplate) {
    return sVerb + FormatText(sTemplate, {Concat(oAnswer.Value("BillNo"_key))});
  };
  switch (nCode) {
    case -1:
      vMessage = sDesc;
      WriteActionLog("RP1000202A", -1, sDesc);  // the payment's code on both sides; required
      return;
    case 0: {
      const std::string sText = text_with_number("[编号:%1]单据成功!") + sDesc;
      vMessage = sText;
      WriteActionLog(side_.sLogCode, 1, sText);
      return;
    }
    case 1: {
      const std::string sText = text_with_number("单据[%1]失败!") + LoadText("初始化审核信息时出错。") + sDesc;
      vMessage = sText;
      switch (side_.failureLog) {
        case FailureLog::Written: WriteActionLog(side_.sLogCode, 1, sText); return;  // logged as a success; required
        case FailureLog::None: return;
      }
      return;
    }
    default: return;
  }
}

}  // namespace arap

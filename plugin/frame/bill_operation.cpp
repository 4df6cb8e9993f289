#include "frame/bill_operation.h"

#include <array>
#include <optional>

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// The user's word for an operation; "" for a number without one.
std::string VerbOf(std::int32_t nCheckType) {
  switch (static_cast<BillOperation>(nCheckType)) {
    case BillOperation::Delete: return LoadText("删除");
    case BillOperation::Check: return LoadText("审核");
    case BillOperation::Uncheck: return LoadText("反审核");
  }
  return "";
}

/// What CheckBillSimple is asked. The props string is parsed anew on the way.
Dictionary OperationData(const OperationCall& call) {
  const Dictionary oData = NewDictionary();
  oData.SetValue("TransType"_key, call.nTransType);
  oData.SetValue("InterID"_key, call.nInterID);
  oData.SetValue("CheckType"_key, call.nCheckType);
  const std::string sProps = GetPropsString();
  ParsePropsString(sProps);
  oData.SetValue("PropsString"_key, sProps);
  return oData;
}

/// The user's text for the service's code; nothing for a code without one.
std::optional<std::string> ResultText(std::int16_t nCode, const std::string& sVerb, const Dictionary& oAnswer) {
  const std::string sDesc = Concat(oAnswer.Value("Description"_key));
  const auto text_with_number = [&](std::string_view sTemplate) {
    return sVerb + FormatText(sTemplate, {Concat(oAnswer.Value("BillNo"_key))});
  };
  switch (nCode) {
    case -1: return sDesc;
    case 0: return text_with_number("[编号:%1]单据成功!") + sDesc;
    case 1: return text_with_number("单据[%1]失败!") + LoadText("初始化审核信息时出错。") + sDesc;
    default: return std::nullopt;
  }
}

bool Operate(std::int32_t& nHeldTask, const OperationCall& call, const OperationRules& rules, Variant& vCode,
             Variant& vMessage) {
  const std::string sVerb = VerbOf(call.nCheckType);
  if (!sVerb.empty()) {
    CommitTask(nHeldTask);
    nHeldTask = ExecFunc(kTaskSystem, rules.sTaskCode, 0, 0, call.nInterID);
  }
  const Dictionary oData = OperationData(call);
  const Ref<Object> oService = CreateServerObject(rules.sService);
  const Dictionary oAnswer(oService->call(Member::CheckBillSimple, oData));
  const std::int16_t nCode = IntegerOf(oAnswer.Value("Code"_key));
  vCode = nCode;
  if (const std::optional<std::string> sText = ResultText(nCode, sVerb, oAnswer)) {
    vMessage = *sText;
    rules.log(nCode, *sText);
  }
  CommitTask(nHeldTask);
  return nCode == 0;
}

}  // namespace

bool OperateUnderTask(std::int32_t& nHeldTask, const OperationCall& call, const OperationRules& rules, Variant& vCode,
                      Variant& vMessage) {
  try {
    return Operate(nHeldTask, call, rules, vCode, vMessage);
  } catch (const AutomationError& error) {
    ResumeNext([&] { CommitTask(nHeldTask); });
    vMessage = error.description();
    return false;
  }
}

CheckAnswer AskCheckBill(std::string_view sService, std::int32_t nInterID, CheckFlag flag) {
  const Ref<Object> oService = CreateServerObject(sService);
  std::array<Variant, 4> args{GetPropsString(), nInterID, static_cast<std::int32_t>(flag), ""_key};
  const std::int32_t nResult = LongOf(oService->invoke(Member::CheckBill, Access::Call, args));
  return {nResult, Concat(args[3]), oService};
}

bool IsBeforePeriod(const Variant& vBillDate, std::string_view sPeriodStart) {
  return Format(Concat(vBillDate), "YYYY-MM-DD") < Format(sPeriodStart, "YYYY-MM-DD");
}

}  // namespace arap

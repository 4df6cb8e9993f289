#include "frame/bill_operation.h"

#include <array>

#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

std::string VerbOf(std::int32_t nCheckType) {
  switch (static_cast<BillOperation>(nCheckType)) {
    case BillOperation::Delete: return LoadText("删除");
    case BillOperation::Check: return LoadText("审核");
    case BillOperation::Uncheck: return LoadText("反审核");
  }
  return "";
}

Dictionary OperationData(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType) {
  const Dictionary oData = NewDictionary();
  oData.SetValue("TransType"_key, nTransType);
  oData.SetValue("InterID"_key, nInterID);
  oData.SetValue("CheckType"_key, nCheckType);
  const std::string sProps = GetPropsString();
  ParsePropsString(sProps);
  oData.SetValue("PropsString"_key, sProps);
  return oData;
}

CheckAnswer AskCheckBill(std::string_view sService, std::int32_t nInterID, CheckFlag flag) {
  const Ref<Object> oService = CreateServerObject(sService);
  std::array<Variant, 4> args{GetPropsString(), nInterID, static_cast<std::int32_t>(flag), ""_key};
  const std::int32_t nResult = LongOf(oService->invoke(Member::CheckBill, Access::Call, args));
  return {nResult, Concat(args[3])};
}

bool IsBeforePeriod(const Variant& vBillDate, std::string_view sPeriodStart) {
  return Format(Concat(vBillDate), "YYYY-MM-DD") < Format(sPeriodStart, "YYYY-MM-DD");
}

}  // namespace arap

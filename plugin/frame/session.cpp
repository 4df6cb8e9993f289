#include "frame/session.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "frame/bill_fields.h"
#include "frame/failure.h"
#include "frame/module_state.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// The first day of the period in use.
Date StartOfPeriodInUse() {
  const Ref<Object> oSearch = CreateServerObject("NUVMCaculate.CommonSearch");
  std::array<Variant, 5> args{GetPropsString(), std::int32_t{0}, std::int32_t{0}, ""_key, ""_key};
  oSearch->invoke(Member::GetDateExt, Access::Call, args);
  return ToDate(args[3]);
}

/// Compares days; the time of day doesn't count.
bool IsLaterDay(Date a, Date b) { return std::trunc(a.days) > std::trunc(b.days); }

/// A date of a recordset as "yyyy-mm-dd".
std::string FormatDay(const Variant& vDate) {
  const std::string sText(Trim(Concat(vDate)));
  return IsDate(sText) ? Format(ToDate(sText), "yyyy-mm-dd") : sText;
}

}  // namespace

std::string GetUserName() {
  const Ref<Object>& oLogin = Module().oLogin;
  return TextOf(oLogin ? oLogin->get(Member::UserName) : GetSharedProperty("UserName"));
}

std::string GetPropertyValue(std::string_view sKey) {
  const auto& aProps = Module().aProps;
  const auto found =
      std::find_if(aProps.begin(), aProps.end(), [sKey](const auto& pair) { return EqualsNoCase(pair.first, sKey); });
  if (found == aProps.end()) throw AutomationError(ErrorNumber::InvalidProcedureCall, sKey);
  return found->second;
}

std::string UserName() { return GetPropertyValue("UserName"); }
std::string ConnectString() { return GetPropertyValue("ConnectString"); }
std::int16_t UserID() { return IntegerOf(GetPropertyValue("UserID")); }

std::string GetSysParam(std::string_view sCategory, std::string_view sKey, std::string_view sDefault) {
  try {
    const Ref<Object> oSysInfo = CreateServerObject("NUVBillDataAccess.SysInfo");
    return TextOf(oSysInfo->call(Member::GetSysValue, GetPropsString(), sCategory, sKey));
  } catch (const AutomationError&) {
    return std::string(sDefault);
  }
}

bool CheckAccess(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight) {
  // Resume next: a question that failed is a right that isn't there.
  bool bHasRight = false;
  ResumeNext([&] { bHasRight = GetGLData().AccessCheck(nSubSystem, nObject, nRight); });
  if (!bHasRight) ResumeNext([] { ShowInfo(LoadText("没有权限,请与系统管理员联系")); });
  return bHasRight;
}

void WriteActionLog(std::string_view sCode, std::int32_t nResult, std::string_view sText) {
  ResumeNext([&] { GetGLData().WriteLog(sCode, nResult, sText); });
}

bool CheckBillDate(const BillEvent& oBill) {
  bool bValid = true;
  // An error answers what the result stands at.
  ResumeNext([&] {
    const std::string sBillDate = Concat(GetBillField(oBill, "FDate"_key, kHead));
    const Date dStart = StartOfPeriodInUse();
    if (!IsLaterDay(dStart, ToDate(sBillDate))) return;
    bValid = false;
    ShowMessage(FormatText("不能保存业务系统当前使用期间之前的单据,请修改单据日期。"), kWarning, kTitle);
  });
  return bValid;
}

std::string GetCurrentPeriodStart() {
  static constexpr std::string_view kSql =
      "declare @Per int,@Year int \r\n"
      "select @Per=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentPeriod' \r\n"
      "select @Year=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentYear' \r\n"
      "Select FStartDate,FEndDate From T_PeriodDate where FYear=@Year And FPeriod=@Per ";
  try {
    const Ref<Object> oGetData = CreateServerObject("NUVBillDataAccess.GetData");
    const Recordset rs(oGetData->call(Member::ExecuteSQL, GetPropsString(), kSql));
    return rs.Eof() ? std::string() : FormatDay(rs.Value("FStartDate"_key));
  } catch (const AutomationError&) {
    return {};
  }
}

Date GetReportTransDate() {
  try {
    const Ref<Object> oSystem = CreateServerObject("NUVMSystem.System");
    return ToDate(oSystem->call(Member::GetRptTransDate, GetPropsString()));
  } catch (const AutomationError&) {
    return DateSerial(9999, 1, 1);
  }
}

}  // namespace arap

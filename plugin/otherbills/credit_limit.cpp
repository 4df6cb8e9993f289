#include <string>

#include "frame/server_objects.h"
#include "otherbills/other_bill.h"

/// Does this bill take the partner over the credit limit? The open balance is the aged report's, so the answer agrees
/// with what the user sees there. No trap here: an unreadable profile or partner ends the save.
namespace arap {

namespace {

/// The degree of control that the company chose not to have. Compared as text: "1.0" is another.
constexpr std::string_view kNoControl = "1";

/// Every key that the report reads. The period has no ends, and the amounts are in base currency.
Dictionary ReportParameters(const OtherBillSide& side, const std::string& sPartnerNumber) {
  const Dictionary oParams = NewDictionary();
  oParams.SetValue("OK"_key, true);
  oParams.SetValue("BDate"_key, "1900-01-01"_key);
  oParams.SetValue("EDate"_key, "2090-01-01"_key);
  oParams.SetValue(side.sReportFromPartner, sPartnerNumber);
  oParams.SetValue(side.sReportToPartner, sPartnerNumber);
  for (const Key sKey : {"BDeptNumber"_key, "EDeptNumber"_key, "BEmpNumber"_key, "EEmpNumber"_key}) {
    oParams.SetValue(sKey, ""_key);
  }
  oParams.SetValue("CurrencyName"_key, "综合本位币"_key);
  oParams.SetValue("CurrencyID"_key, std::int32_t{0});
  oParams.SetValue(side.sReportNoInvoice, std::int32_t{0});
  oParams.SetValue(side.sReportCashInvoice, std::int32_t{0});
  oParams.SetValue("IncludeNotAudit"_key, std::int32_t{1});
  oParams.SetValue("BalanceNotZero"_key, std::int32_t{0});
  oParams.SetValue("IncludeOther"_key, std::int32_t{1});
  oParams.SetValue("GroupBy"_key, std::int32_t{0});
  oParams.SetValue("BLevel"_key, std::int32_t{1});
  oParams.SetValue("ELevel"_key, std::int32_t{1});
  oParams.SetValue("SumMode"_key, std::int32_t{1});
  oParams.SetValue("SumName"_key, side.sReportSumName);
  oParams.SetValue("bLongNumber"_key, true);
  oParams.SetValue("DataRightWhere"_key, ""_key);
  return oParams;
}

}  // namespace

/// The degree of control as the profile's text.
std::string OtherBill::CreditDegreeText() const {
  const Recordset rs = Bill().Server().OpenQuery("Select FValue From t_SystemProfile Where FCategory='IC' And FKey='" +
                                                 std::string(side_.sCreditProfileKey.view()) + "'");
  return std::string(Trim(Concat(rs.Value(std::int32_t{0}))));
}

/// What the partner owes, or is owed, by the report; only its first sum row counts.
double OtherBill::OpenBalance(const std::string& sPartnerNumber) const {
  const Ref<Object> oReport = CreateLocalObject("NUVMYWARAPRpt.Data");
  const Dictionary oParams = ReportParameters(side_, sPartnerNumber);
  const Recordset rs(oReport->call(side_.creditReport, GetPropsString(), oParams));
  rs.SetFilter("FSumSort=0"_key);
  return rs.Eof() ? 0 : NumberOf(rs.Value("FRemainAmount"_key));
}

/// What the stored bill weighs in the open balance already, checked or not; an immediate bill weighs nothing.
double OtherBill::StoredCreditAmount() const {
  const std::int32_t nInterID = Bill().InterID();
  if (nInterID < 1) return 0;
  const Recordset rs =
      Bill().Server().OpenQuery("Select FBillTypeId,FAmount From " + std::string(side_.sBillTable.view()) +
                                " Where FBillID=" + std::to_string(nInterID));
  if (rs.Eof() || NumberOf(rs.Value("FBillTypeId"_key)) != side_.nCreditType) return 0;
  return NumberOf(rs.Value("FAmount"_key));
}

std::int32_t OtherBill::CheckCreditLimit() {
  if (!IsCreditBill()) return 0;
  const std::string sDegree = CreditDegreeText();
  if (sDegree == kNoControl) return 0;
  const Recordset rsPartner =
      Bill().Server().OpenQuery("Select FCreditDegree,FNumber From " + std::string(side_.sPartnerTable.view()) +
                                " Where FItemID=" + std::to_string(HeadLong(side_.sPartner)));
  const double dLimit = NumberOf(rsPartner.Value(std::int32_t{0}));
  const std::string sNumber(Trim(Concat(rsPartner.Value(std::int32_t{1}))));
  if (dLimit <= 0) return 0;
  double dBalance = OpenBalance(sNumber);
  dBalance += NumberOf(StoredValue("FAmount"_key));
  dBalance -= StoredCreditAmount();
  return dBalance > dLimit ? LongOf(Variant(sDegree)) : 0;
}

}  // namespace arap

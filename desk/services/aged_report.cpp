#include "services/aged_report.h"

#include <QDate>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

namespace {

// Every item that isn't settled in full; a bill in a foreign currency weighs what is left of it in base currency.
constexpr std::string_view kItems =
    "SELECT s.{invoicepartner} AS FPartner, s.FDate AS FDate, s.FDueDate AS FDueDate, s.FDeptID AS FDept,"
    " s.FEmpID AS FEmp, s.FCurrencyID AS FCurrency, s.FStatus AS FStatus, 0 AS FOther,"
    " s.FAmount - s.FReceiveAmount AS FOpen FROM {invoice} s WHERE s.FAmountFor <> s.FReceiveAmountFor"
    " UNION ALL "
    "SELECT o.{partner}, o.FDate, o.FLimitDate, o.FDepartmentID, o.FEmployeeID, o.FCurrencyID, o.FStatus, 1,"
    " o.FAmount - o.FCheckAmount FROM {other} o WHERE o.FAmountFor <> o.FCheckAmountFor";

constexpr std::string_view kSums =
    "COALESCE(SUM(FOpen), 0) AS FRemainAmount, COALESCE(SUM(CASE WHEN FAge = 0 THEN FOpen ELSE 0 END), 0) AS"
    " FAgedAmount0, COALESCE(SUM(CASE WHEN FAge = 1 THEN FOpen ELSE 0 END), 0) AS FAgedAmount1,"
    " COALESCE(SUM(CASE WHEN FAge = 2 THEN FOpen ELSE 0 END), 0) AS FAgedAmount2,"
    " COALESCE(SUM(CASE WHEN FAge = 3 THEN FOpen ELSE 0 END), 0) AS FAgedAmount3,"
    " COALESCE(SUM(CASE WHEN FAge = 4 THEN FOpen ELSE 0 END), 0) AS FAgedAmount4";

// A condition that holds only when its text was given.
struct TextCondition {
  const std::string& sText;
  std::string_view sSql;
};

std::string conditions_of(const AgedQuery& query, Binds& binds) {
  std::string sSql = " WHERE 1 = 1";
  for (const auto& [sText, sCondition] :
       {TextCondition{query.sFromDate, "i.FDate >= ?"}, TextCondition{query.sToDate, "i.FDate <= ?"},
        TextCondition{query.sFromPartner, "p.FNumber >= ?"}, TextCondition{query.sToPartner, "p.FNumber <= ?"},
        TextCondition{query.sFromDepartment, "d.FNumber >= ?"}, TextCondition{query.sToDepartment, "d.FNumber <= ?"},
        TextCondition{query.sFromEmployee, "e.FNumber >= ?"}, TextCondition{query.sToEmployee, "e.FNumber <= ?"}}) {
    if (sText.empty()) continue;
    sSql.append(" AND ").append(sCondition);
    binds.emplace_back(sText);
  }
  if (query.nCurrency != 0) {
    sSql += " AND i.FCurrency = ?";
    binds.emplace_back(query.nCurrency);
  }
  if (!query.bUnchecked) sSql += " AND i.FStatus = 1";
  if (!query.bOthers) sSql += " AND i.FOther = 0";
  return sSql;
}

// How long an item is overdue, by the last due date that still belongs to each class. Four parameters.
std::string age_column(const std::string& sToday, Binds& binds) {
  const QDate today = QDate::fromString(QString::fromStdString(sToday), Qt::ISODate);
  std::string sSql = "CASE";
  int nAge = 0;
  for (const int nDays : {0, 30, 60, 90}) {
    sSql += " WHEN i.FDueDate >= ? THEN " + std::to_string(nAge++);
    binds.emplace_back(today.addDays(-nDays).toString(Qt::ISODate).toStdString());
  }
  return sSql + " ELSE " + std::to_string(nAge) + " END";
}

std::string text_of(const arap::Dictionary& oParams, const std::string& sKey) {
  return std::string(arap::Trim(arap::Concat(oParams.GetValue(sKey, ""))));
}

bool flag_of(const arap::Dictionary& oParams, const std::string& sKey) {
  return arap::NumberOf(oParams.GetValue(sKey, std::int32_t{0})) != 0;
}

// GetRpt131Data(sProps, oParams) of the customers, GetRpt132Data of the suppliers. One level, by partner.
Variant report_data(Database& database, const SettlementTables& tables, Arguments args) {
  const arap::Dictionary oParams(argument(args, 1));
  const std::string sPartner(tables.sReportPartner);
  AgedQuery query;
  query.sFromDate = text_of(oParams, "BDate");
  query.sToDate = text_of(oParams, "EDate");
  query.sFromPartner = text_of(oParams, "B" + sPartner);
  query.sToPartner = text_of(oParams, "E" + sPartner);
  query.sFromDepartment = text_of(oParams, "BDeptNumber");
  query.sToDepartment = text_of(oParams, "EDeptNumber");
  query.sFromEmployee = text_of(oParams, "BEmpNumber");
  query.sToEmployee = text_of(oParams, "EEmpNumber");
  query.nCurrency = arap::LongOf(oParams.GetValue("CurrencyID", std::int32_t{0}));
  query.bUnchecked = flag_of(oParams, "IncludeNotAudit");
  query.bOthers = flag_of(oParams, "IncludeOther");
  query.bNotZeroOnly = flag_of(oParams, "BalanceNotZero");
  query.sToday = QDate::currentDate().toString(Qt::ISODate).toStdString();
  return Variant(make_recordset(aged_report(database, tables, query)));
}

}  // namespace

Rows aged_report(Database& database, const SettlementTables& tables, const AgedQuery& query) {
  Binds binds;
  const std::string sAge = age_column(query.sToday, binds);
  const std::string sItems =
      "WITH aged AS (SELECT p.FNumber AS FNumber, p.FName AS FName, i.FOpen AS FOpen, " + sAge + " AS FAge FROM (" +
      std::string(kItems) +
      ") i JOIN {partners} p ON p.FItemID = i.FPartner"
      " LEFT JOIN t_Department d ON d.FItemID = i.FDept LEFT JOIN t_Emp e ON e.FItemID = i.FEmp" +
      conditions_of(query, binds) + ")";
  const std::string sSums(kSums);
  const std::string sHaving = query.bNotZeroOnly ? " HAVING SUM(FOpen) <> 0" : "";
  return database.query(side_sql(tables, sItems + " SELECT 0 AS FSumSort, FNumber, FName, " + sSums +
                                             " FROM aged GROUP BY FNumber, FName" + sHaving +
                                             " UNION ALL SELECT 1, '', '合计', " + sSums + " FROM aged ORDER BY 1, 2"),
                        binds);
}

void register_aged_report(Session& session) {
  Database& database = session.database();
  session.registry().add("NUVMYWARAPRpt.Data", [&database] {
    return make_component(
        "Data",
        {{Member::GetRpt131Data, [&database](Arguments args) { return report_data(database, kReceiptTables, args); }},
         {Member::GetRpt132Data, [&database](Arguments args) { return report_data(database, kPaymentTables, args); }}});
  });
}

}  // namespace desk

#include "data/automation_names.h"
#include "data/connection_object.h"
#include "data/recordset.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

namespace {

std::string profile_value(Database& database, std::string_view sCategory, std::string_view sKey) {
  return arap::Concat(database.value("SELECT FValue FROM t_SystemProfile WHERE FCategory = ? AND FKey = ?",
                                     {Bind(sCategory), Bind(sKey)}, ""));
}

// The year, period, first and last day of the period in use.
Rows current_period(Database& database) {
  return database.query("SELECT FYear, FPeriod, FStartDate, FEndDate FROM T_PeriodDate WHERE FYear = ? AND FPeriod = ?",
                        {Bind(arap::LongOf(profile_value(database, "IC", "CurrentYear"))),
                         Bind(arap::LongOf(profile_value(database, "IC", "CurrentPeriod")))});
}

// GetDateExt(sProps, nYear, nPeriod, sStart, sEnd): all but the first come back.
Variant get_date_ext(Database& database, Arguments args) {
  const Rows rows = current_period(database);
  if (rows.empty())
    throw arap::AutomationError(arap::ErrorNumber::InvalidProcedureCall, "the book has no period in use");
  argument(args, 1) = rows.integer(0, "FYear");
  argument(args, 2) = rows.integer(0, "FPeriod");
  argument(args, 3) = rows.text(0, "FStartDate");
  argument(args, 4) = rows.text(0, "FEndDate");
  return true;
}

Variant report_date(Database& database) {
  const Rows rows = current_period(database);
  return rows.empty() ? Variant("9999-01-01") : Variant(rows.text(0, "FEndDate"));
}

}  // namespace

void register_system_values(Session& session) {
  Database& database = session.database();
  ObjectRegistry& registry = session.registry();
  registry.add("NUVBillDataAccess.SysInfo", [&database] {
    return make_component("SysInfo",
                          {{Member::GetSysValue, [&database](Arguments args) {
                              return Variant(profile_value(database, text_argument(args, 1), text_argument(args, 2)));
                            }}});
  });
  registry.add("NUVBillDataAccess.GetData", [&database] {
    return make_component(
        "GetData", {{Member::ExecuteSQL, [&database](Arguments args) {
                       return Variant(open_recordset(database, text_argument(args, 1), "NUVBillDataAccess.GetData"));
                     }}});
  });
  registry.add("NUVMSystem.System", [&database] {
    return make_component("System",
                          {{Member::GetRptTransDate, [&database](Arguments) { return report_date(database); }}});
  });
  registry.add("NUVMCaculate.CommonSearch", [&database] {
    return make_component("CommonSearch",
                          {{Member::GetDateExt, [&database](Arguments args) { return get_date_ext(database, args); }}});
  });
  for (const char* sProgID : {"NUVMAppConnection.AppConnection", "NUVConnection.AppConnection"}) {
    registry.add(sProgID, [&database] { return Ref<arap::Object>(arap::make_object<AppConnectionObject>(database)); });
  }
}

}  // namespace desk

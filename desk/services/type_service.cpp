#include "data/automation_names.h"
#include "data/recordset.h"
#include "frame/conversions.h"
#include "services/component.h"
#include "services/session.h"
#include "services/type_queries.h"

namespace desk {

namespace {

// A condition that holds only when its argument was given.
struct TypeCondition {
  std::size_t nArgument;
  std::string_view sSql;
};

// (sProps, nID, sNumber, sName, sParentNumber, nBranch), each but the first to be left out. On the top of a branch the
// number of the parent is "".
constexpr TypeCondition kQueryConditions[] = {
    {1, "FID = ?"},
    {2, "FNumber = ?"},
    {3, "FName = ?"},
    {4,
     "CASE WHEN FLevels = 1 THEN '' ELSE (SELECT p.FNumber FROM t_RP_InOutType p WHERE p.FID = t.FParentID) END = ?"},
    {5, "FBranch = ?"},
};
constexpr TypeCondition kUseConditions[] = {{1, "t.FID = ?"}, {2, "t.FNumber = ?"}};

bool is_given(Arguments args, std::size_t nIndex) { return nIndex < args.size() && !args[nIndex].is_missing(); }

// The text of a query with the conditions of the arguments that were given.
template <std::size_t N>
std::string with_conditions(std::string sSql, const TypeCondition (&conditions)[N], Arguments args, Binds& binds) {
  for (const TypeCondition& condition : conditions) {
    if (!is_given(args, condition.nArgument)) continue;
    sSql.append(" AND ").append(condition.sSql);
    binds.emplace_back(args[condition.nArgument]);
  }
  return sSql;
}

Variant find_types(Database& database, Arguments args) {
  Binds binds;
  const std::string sSql = with_conditions("SELECT * FROM t_RP_InOutType t WHERE 1 = 1", kQueryConditions, args, binds);
  return Variant(make_recordset(database.query(sSql + " ORDER BY FNumber", binds)));
}

// Without an id or a number no type is asked about.
Variant is_type_used(Database& database, Arguments args) {
  Binds binds;
  const std::string sSql = with_conditions(std::string(kUsedTypes), kUseConditions, args, binds);
  return !binds.empty() && !database.query(sSql, binds).empty();
}

// IsSameAcctId(sProps, sTypeIds, nAcctID): whether one of the types has the account. Account 0 is none.
Variant is_same_account(Database& database, Arguments args) {
  const std::int32_t nAccount = long_argument(args, 2);
  if (nAccount == 0) return false;
  const std::string sTypes = "," + text_argument(args, 1) + ",";
  const Rows rows = database.query("SELECT FID FROM t_RP_InOutType WHERE FAcctID = ?", {Bind(nAccount)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (sTypes.find("," + rows.text(i, "FID") + ",") != std::string::npos) return true;
  }
  return false;
}

}  // namespace

void register_type_service(Session& session) {
  Database& database = session.database();
  session.registry().add("NUVlpsArApBill.clsInOutType", [&database] {
    return make_component(
        "clsInOutType",
        {{Member::GetRPInOutTypeInfo, [&database](Arguments args) { return find_types(database, args); }},
         {Member::CheckRPInOutTypeUsed, [&database](Arguments args) { return is_type_used(database, args); }},
         {Member::IsSameAcctId, [&database](Arguments args) { return is_same_account(database, args); }}});
  });
}

}  // namespace desk

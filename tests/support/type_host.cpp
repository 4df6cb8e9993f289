#include "support/type_host.h"

#include <algorithm>

namespace arap::testing {

namespace {

/// Argument of the query; Missing where it was left out.
Variant optional(Arguments args, std::size_t nIndex) {
  return nIndex < args.size() ? args[nIndex] : Variant(Missing{});
}

bool matches(const Variant& vWanted, const std::string& sText) {
  return vWanted.is_missing() || plain_text(vWanted) == sText;
}

bool matches(const Variant& vWanted, std::int32_t nNumber) {
  return vWanted.is_missing() || plain_number(vWanted) == nNumber;
}

std::string parent_number(const std::string& sNumber) {
  const std::size_t nPoint = sNumber.rfind('.');
  return nPoint == std::string::npos ? "" : sNumber.substr(0, nPoint);
}

}  // namespace

std::vector<TypeTable::Type> TypeTable::standard() {
  return {{11, "101", "销售收入", 1, 1, false, 1}, {12, "101.01", "运费收入", 11, 2, true, 1},
          {13, "102", "其他收入", 1, 1, true, 1},  {21, "201", "办公费", 2, 1, true, 2},
          {22, "202", "差旅费", 2, 1, false, 2},   {23, "202.01", "机票", 22, 2, true, 2}};
}

TypeTable::TypeTable(TestSession& session) {
  ServerStub& server = session.server("NUVlpsArApBill.clsInOutType");
  server.on(Member::GetRPInOutTypeInfo, [this](Arguments args) { return answer(args); });
  server.on(Member::CheckRPInOutTypeUsed, [this](Arguments args) { return Variant(is_used(args)); });
}

TypeTable::Type& TypeTable::at(std::int32_t nID) {
  const auto found = std::find_if(types.begin(), types.end(), [nID](const Type& type) { return type.nID == nID; });
  if (found == types.end()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, "type");
  return *found;
}

void TypeTable::erase(std::int32_t nID) {
  std::erase_if(types, [nID](const Type& type) { return type.nID == nID; });
}

/// (props, id, number, name, number of the parent, branch), each of them to be left out.
Variant TypeTable::answer(Arguments args) const {
  std::vector<std::vector<Variant>> aRows;
  for (const Type& type : types) {
    if (!matches(optional(args, 1), type.nID) || !matches(optional(args, 2), type.sNumber)) continue;
    if (!matches(optional(args, 3), type.sName) || !matches(optional(args, 4), parent_number(type.sNumber))) continue;
    if (!matches(optional(args, 5), type.nBranch)) continue;
    aRows.push_back({type.nID, type.sNumber, type.sName, type.nParent, type.nLevels, std::int32_t{type.bLeaf ? 1 : 0},
                     type.bDiscontinued});
  }
  return recordset({"FID", "FNumber", "FName", "FParentid", "FLevels", "FIsLeaf", "FDiscontinued"}, std::move(aRows));
}

bool TypeTable::is_used(Arguments args) const {
  return std::any_of(types.begin(), types.end(), [&](const Type& type) {
    return type.bUsed && matches(optional(args, 1), type.nID) && matches(optional(args, 2), type.sNumber);
  });
}

Ref<TestBill> make_type_bill() {
  auto bill = make_object<TestBill>(0, TestBar::of_type_bill());
  bill->define("FNumber", 1);
  bill->define("FName", 1);
  bill->define("FPreNumber", 1);
  bill->filter_values->set("FilterString", "FRootID=1 And FDeleted=0");
  return bill;
}

}  // namespace arap::testing

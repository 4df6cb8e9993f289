#include "services/type_keeper.h"

#include <array>

#include "frame/conversions.h"
#include "services/seat_host.h"
#include "services/type_queries.h"

namespace desk {

namespace {

constexpr std::int32_t kRoot = 1000207;

// The tasks of the work on a type; that of modify is taken by the plug-in.
constexpr std::string_view kModifyTask = "pu0551";
constexpr std::string_view kDeleteTask = "pu0552";
constexpr std::string_view kStateTask = "pu0553";

[[noreturn]] void refuse(const std::string& sWhat, const std::string& sType, const std::string& sHint = {}) {
  throw DeskError(ErrorKind::Constraint, sWhat, "t_RP_InOutType " + sType, sHint);
}

void refuse_branch(Database& database, std::int32_t nID) {
  const Rows rows = database.query("SELECT FName FROM t_RP_InOutType WHERE FID = ? AND FParentID = ?", {nID, kRoot});
  if (!rows.empty()) refuse("“" + rows.text(0, "FName") + "”是固定的分支，不能修改或删除。", std::to_string(nID));
}

// A parent whose last child went away is a detail type again; a branch never is.
void mark_leaf(Database& database, std::int32_t nID) {
  database.exec(
      "UPDATE t_RP_InOutType SET FIsLeaf = CASE WHEN EXISTS (SELECT 1 FROM t_RP_InOutType c WHERE c.FParentID = "
      "t_RP_InOutType.FID) THEN 0 ELSE 1 END WHERE FID = ? AND FParentID <> ?",
      {nID, kRoot});
}

bool is_used(Database& database, std::int32_t nID) {
  return !database.query(std::string(kUsedTypes) + " AND t.FID = ?", {Bind(nID)}).empty();
}

std::int32_t parent_of(Database& database, std::int32_t nID) {
  return arap::LongOf(
      database.value("SELECT FParentID FROM t_RP_InOutType WHERE FID = ?", {Bind(nID)}, std::int32_t{0}));
}

OpenBaseWindow open_window(Session& session, const std::string& sToday, std::string_view sClass) {
  Host host = seat_host(session, sToday);
  // The plug-in's own task guards a type; the store only asks whether it is still there.
  host.take_edit_lock = nullptr;
  host.give_edit_lock = nullptr;
  host.lost_edit_lock = [&session](std::int32_t, std::int32_t nID) {
    return session.tasks().has_lost(kModifyTask, nID);
  };
  return open_base_window(std::make_shared<TypeKeeper>(session), std::move(host), BillTemplate::shipped("type"),
                          create_plugin(sClass));
}

}  // namespace

std::int32_t TypeKeeper::root() const { return kRoot; }

std::vector<BaseItem> TypeKeeper::items() {
  const Rows rows = session_.database().query(
      "SELECT FID, FParentID, FBranch, FLevels, FNumber, FName, FIsLeaf, FDiscontinued FROM t_RP_InOutType"
      " ORDER BY FNumber");
  std::vector<BaseItem> items;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    items.push_back({rows.integer(i, "FID"), rows.integer(i, "FParentID"), rows.integer(i, "FBranch"),
                     rows.integer(i, "FLevels"), rows.text(i, "FNumber"), rows.text(i, "FName"),
                     rows.integer(i, "FIsLeaf") != 0, rows.integer(i, "FDiscontinued") != 0});
  }
  return items;
}

// The task is held for the work alone; another seat that modifies the type keeps this one out.
void TypeKeeper::run_alone(std::string_view sFunction, std::int32_t nID, const std::function<void()>& work) {
  const std::array<std::int32_t, 1> aTypes{nID};
  const std::int32_t nTask = session_.tasks().take(kTaskSystem, sFunction, aTypes);
  if (nTask == 0) {
    const auto holder = session_.tasks().holder_of(sFunction, nID);
    throw DeskError(ErrorKind::Locked, "该类别正由用户“" + (holder ? holder->sUser : "") + "”使用。",
                    "t_RP_InOutType " + std::to_string(nID), "请稍后再试。");
  }
  try {
    work();
  } catch (...) {
    session_.tasks().commit(nTask);
    throw;
  }
  session_.tasks().commit(nTask);
}

void TypeKeeper::remove(std::int32_t nID) {
  Database& database = session_.database();
  refuse_branch(database, nID);
  run_alone(kDeleteTask, nID, [&database, nID] {
    Transaction transaction(database);
    if (is_used(database, nID)) refuse("该类别具有下级节点或被单据使用，不允许删除！", std::to_string(nID));
    const std::int32_t nParent = parent_of(database, nID);
    database.exec("DELETE FROM t_RP_InOutType WHERE FID = ?", {nID});
    mark_leaf(database, nParent);
    transaction.commit();
  });
}

void TypeKeeper::set_discontinued(std::int32_t nID, bool bDiscontinued) {
  Database& database = session_.database();
  refuse_branch(database, nID);
  run_alone(kStateTask, nID, [&database, nID, bDiscontinued] {
    database.exec("UPDATE t_RP_InOutType SET FDiscontinued = ? WHERE FID = ?", {bDiscontinued ? 1 : 0, nID});
  });
}

std::unique_ptr<RecordStore> TypeKeeper::store(const BillTemplate& bill, std::int32_t nBranch) {
  return std::make_unique<TypeStore>(session_.database(), bill, nBranch);
}

std::string TypeKeeper::filter(std::int32_t nBranch) const {
  return "FBranch=" + std::to_string(nBranch) + " And FID<>" + std::to_string(kRoot);
}

TypeStore::Entry TypeStore::read(const DataRow& head) const {
  const auto text = [&](std::string_view sKey) {
    return arap::Concat(head.cell(template_.field(template_.find_key(sKey)).nPosition).value());
  };
  return {std::string(arap::Trim(text("FNumber"))), std::string(arap::Trim(text("FName"))),
          arap::LongOf(arap::Variant(text("FAcctID").empty() ? "0" : text("FAcctID"))), text("FNote")};
}

void TypeStore::refuse_entry(const Entry& entry, std::int32_t nID) {
  if (entry.sNumber.empty()) refuse("类别代码不能为空。", std::to_string(nID), "请录入代码。");
  if (entry.sName.empty()) refuse("类别名称不能为空。", entry.sNumber, "请录入名称。");
  const Rows twins = database_.query("SELECT FID FROM t_RP_InOutType WHERE FNumber = ? AND FID <> ?",
                                     {Bind(entry.sNumber), Bind(nID)});
  if (!twins.empty()) refuse("类别代码“" + entry.sNumber + "”已存在。", entry.sNumber);
  if (nID == 0) return;
  refuse_branch(database_, nID);
  const Rows old = database_.query("SELECT FNumber FROM t_RP_InOutType WHERE FID = ?", {nID});
  if (old.empty()) refuse("该类别已被其他用户删除，不能保存。", std::to_string(nID), "请刷新。");
  const bool bParent = !database_.query("SELECT FID FROM t_RP_InOutType WHERE FParentID = ? LIMIT 1", {nID}).empty();
  if (bParent && old.text(0, "FNumber") != entry.sNumber)
    refuse("该类别有下级类别，代码不能修改。", old.text(0, "FNumber"));
}

// A number without a point lies right under the branch.
TypeStore::Place TypeStore::place_of(const std::string& sNumber, std::int32_t nID) {
  const std::size_t nPoint = sNumber.rfind('.');
  if (nPoint == std::string::npos) {
    const Rows branch =
        database_.query("SELECT FID FROM t_RP_InOutType WHERE FParentID = ? AND FBranch = ?", {kRoot, branch_});
    if (branch.empty()) refuse("账套没有该收支分支。", sNumber, "请先选择收入类别或支出类别。");
    return {branch.integer(0, "FID"), 1};
  }
  const std::string sParent = sNumber.substr(0, nPoint);
  const Rows parent =
      database_.query("SELECT FID, FLevels FROM t_RP_InOutType WHERE FNumber = ? AND FBranch = ? AND FID <> ?",
                      {Bind(sParent), Bind(branch_), Bind(nID)});
  if (parent.empty()) refuse("上级类别“" + sParent + "”不存在。", sNumber, "请先新增上级类别。");
  return {parent.integer(0, "FID"), parent.integer(0, "FLevels") + 1};
}

RecordStore::Stored TypeStore::save(const DataRow& head, BodyPage&, std::int32_t nID,
                                    const std::function<void()>& guard) {
  const Entry entry = read(head);
  Transaction transaction(database_);
  if (guard) guard();
  refuse_entry(entry, nID);
  const Place place = place_of(entry.sNumber, nID);
  const std::int32_t nFormerParent = nID == 0 ? 0 : parent_of(database_, nID);
  const std::int32_t nStored = nID == 0 ? insert(entry, place) : nID;
  if (nID != 0) update(entry, place, nID);
  move_business(place.nParent, nStored);
  mark_leaf(database_, place.nParent);
  if (nFormerParent != place.nParent) mark_leaf(database_, nFormerParent);
  transaction.commit();
  return {nStored, entry.sNumber};
}

std::int32_t TypeStore::insert(const Entry& entry, const Place& place) {
  const Rows rows = database_.query(
      "INSERT INTO t_RP_InOutType (FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch, FAcctID, FNote)"
      " VALUES (?, ?, ?, ?, 1, ?, ?, ?) RETURNING FID",
      {Bind(entry.sNumber), Bind(entry.sName), Bind(place.nParent), Bind(place.nLevel), Bind(branch_),
       Bind(entry.nAcctID), Bind(entry.sNote)});
  return rows.integer(0, "FID");
}

void TypeStore::update(const Entry& entry, const Place& place, std::int32_t nID) {
  database_.exec(
      "UPDATE t_RP_InOutType SET FNumber = ?, FName = ?, FParentID = ?, FLevels = ?, FBranch = ?, FAcctID = ?,"
      " FNote = ? WHERE FID = ?",
      {Bind(entry.sNumber), Bind(entry.sName), Bind(place.nParent), Bind(place.nLevel), Bind(branch_),
       Bind(entry.nAcctID), Bind(entry.sNote), Bind(nID)});
}

// Only a detail type carries bill lines, so a parent that has children already has none to give. The bills count as
// stored anew: one that stands open with the former type must not put it back.
void TypeStore::move_business(std::int32_t nFrom, std::int32_t nTo) {
  for (const char* sBill : {"t_RP_ROtherBill", "t_RP_POtherBill"}) {
    const std::string sTable(sBill);
    database_.exec("UPDATE " + sTable + " SET FVersion = FVersion + 1 WHERE FBillID IN (SELECT FBillID FROM " + sTable +
                       "Entry WHERE FInOutTypeID = ?)",
                   {nFrom});
    database_.exec("UPDATE " + sTable + "Entry SET FInOutTypeID = ? WHERE FInOutTypeID = ?", {nTo, nFrom});
  }
}

bool TypeStore::load(std::int32_t nID, DataRow& head, BodyPage&) {
  const Rows rows = database_.query("SELECT * FROM t_RP_InOutType WHERE FID = ?", {nID});
  if (rows.empty()) return false;
  for (std::size_t i = 0; i < head.size(); ++i) {
    const std::string& sColumn = head.field(i).sColumn;
    if (!sColumn.empty()) head.put(i, rows.at(0, sColumn));
  }
  const std::string sNumber = rows.text(0, "FNumber");
  const std::size_t nPoint = sNumber.rfind('.');
  head.put(template_.field(template_.find_key("FPreNumber")).nPosition,
           nPoint == std::string::npos ? "" : sNumber.substr(0, nPoint));
  return true;
}

std::int32_t TypeStore::find_number(const std::string& sNumber) {
  return arap::LongOf(
      database_.value("SELECT FID FROM t_RP_InOutType WHERE FNumber = ?", {Bind(sNumber)}, std::int32_t{0}));
}

OpenBaseWindow open_type_window(Session& session, const std::string& sToday) {
  return open_window(session, sToday, "clsRPInOutType");
}

OpenBaseWindow open_type_view(Session& session, const std::string& sToday) {
  return open_window(session, sToday, "clsRPInOutTypeView");
}

}  // namespace desk

#include "services/task_mutex.h"

#include <QDateTime>
#include <QDir>

#include <algorithm>

namespace desk {

namespace {

// Records as they are kept: ",5,7,"; "" guards the function as a whole.
std::string record_mark(std::int32_t nRecord) { return "," + std::to_string(nRecord) + ","; }

std::string records_text(std::span<const std::int32_t> aRecords) {
  std::string sText;
  for (const std::int32_t nRecord : aRecords) sText += (sText.empty() ? "," : "") + std::to_string(nRecord) + ",";
  return sText;
}

// The functions that guard the same bill share all but the last digit of their codes.
std::string_view bill_of(std::string_view sFunction) {
  return sFunction.substr(0, sFunction.empty() ? 0 : sFunction.size() - 1);
}

bool has_ended(std::int32_t nProcess) {
  // Only where the system lists its processes as folders can the answer be yes.
  static const bool bListed = QDir(QStringLiteral("/proc/self")).exists();
  return bListed && !QDir(QStringLiteral("/proc/%1").arg(nProcess)).exists();
}

}  // namespace

std::int32_t TaskMutex::take(std::int32_t nSystem, std::string_view sFunction, std::span<const std::int32_t> aRecords) {
  const Seat seat = seat_();
  Transaction transaction(database_);
  clear_ended_programs(seat);
  if (is_held_elsewhere(seat, sFunction, aRecords)) {
    transaction.commit();
    return 0;
  }
  const std::string sNow = QDateTime::currentDateTime().toString(Qt::ISODate).toStdString();
  const Rows rows = database_.query(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FUser, FSince)"
      " VALUES (?, ?, ?, ?, ?, ?, ?) RETURNING FTaskID",
      {Bind(nSystem), Bind(sFunction), Bind(records_text(aRecords)), Bind(seat.sMachine), Bind(seat.nProcess),
       Bind(seat.sUser), Bind(sNow)});
  transaction.commit();
  return rows.integer(0, "FTaskID");
}

bool TaskMutex::commit(std::int32_t nTaskID) {
  const Seat seat = seat_();
  return database_.exec("DELETE FROM t_Task WHERE FTaskID = ? AND FMachine = ? AND FProcess = ?",
                        {Bind(nTaskID), Bind(seat.sMachine), Bind(seat.nProcess)}) == 1;
}

std::vector<std::int32_t> TaskMutex::tasks_of(std::string_view sFunction, std::int32_t nRecord) {
  const Seat seat = seat_();
  const Rows rows = database_.query(
      "SELECT FTaskID FROM t_Task WHERE FFunction = ? AND FExtra LIKE ? AND FMachine = ? AND FProcess = ?"
      " ORDER BY FTaskID",
      {Bind(sFunction), Bind("%" + record_mark(nRecord) + "%"), Bind(seat.sMachine), Bind(seat.nProcess)});
  std::vector<std::int32_t> aTasks;
  for (std::size_t i = 0; i < rows.size(); ++i) aTasks.push_back(rows.integer(i, "FTaskID"));
  return aTasks;
}

std::optional<TaskHolder> TaskMutex::holder_of(std::string_view sFunction, std::int32_t nRecord) {
  const Seat seat = seat_();
  const Rows rows = database_.query(
      "SELECT FUser, FMachine, FSince FROM t_Task WHERE FFunction LIKE ? AND FExtra LIKE ?"
      " AND NOT (FMachine = ? AND FProcess = ?) ORDER BY FTaskID LIMIT 1",
      {Bind(std::string(bill_of(sFunction)) + "_"), Bind("%" + record_mark(nRecord) + "%"), Bind(seat.sMachine),
       Bind(seat.nProcess)});
  if (rows.empty()) return std::nullopt;
  return TaskHolder{rows.text(0, "FUser"), rows.text(0, "FMachine"), rows.text(0, "FSince")};
}

void TaskMutex::release_all() {
  const Seat seat = seat_();
  database_.exec("DELETE FROM t_Task WHERE FMachine = ? AND FProcess = ?", {Bind(seat.sMachine), Bind(seat.nProcess)});
}

void TaskMutex::clear_ended_programs(const Seat& seat) {
  const Rows rows = database_.query("SELECT DISTINCT FProcess FROM t_Task WHERE FMachine = ?", {Bind(seat.sMachine)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::int32_t nProcess = rows.integer(i, "FProcess");
    if (has_ended(nProcess))
      database_.exec("DELETE FROM t_Task WHERE FMachine = ? AND FProcess = ?", {Bind(seat.sMachine), Bind(nProcess)});
  }
}

bool TaskMutex::is_held_elsewhere(const Seat& seat, std::string_view sFunction,
                                  std::span<const std::int32_t> aRecords) {
  const Rows rows = database_.query(
      "SELECT FFunction, FExtra FROM t_Task WHERE FFunction LIKE ? AND NOT (FMachine = ? AND FProcess = ?)",
      {Bind(std::string(bill_of(sFunction)) + "_"), Bind(seat.sMachine), Bind(seat.nProcess)});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string sHeld = rows.text(i, "FExtra");
    if (sHeld.empty() || aRecords.empty()) {
      if (rows.text(i, "FFunction") == sFunction) return true;
      continue;
    }
    const bool bShared = std::any_of(aRecords.begin(), aRecords.end(), [&sHeld](std::int32_t nRecord) {
      return sHeld.find(record_mark(nRecord)) != std::string::npos;
    });
    if (bShared) return true;
  }
  return false;
}

}  // namespace desk

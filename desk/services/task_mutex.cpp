#include "services/task_mutex.h"

#include <QDateTime>

#include <algorithm>

#include "services/seat_life.h"

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

// What makes a task this seat's own. Three parameters: see with_seat.
constexpr const char* kOwn = "FMachine = ? AND FProcess = ? AND FSeat = ?";

Binds with_seat(Binds binds, const Seat& seat, const std::string& sLife) {
  binds.insert(binds.end(), {Bind(seat.sMachine), Bind(seat.nProcess), Bind(sLife)});
  return binds;
}

}  // namespace

// Neither a process nor a connection changes its life.
const std::string& TaskMutex::life(const Seat& seat) {
  if (life_.empty() || life_process_ != seat.nProcess) life_ = seat_life(database_, seat.nProcess);
  life_process_ = seat.nProcess;
  return life_;
}

std::int32_t TaskMutex::take(std::int32_t nSystem, std::string_view sFunction, std::span<const std::int32_t> aRecords) {
  const Seat seat = seat_();
  const std::string sLife = life(seat);
  Transaction transaction(database_);
  clear_ended_seats(database_, seat.sMachine);
  if (is_held_elsewhere(seat, sFunction, aRecords)) {
    transaction.commit();
    return 0;
  }
  const std::string sNow = QDateTime::currentDateTime().toString(Qt::ISODate).toStdString();
  const Rows rows = database_.query(
      "INSERT INTO t_Task (FSystem, FFunction, FExtra, FMachine, FProcess, FSeat, FUser, FSince)"
      " VALUES (?, ?, ?, ?, ?, ?, ?, ?) RETURNING FTaskID",
      {Bind(nSystem), Bind(sFunction), Bind(records_text(aRecords)), Bind(seat.sMachine), Bind(seat.nProcess),
       Bind(sLife), Bind(seat.sUser), Bind(sNow)});
  transaction.commit();
  const std::int32_t nTaskID = rows.integer(0, "FTaskID");
  held_[nTaskID] = {std::string(sFunction), records_text(aRecords)};
  return nTaskID;
}

bool TaskMutex::commit(std::int32_t nTaskID) {
  const Seat seat = seat_();
  held_.erase(nTaskID);
  return database_.exec(std::string("DELETE FROM t_Task WHERE FTaskID = ? AND ") + kOwn,
                        with_seat({Bind(nTaskID)}, seat, life(seat))) == 1;
}

std::vector<std::int32_t> TaskMutex::tasks_of(std::string_view sFunction, std::int32_t nRecord) {
  const Seat seat = seat_();
  const Rows rows = database_.query(
      std::string("SELECT FTaskID FROM t_Task WHERE FFunction = ? AND FExtra LIKE ? AND ") + kOwn + " ORDER BY FTaskID",
      with_seat({Bind(sFunction), Bind("%" + record_mark(nRecord) + "%")}, seat, life(seat)));
  std::vector<std::int32_t> aTasks;
  for (std::size_t i = 0; i < rows.size(); ++i) aTasks.push_back(rows.integer(i, "FTaskID"));
  return aTasks;
}

std::optional<TaskHolder> TaskMutex::holder_of(std::string_view sFunction, std::int32_t nRecord) {
  const Seat seat = seat_();
  const Rows rows = database_.query(
      std::string("SELECT FUser, FMachine, FSince FROM t_Task WHERE FFunction LIKE ? AND FExtra LIKE ? AND NOT (") +
          kOwn + ") ORDER BY FTaskID LIMIT 1",
      with_seat({Bind(std::string(bill_of(sFunction)) + "_"), Bind("%" + record_mark(nRecord) + "%")}, seat,
                life(seat)));
  if (rows.empty()) return std::nullopt;
  return TaskHolder{rows.text(0, "FUser"), rows.text(0, "FMachine"), rows.text(0, "FSince")};
}

bool TaskMutex::has_lost(std::string_view sFunction, std::int32_t nRecord) {
  const Seat seat = seat_();
  return std::any_of(held_.begin(), held_.end(), [&](const auto& held) {
    const auto& [nTaskID, task] = held;
    if (bill_of(task.sFunction) != bill_of(sFunction)) return false;
    if (task.sRecords.find(record_mark(nRecord)) == std::string::npos) return false;
    return database_
        .query(std::string("SELECT FTaskID FROM t_Task WHERE FTaskID = ? AND ") + kOwn,
               with_seat({Bind(nTaskID)}, seat, life(seat)))
        .empty();
  });
}

void TaskMutex::release_all() {
  const Seat seat = seat_();
  held_.clear();
  database_.exec(std::string("DELETE FROM t_Task WHERE ") + kOwn, with_seat({}, seat, life(seat)));
}

bool TaskMutex::is_held_elsewhere(const Seat& seat, std::string_view sFunction,
                                  std::span<const std::int32_t> aRecords) {
  const Rows rows =
      database_.query(std::string("SELECT FFunction, FExtra FROM t_Task WHERE FFunction LIKE ? AND NOT (") + kOwn + ")",
                      with_seat({Bind(std::string(bill_of(sFunction)) + "_")}, seat, life(seat)));
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

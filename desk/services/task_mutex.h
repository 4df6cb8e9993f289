#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace desk {

/// Who takes tasks: one running program under one user. Two seats differ in machine, process or life (see seat_life.h).
struct Seat {
  std::string sMachine;
  std::int32_t nProcess = 0;
  std::string sUser;
};

/// Who holds a task, and since when (ISO date and time of that machine).
struct TaskHolder {
  std::string sUser;
  std::string sMachine;
  std::string sSince;
};

/// The system that the module's tasks belong to.
inline constexpr std::int32_t kTaskSystem = 21;

/// The cross-seat lock, kept in the book so that every seat sees it. A task names a function and the records it guards;
/// without a record it guards the function as a whole.
class TaskMutex {
 public:
  TaskMutex(Database& database, std::function<Seat()> seat) : database_(database), seat_(std::move(seat)) {}

  /// The id of the new task, above 0; 0 when another seat holds the same function, or guards the same record through a
  /// function of the same bill (codes that differ in their last digit alone guard one bill). Tasks that an ended seat
  /// left behind are cleared first.
  std::int32_t take(std::int32_t nSystem, std::string_view sFunction, std::span<const std::int32_t> aRecords);
  /// False when this seat holds no such task.
  bool commit(std::int32_t nTaskID);
  /// This seat's tasks of a function on a record.
  std::vector<std::int32_t> tasks_of(std::string_view sFunction, std::int32_t nRecord);
  /// The other seat that holds a function of the same bill on a record; nothing when none does.
  std::optional<TaskHolder> holder_of(std::string_view sFunction, std::int32_t nRecord);
  /// True when a task that this object took on the record, for a function of the same bill, isn't in the book any more:
  /// another seat may have worked on the bill meanwhile. Asked in the transaction that writes.
  bool has_lost(std::string_view sFunction, std::int32_t nRecord);
  void release_all();

 private:
  struct Held {
    std::string sFunction;
    std::string sRecords;
  };

  const std::string& life(const Seat& seat);
  bool is_held_elsewhere(const Seat& seat, std::string_view sFunction, std::span<const std::int32_t> aRecords);

  Database& database_;
  std::function<Seat()> seat_;
  std::map<std::int32_t, Held> held_;  // by task
  std::string life_;                   // of the process, or of the connection
  std::int32_t life_process_ = 0;
};

}  // namespace desk

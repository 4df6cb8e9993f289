#pragma once

#include <functional>
#include <string>
#include <vector>

#include "data/database.h"
#include "services/bill_list.h"
#include "services/desk_platform.h"
#include "services/task_mutex.h"

namespace desk {

/// A seat: one open book with one user logged in. It makes every server component by ProgID and installs its platform
/// for the calling thread; the former platform comes back when it ends. The database outlives it. Needs a
/// QCoreApplication.
class Session {
 public:
  /// Raises DeskError when the book has no such user, or when a name holds a mark of the props string.
  Session(Database& database, std::string_view sUserName);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Database& database() { return database_; }
  DeskPlatform& platform() { return platform_; }
  ObjectRegistry& registry() { return registry_; }
  TaskMutex& tasks() { return tasks_; }
  std::int32_t user_id() const { return user_id_; }
  const std::string& user_name() const { return user_name_; }
  /// This program on its machine, under which tasks are taken.
  Seat seat();
  const std::string& props_string() const { return props_string_; }

  /// Puts this seat's platform back in charge, where several seats share a thread.
  void activate() { arap::InstallPlatform(&platform_); }

  /// What the user was shown beside boxes: vouchers, result lists and lists of bills, in order.
  std::vector<std::int32_t> shown_vouchers;  // their ids
  std::vector<std::string> shown_results;
  std::vector<ShownBills> shown_bill_lists;
  /// Hears each line of a result list when it is made, which is after each bill of a batch.
  std::function<void()> result_line_made;

 private:
  Database& database_;
  std::int32_t user_id_ = 0;
  std::string user_name_;
  std::string props_string_;
  ObjectRegistry registry_;
  DeskPlatform platform_;
  TaskMutex tasks_;
};

/// The edit lock of a bill class is the task of its modify function: "AR0224" or "AP0224" for settlement bills,
/// "AR0302" or "AP0302" for other bills; "" for a class without one.
std::string_view edit_function(std::int32_t nClassType);

/// Each of these tells the registry the components of one topic.
void register_login(Session& session);
void register_general_ledger(Session& session);
void register_system_values(Session& session);
void register_settlement_services(Session& session);
void register_other_services(Session& session);
void register_aged_report(Session& session);
void register_related_bills(Session& session);
void register_vouchers(Session& session);
void register_type_service(Session& session);
void register_bill_list(Session& session);
void register_small_services(Session& session);

}  // namespace desk

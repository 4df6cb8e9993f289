#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/module_state.h"
#include "support/server_stub.h"
#include "support/test_platform.h"

namespace arap::testing {

/// A logged-in session on a scripted machine: the platform, the module's state and every server component of the
/// contract, each reached by its own route (factory or direct; the other route raises 429). One lives at a time; it
/// resets the trace. Currencies 1 (base, 2 decimals), 2 (rate 7, "*", 2 decimals) and 3 (rate 8, "/", 0 decimals) are
/// there. Everything is allowed and succeeds unless a test scripts it otherwise.
class TestSession {
 public:
  TestSession();
  ~TestSession();
  TestSession(const TestSession&) = delete;
  TestSession& operator=(const TestSession&) = delete;

  TestPlatform platform;

  /// The stub behind a ProgID: `session.server("NUVlpsArApBill.clsArBill").answers(Member::CheckBill, 1)`. Every
  /// creation gives the same stub. Raises 429 for a ProgID that the session lacks.
  ServerStub& server(std::string_view sProgID);
  /// Takes a component away: its creation raises 429.
  void remove_server(std::string_view sProgID);

  /// The login object: PropsString, UserName, TaskExec, CommitTask.
  ServerStub& login() { return *login_; }
  /// NUVLPCGLView.GLData.
  ServerStub& ledger() { return server("NUVLPCGLView.GLData"); }
  /// What GetProperty answers, by name: NUVLogin, PropsString, UserName.
  TestDictionary& shared() { return *shared_; }
  void set_props(std::string_view sProps);
  void add_currency(std::int32_t nID, std::string_view sName, double dRate, std::string_view sOperator, int nScale);

  /// Answer of AccessCheck; all rights unless set.
  std::function<bool(std::int32_t nSubSystem, std::int32_t nObject, std::int32_t nRight)> access;
  struct LogLine {
    std::string sCode;
    std::int32_t nResult;
    std::string sText;
    friend bool operator==(const LogLine&, const LogLine&) = default;
  };
  std::vector<LogLine> log;
  /// What TaskExec answers, and the tasks that are held.
  std::int32_t next_task = 501;
  std::vector<std::int32_t> held_tasks;
  /// First day of the period in use, and the report date.
  std::string period_start = "2024-01-01";
  Variant report_date = "2024-01-31";
  /// System values by category and key; "" for the others.
  std::map<std::pair<std::string, std::string>, std::string> system_values;
  /// What CheckBill (all four bill services) answers, and its message.
  std::int32_t check_result = 0;
  std::string check_message;
  /// What CheckBillSimple answers for a bill id; code 0 with an empty text and the id as number unless set.
  struct SimpleAnswer {
    std::int32_t nCode;
    std::string sDescription;
    std::string sBillNo;
  };
  std::map<std::int32_t, SimpleAnswer> simple_answers;

  SqlScript commands;     // NUVConnection.AppConnection
  SqlScript lookups;      // NUVMAppConnection.AppConnection
  SqlScript system_data;  // NUVBillDataAccess.GetData
  SqlScript bulk_data;    // NUVBOMMImpAndExp.cImpAndExp
  SqlScript class_data;   // NUVClassTpl.Datasrv

 private:
  enum class Route : std::uint8_t { Factory, Direct, QuietDirect };
  ServerStub& add(Route route, std::string_view sProgID);
  void add_frame_objects();
  void add_ledger();
  void add_system_servers();
  void add_bill_servers();
  void add_windows();

  std::map<std::string, Ref<ServerStub>, std::less<>> stubs_;
  std::vector<std::string> factory_ids_;
  std::map<std::int32_t, Ref<ServerStub>> currencies_;
  Ref<ServerStub> login_;
  Ref<TestDictionary> shared_;
  ModuleUse module_;  // given back first: it lets go of the session's objects
};

}  // namespace arap::testing

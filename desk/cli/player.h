#pragma once

#include <deque>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/scenario.h"
#include "data/trace.h"
#include "engine/base_window.h"
#include "engine/bill_window.h"
#include "engine/record_list.h"
#include "services/bill_kinds.h"
#include "services/session.h"

namespace desk {

/// Plays a scenario at one seat and writes what happened in plain words. The first thing that isn't as the scenario
/// says raises ScenarioError of the kind Failed; a failure of the book passes on as DeskError with the line.
class ScenarioPlayer {
 public:
  struct Options {
    std::string sToday;   // yyyy-mm-dd of new bills
    bool bTrace = false;  // with every event, host call, SQL text and message
  };

  ScenarioPlayer(Session& session, std::ostream& out, Options options);
  ~ScenarioPlayer();

  void play(const Scenario& scenario);

 private:
  using Variables = std::map<std::string, std::string>;
  using Steps = std::vector<Step>;

  void run_block(const Steps& steps, const Variables& variables);
  void run(const Step& step, const std::vector<std::string>& args);
  void act(const Step& step, const std::vector<std::string>& args);
  void expect(const Step& step, const std::vector<std::string>& args);
  void run_loop(const Step& step, const Variables& variables);
  std::vector<std::string> filled_in(const Step& step, const Variables& variables) const;

  void new_bill(const std::string& sKind);
  void open_bill(const std::string& sKind, const std::string& sNumber);
  void close_bill();
  void set(const std::string& sField, std::int32_t nRow, const std::string& sText);
  void select(const std::vector<std::string>& args);
  void press(const std::string& sTool);
  void save();
  void make_bill_voucher();
  /// A command of the bill list on the bills of these numbers, or on all; one line a bill is told.
  void batch(const std::vector<std::string>& args);

  void types(const std::string& sCommand);
  void type(const std::vector<std::string>& args);
  void list(const std::vector<std::string>& args);
  void select_node(const std::string& sNode);
  void select_lines(const std::vector<std::string>& args);
  void point_at(const std::string& sNumber);
  Outcome press_in_front(const std::string& sTool);
  void tell_shown_bills();
  void expect_type(const std::string& sNumber, const std::string& sState);
  void expect_level(const std::string& sNumber, const std::string& sLevel);
  void expect_shown(const std::string& sNumber);
  void expect_lines(const std::string& sCount);
  BaseWindow& type_window();
  /// The bar with that command, of the window in front.
  Bar& bar_in_front(const std::string& sTool);
  void close_windows();
  void answer(const std::string& sAnswer);
  int answer_box(const ShownMessage& message);

  void expect_value(const std::string& sField, std::int32_t nRow, const std::string& sExpected);
  void expect_message(const std::string& sText);
  void expect_tool(const std::string& sTool, const std::string& sState);
  void expect_open(const std::string& sSource, const std::string& sAmount);

  BillWindow& bill();
  std::string field_name(const std::string& sField, std::int32_t nRow);
  std::int32_t row_number(const std::string& sText);
  void show_window(const BillKind& kind);
  /// A refusal ends the scenario, unless the next line says which message it expects.
  void refused(const std::string& sWhat, const std::string& sReason);
  void tell(const std::string& sLine);
  void tell_trace();
  [[noreturn]] void fail(const std::string& sText) const;

  Session& session_;
  std::ostream& out_;
  Options options_;
  TraceLog trace_;
  std::optional<TraceScope> tracing_;
  std::string file_;
  const Step* step_ = nullptr;
  bool message_expected_next_ = false;
  const BillKind* kind_ = nullptr;  // of the open bill
  OpenBillWindow window_;
  OpenBaseWindow types_;
  OpenRecordList records_;
  std::map<std::int32_t, std::string> last_numbers_;  // by class
  std::deque<int> answers_;                           // to the next questions
  std::vector<std::string> messages_;                 // shown since the last action
  std::size_t vouchers_told_ = 0;
  std::size_t bill_lists_told_ = 0;
};

/// What a loop goes through, one set of variables a turn: {customer} or {supplier} with {currency}, or {receipt}, or
/// {payment}, or {number}.
std::vector<std::map<std::string, std::string>> loop_turns(Database& database, std::string_view sThing);

/// What is still open on a source bill of that number, on either side.
struct OpenAmount {
  bool bFound = false;
  Money amount;
};
OpenAmount open_amount(Database& database, const std::string& sSource);

}  // namespace desk

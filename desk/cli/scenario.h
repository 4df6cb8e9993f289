#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// What one line of a scenario asks for. The comment shows the line; the words in capitals are `args`, in this order.
enum class Verb {
  New,            // new KIND: receipt|payment|receivable|payable
  Open,           // open KIND NUMBER|last
  Close,          // close
  Set,            // set FIELD VALUE
  SetRow,         // set row N FIELD VALUE
  Select,         // select all | select all in CURRENCY | select NUMBER...; in the tree of types select root|NUMBER
  Press,          // press TOOL
  Answer,         // answer yes|no|ok
  Save,           // save
  Voucher,        // voucher
  Batch,          // batch KIND TOOL all | batch KIND TOOL NUMBER...
  ExpectField,    // expect field FIELD VALUE
  ExpectRow,      // expect row N FIELD VALUE
  ExpectMessage,  // expect message TEXT
  ExpectStatus,   // expect status 0|1
  ExpectTool,     // expect tool TOOL enabled|disabled|visible|hidden|checked
  ExpectLock,     // expect lock FIELD locked|free
  ExpectOpen,     // expect open SOURCE AMOUNT
  Types,          // types open|view|close
  Type,           // type new [NODE] | type modify|delete|disable|enable NUMBER
  List,           // list invoices 1000000|1000002|1000003|1000004 | list opening receivables|payables
  ExpectType,     // expect type NUMBER there|gone|leaf|parent|enabled|disabled
  ExpectLevel,    // expect level NUMBER N
  ExpectShown,    // expect shown NUMBER
  ExpectLines,    // expect lines N
  Say,            // say TEXT
  ForEach,        // for each THING ... end
};

struct Step {
  int nLine = 0;
  Verb verb = Verb::Say;
  std::vector<std::string> args;
  std::vector<Step> body;  // of ForEach
};

struct Scenario {
  std::string sFile;
  std::vector<Step> steps;
};

/// What a loop goes through, as the line spells it after "for each".
inline constexpr std::string_view kOpenCustomers = "customer with open receivables";
inline constexpr std::string_view kOpenSuppliers = "supplier with open payables";
inline constexpr std::string_view kCheckedReceipts = "checked receipt";
inline constexpr std::string_view kCheckedPayments = "checked payment";
/// With a number of at most four digits behind it.
inline constexpr std::string_view kNumbersUpTo = "number up to ";

/// A line that can't be read or a scenario that didn't go as it says: "file:line: what is wrong and what to do".
class ScenarioError : public std::runtime_error {
 public:
  enum class Kind { Syntax, Failed };
  ScenarioError(Kind kind, std::string_view sFile, int nLine, std::string_view sText)
      : std::runtime_error(std::string(sFile) + ":" + std::to_string(nLine) + ": " + std::string(sText)), kind_(kind) {}
  Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

/// Reads a whole scenario before anything of it runs. Raises ScenarioError of the kind Syntax.
Scenario ParseScenario(std::string_view sText, std::string sFile);

}  // namespace desk

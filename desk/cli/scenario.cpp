#include "cli/scenario.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <span>

#include "services/bill_kinds.h"

namespace desk {

namespace {

using Words = std::vector<std::string>;

struct Line {
  int nNumber;
  std::string sText;
  Words words;
};

std::string trimmed(std::string_view sText) {
  const auto nFirst = sText.find_first_not_of(" \t\r");
  if (nFirst == std::string_view::npos) return {};
  return std::string(sText.substr(nFirst, sText.find_last_not_of(" \t\r") - nFirst + 1));
}

// Words are parted by blanks; double quotes hold a word with blanks, or an empty one, together.
std::optional<Words> words_of(std::string_view sText) {
  Words words;
  std::size_t i = 0;
  while (true) {
    i = sText.find_first_not_of(" \t", i);
    if (i == std::string_view::npos) return words;
    const bool bQuoted = sText[i] == '"';
    const std::size_t nStart = bQuoted ? i + 1 : i;
    std::size_t nEnd = sText.find_first_of(bQuoted ? "\"" : " \t", nStart);
    if (nEnd == std::string_view::npos) {
      if (bQuoted) return std::nullopt;
      nEnd = sText.size();
    }
    words.emplace_back(sText.substr(nStart, nEnd - nStart));
    i = bQuoted ? nEnd + 1 : nEnd;
  }
}

// The rest of the line behind its first `nWords` words, as it stands.
std::string rest_after(std::string_view sText, int nWords) {
  std::size_t i = 0;
  for (int n = 0; n < nWords; ++n) {
    i = sText.find_first_not_of(" \t", i);
    if (i == std::string_view::npos) return {};
    i = sText.find_first_of(" \t", i);
    if (i == std::string_view::npos) return {};
  }
  return trimmed(sText.substr(i));
}

bool is_one_of(std::string_view sWord, std::initializer_list<std::string_view> choices) {
  return std::find(choices.begin(), choices.end(), sWord) != choices.end();
}

// Every kind of bill, as the lines name it.
std::string kinds() {
  std::string sKinds;
  for (const BillKind& kind : bill_kinds()) sKinds.append(sKinds.empty() ? "" : "|").append(kind.sWord);
  return sKinds;
}

bool is_row_number(std::string_view sWord) {
  // A variable of a loop becomes a number when the line runs.
  if (sWord.starts_with('{')) return true;
  return !sWord.empty() && sWord.size() < 7 && sWord != "0" &&
         std::all_of(sWord.begin(), sWord.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

bool is_count(std::string_view sThing) {
  if (!sThing.starts_with(kNumbersUpTo)) return false;
  sThing.remove_prefix(kNumbersUpTo.size());
  return is_row_number(sThing) && sThing.size() <= 4 && sThing[0] != '{';
}

class Parser {
 public:
  Parser(std::string_view sText, std::string sFile) : file_(std::move(sFile)) { split(sText); }

  Scenario parse() {
    Scenario scenario{file_, {}};
    scenario.steps = block(nullptr);
    return scenario;
  }

 private:
  [[noreturn]] void refuse(const Line& line, std::string_view sText) const {
    throw ScenarioError(ScenarioError::Kind::Syntax, file_, line.nNumber, sText);
  }

  void split(std::string_view sText) {
    int nNumber = 0;
    if (sText.starts_with("\xEF\xBB\xBF")) sText.remove_prefix(3);
    while (!sText.empty()) {
      const std::size_t nEnd = sText.find('\n');
      Line line{++nNumber, trimmed(sText.substr(0, nEnd)), {}};
      sText.remove_prefix(nEnd == std::string_view::npos ? sText.size() : nEnd + 1);
      if (line.sText.empty() || line.sText.front() == '#') continue;
      // Free text may hold a single quotation mark.
      const bool bFreeText = line.sText.starts_with("say ") || line.sText.starts_with("expect message ");
      const auto words = words_of(line.sText);
      if (!words && !bFreeText) refuse(line, "a quoted word isn't closed; add the missing \"");
      line.words = words.value_or(Words{line.sText.substr(0, line.sText.find(' ')), "message"});
      lines_.push_back(std::move(line));
    }
  }

  std::vector<Step> block(const Line* loop) {
    std::vector<Step> steps;
    while (next_ < lines_.size()) {
      const Line& line = lines_[next_++];
      if (line.words[0] == "end") {
        if (loop == nullptr) refuse(line, "\"end\" closes no loop; remove it or write \"for each ...\" before it");
        return steps;
      }
      steps.push_back(step(line));
      if (steps.back().verb == Verb::ForEach) steps.back().body = block(&line);
    }
    if (loop != nullptr) refuse(*loop, "this loop isn't closed; write \"end\" behind its last line");
    return steps;
  }

  Step step(const Line& line) const {
    const std::string& sVerb = line.words[0];
    const Words args(line.words.begin() + 1, line.words.end());
    if (sVerb == "new") return bill_kind(line, Verb::New, args, 1, "new " + kinds());
    if (sVerb == "open") return bill_kind(line, Verb::Open, args, 2, "open " + kinds() + " NUMBER|last");
    if (sVerb == "close") return counted(line, Verb::Close, args, 0, "close");
    if (sVerb == "save") return counted(line, Verb::Save, args, 0, "save");
    if (sVerb == "voucher") return counted(line, Verb::Voucher, args, 0, "voucher");
    if (sVerb == "press") return counted(line, Verb::Press, args, 1, "press TOOL");
    if (sVerb == "batch") return batch_step(line, args);
    if (sVerb == "types")
      return choice(line, Verb::Types, args, 0, 1, "types open|view|close", {"open", "view", "close"});
    if (sVerb == "type") return type_step(line, args);
    if (sVerb == "list") return list_step(line, args);
    if (sVerb == "set") return set_step(line, args);
    if (sVerb == "select") return select_step(line, args);
    if (sVerb == "answer") return choice(line, Verb::Answer, args, 0, 1, "answer yes|no|ok", {"yes", "no", "ok"});
    if (sVerb == "say") return {line.nNumber, Verb::Say, {rest_after(line.sText, 1)}, {}};
    if (sVerb == "expect") return expect_step(line, args);
    if (sVerb == "for") return loop_step(line);
    refuse(line, "unknown command \"" + sVerb +
                     "\"; use new, open, close, set, select, press, answer, save, voucher, batch, types, type, list, "
                     "expect, say or for each");
  }

  Step counted(const Line& line, Verb verb, Words args, std::size_t nCount, std::string_view sForm) const {
    if (args.size() != nCount) refuse(line, "write: " + std::string(sForm));
    return {line.nNumber, verb, std::move(args), {}};
  }

  Step choice(const Line& line, Verb verb, Words args, std::size_t nAt, std::size_t nCount, std::string_view sForm,
              std::initializer_list<std::string_view> choices) const {
    if (args.size() != nCount || !is_one_of(args[nAt], choices)) refuse(line, "write: " + std::string(sForm));
    return {line.nNumber, verb, std::move(args), {}};
  }

  Step bill_kind(const Line& line, Verb verb, Words args, std::size_t nCount, std::string_view sForm) const {
    if (args.size() != nCount || find_bill_kind(args[0]) == nullptr) refuse(line, "write: " + std::string(sForm));
    return {line.nNumber, verb, std::move(args), {}};
  }

  Step row_step(const Line& line, Verb verb, const Words& args, std::string_view sForm) const {
    if (args.size() != 4 || !is_row_number(args[1]))
      refuse(line, "write: " + std::string(sForm) + ", rows count from 1");
    return {line.nNumber, verb, Words(args.begin() + 1, args.end()), {}};
  }

  Step batch_step(const Line& line, const Words& args) const {
    if (args.size() < 3 || find_bill_kind(args[0]) == nullptr)
      refuse(line, "write: batch " + kinds() + " TOOL all, or batch " + kinds() + " TOOL NUMBER ...");
    return {line.nNumber, Verb::Batch, args, {}};
  }

  Step set_step(const Line& line, const Words& args) const {
    if (!args.empty() && args[0] == "row") return row_step(line, Verb::SetRow, args, "set row N FIELD VALUE");
    return counted(line, Verb::Set, args, 2, "set FIELD VALUE");
  }

  Step select_step(const Line& line, const Words& args) const {
    const bool bAllIn = args.size() == 3 && args[0] == "all" && args[1] == "in";
    const bool bNumbers = !args.empty() && (args[0] != "all" || args.size() == 1);
    if (!bAllIn && !bNumbers) refuse(line, "write: select all, select all in CURRENCY, or select NUMBER ...");
    return {line.nNumber, Verb::Select, args, {}};
  }

  Step type_step(const Line& line, const Words& args) const {
    const bool bNew = !args.empty() && args[0] == "new" && args.size() <= 2;
    const bool bOfType = args.size() == 2 && is_one_of(args[0], {"modify", "delete", "disable", "enable"});
    if (!bNew && !bOfType) refuse(line, "write: type new, type new NODE, or type modify|delete|disable|enable NUMBER");
    return {line.nNumber, Verb::Type, args, {}};
  }

  Step list_step(const Line& line, const Words& args) const {
    const bool bInvoices =
        args.size() == 2 && args[0] == "invoices" && is_one_of(args[1], {"1000000", "1000002", "1000003", "1000004"});
    const bool bOpening = args.size() == 2 && args[0] == "opening" && is_one_of(args[1], {"receivables", "payables"});
    if (!bInvoices && !bOpening)
      refuse(line, "write: list invoices 1000000|1000002|1000003|1000004, or list opening receivables|payables");
    return {line.nNumber, Verb::List, args, {}};
  }

  Step expect_step(const Line& line, const Words& args) const {
    const std::string sWhat = args.empty() ? "" : args[0];
    const Words rest(args.begin() + (args.empty() ? 0 : 1), args.end());
    if (sWhat == "message") return {line.nNumber, Verb::ExpectMessage, {message_text(line)}, {}};
    if (sWhat == "field") return counted(line, Verb::ExpectField, rest, 2, "expect field FIELD VALUE");
    if (sWhat == "row") return row_step(line, Verb::ExpectRow, args, "expect row N FIELD VALUE");
    if (sWhat == "status") return choice(line, Verb::ExpectStatus, rest, 0, 1, "expect status 0|1", {"0", "1"});
    if (sWhat == "open") return counted(line, Verb::ExpectOpen, rest, 2, "expect open SOURCE AMOUNT");
    if (sWhat == "type") {
      return choice(line, Verb::ExpectType, rest, 1, 2, "expect type NUMBER there|gone|leaf|parent|enabled|disabled",
                    {"there", "gone", "leaf", "parent", "enabled", "disabled"});
    }
    if (sWhat == "level") return counted(line, Verb::ExpectLevel, rest, 2, "expect level NUMBER N");
    if (sWhat == "shown") return counted(line, Verb::ExpectShown, rest, 1, "expect shown NUMBER");
    if (sWhat == "lines") return counted(line, Verb::ExpectLines, rest, 1, "expect lines N");
    if (sWhat == "lock")
      return choice(line, Verb::ExpectLock, rest, 1, 2, "expect lock FIELD locked|free", {"locked", "free"});
    if (sWhat == "tool") {
      return choice(line, Verb::ExpectTool, rest, 1, 2, "expect tool TOOL enabled|disabled|visible|hidden|checked",
                    {"enabled", "disabled", "visible", "hidden", "checked"});
    }
    refuse(line,
           "unknown expectation; use expect field, row, message, status, tool, lock, open, type, level, shown or "
           "lines");
  }

  std::string message_text(const Line& line) const {
    const std::string sText = rest_after(line.sText, 2);
    if (sText.empty()) refuse(line, "write: expect message TEXT");
    return sText;
  }

  Step loop_step(const Line& line) const {
    const std::string sThing = rest_after(line.sText, 2);
    const bool bEach = line.words.size() > 2 && line.words[1] == "each";
    if (!bEach || !(is_one_of(sThing, {kOpenCustomers, kOpenSuppliers, kCheckedReceipts, kCheckedPayments}) ||
                    is_count(sThing))) {
      refuse(line, "write: for each " + std::string(kOpenCustomers) + ", " + std::string(kOpenSuppliers) + ", " +
                       std::string(kCheckedReceipts) + ", " + std::string(kCheckedPayments) + " or " +
                       std::string(kNumbersUpTo) + "N");
    }
    return {line.nNumber, Verb::ForEach, {sThing}, {}};
  }

  std::string file_;
  std::vector<Line> lines_;
  std::size_t next_ = 0;
};

}  // namespace

Scenario ParseScenario(std::string_view sText, std::string sFile) { return Parser(sText, std::move(sFile)).parse(); }

}  // namespace desk

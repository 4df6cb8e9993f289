#include "cli/player.h"

#include <ostream>

#include "frame/contract_bill.h"
#include "frame/conversions.h"
#include "services/seat_host.h"
#include "services/vouchers.h"

namespace desk {

namespace {

std::string_view word_of(TraceObserver::Kind kind) {
  switch (kind) {
    case TraceObserver::Kind::Event: return "event    ";
    case TraceObserver::Kind::Call: return "call     ";
    case TraceObserver::Kind::Sql: return "sql      ";
    case TraceObserver::Kind::Translation: return "sql as   ";
    case TraceObserver::Kind::Message: return "message  ";
  }
  return {};
}

bool is_expectation(Verb verb) {
  switch (verb) {
    case Verb::ExpectField:
    case Verb::ExpectRow:
    case Verb::ExpectMessage:
    case Verb::ExpectStatus:
    case Verb::ExpectTool:
    case Verb::ExpectLock:
    case Verb::ExpectOpen:
    case Verb::ExpectType:
    case Verb::ExpectLevel:
    case Verb::ExpectShown:
    case Verb::ExpectLines: return true;
    default: return false;
  }
}

}  // namespace

ScenarioPlayer::ScenarioPlayer(Session& session, std::ostream& out, Options options)
    : session_(session), out_(out), options_(std::move(options)) {
  if (options_.bTrace) tracing_.emplace(trace_);
  session_.platform().set_ask_user([this](const ShownMessage& message) { return answer_box(message); });
  session_.platform().set_help_viewer(
      [this](const std::string& sPath) { tell("    help: " + sPath.substr(sPath.find_last_of("\\/") + 1)); });
}

ScenarioPlayer::~ScenarioPlayer() {
  window_.reset();  // its last messages are still told
  types_.reset();
  records_.reset();
  session_.platform().set_ask_user({});
  session_.platform().set_help_viewer({});
}

void ScenarioPlayer::play(const Scenario& scenario) {
  file_ = scenario.sFile;
  run_block(scenario.steps, {});
  if (window_) close_bill();
  close_windows();
}

void ScenarioPlayer::run_block(const Steps& steps, const Variables& variables) {
  for (std::size_t i = 0; i < steps.size(); ++i) {
    step_ = &steps[i];
    message_expected_next_ = i + 1 < steps.size() && steps[i + 1].verb == Verb::ExpectMessage;
    if (steps[i].verb == Verb::ForEach) {
      run_loop(steps[i], variables);
    } else {
      run(steps[i], filled_in(steps[i], variables));
    }
  }
}

void ScenarioPlayer::run_loop(const Step& step, const Variables& variables) {
  for (const Variables& turn : loop_turns(session_.database(), step.args[0])) {
    Variables all = turn;
    all.insert(variables.begin(), variables.end());
    run_block(step.body, all);
  }
}

std::vector<std::string> ScenarioPlayer::filled_in(const Step& step, const Variables& variables) const {
  std::vector<std::string> args = step.args;
  for (std::string& sArg : args) {
    for (const auto& [name, value] : variables) {
      const std::string sMark = "{" + name + "}";
      for (std::size_t n = sArg.find(sMark); n != std::string::npos; n = sArg.find(sMark, n + value.size()))
        sArg.replace(n, sMark.size(), value);
    }
  }
  return args;
}

void ScenarioPlayer::run(const Step& step, const std::vector<std::string>& args) {
  try {
    if (is_expectation(step.verb)) {
      expect(step, args);
    } else {
      if (step.verb != Verb::Answer && step.verb != Verb::Say) messages_.clear();
      act(step, args);
    }
  } catch (const arap::AutomationError& error) {
    fail("the program stopped with error " + std::to_string(error.number()) + ": " + error.description());
  } catch (const DeskError& error) {
    // The book or a file is at fault, not the scenario.
    throw DeskError(error.kind(), file_ + ":" + std::to_string(step.nLine) + ": " + error.problem(), error.where(),
                    error.hint());
  }
  tell_trace();
}

void ScenarioPlayer::act(const Step& step, const std::vector<std::string>& args) {
  switch (step.verb) {
    case Verb::New: return new_bill(args[0]);
    case Verb::Open: return open_bill(args[0], args[1]);
    case Verb::Close: return close_bill();
    case Verb::Set: return set(args[0], arap::kHead, args[1]);
    case Verb::SetRow: return set(args[1], row_number(args[0]), args[2]);
    case Verb::Select: return select(args);
    case Verb::Press: return press(args[0]);
    case Verb::Answer: return answer(args[0]);
    case Verb::Save: return save();
    case Verb::Voucher: return make_bill_voucher();
    case Verb::Batch: return batch(args);
    case Verb::Types: return types(args[0]);
    case Verb::Type: return type(args);
    case Verb::List: return list(args);
    case Verb::Say: return tell(args[0]);
    default: fail("this line can't be played");
  }
}

void ScenarioPlayer::new_bill(const std::string& sKind) {
  show_window(*find_bill_kind(sKind));
  window_->new_bill();
  tell("new " + sKind);
}

void ScenarioPlayer::open_bill(const std::string& sKind, const std::string& sNumber) {
  const BillKind& kind = *find_bill_kind(sKind);
  std::string sWanted = sNumber;
  if (sNumber == "last") sWanted = last_numbers_[kind.nClass];
  if (sWanted.empty()) fail("no " + sKind + " was saved in this scenario yet; save one first or name its number");
  show_window(kind);
  if (!window_->load_number(sWanted)) fail("there is no " + sKind + " " + sWanted + "; see \"desk show BOOK bills\"");
  tell("open " + sKind + " " + sWanted + " (status " + arap::Concat(window_->value("FStatus")) + ")");
}

void ScenarioPlayer::close_bill() {
  tell("close");
  if (records_) return records_.reset();
  if (types_) return types_->bill() != nullptr ? types_->close_bill() : types_.reset();
  bill().close();
  window_.reset();
}

void ScenarioPlayer::show_window(const BillKind& kind) {
  close_windows();
  kind_ = &kind;
  window_ = open_bill_window(seat_host(session_, options_.sToday), BillTemplate::shipped(kind.sTemplate));
}

void ScenarioPlayer::set(const std::string& sField, std::int32_t nRow, const std::string& sText) {
  const std::string sName = field_name(sField, nRow);
  const Outcome outcome = bill().type_field(sField, nRow, sText);
  tell("  " + sName + ": " + sText);
  if (!outcome) refused("the entry into " + sName, outcome.sReason);
}

void ScenarioPlayer::press(const std::string& sTool) {
  tell("  press " + sTool);
  const Outcome outcome = press_in_front(sTool);
  tell_shown_bills();
  while (vouchers_told_ < session_.shown_vouchers.size())
    tell(voucher_text(session_.database(), session_.shown_vouchers[vouchers_told_++]));
  if (!outcome && !outcome.sReason.empty()) refused("the command " + sTool, outcome.sReason);
}

void ScenarioPlayer::save() {
  BillWindow& window = bill();
  const Outcome outcome = window.save();
  if (!outcome) return refused("the save", outcome.sReason);
  if (types_) return tell("  saved type " + window.shown("FNumber") + " " + window.shown("FName"));
  const std::string sNumber = arap::Concat(window.value("FBillNo"));
  last_numbers_[kind_->nClass] = sNumber;
  tell("  saved as " + sNumber + ": " + window.shown("FAmountFor"));
}

void ScenarioPlayer::make_bill_voucher() {
  if (!window_) fail("only a bill gets a voucher; open one before this line");
  const std::int32_t nBillID = window_->bill_id();
  const std::int32_t nVoucherID = kind_->other != nullptr ? make_voucher(session_, *kind_->other, nBillID)
                                                          : make_voucher(session_, kind_->side, nBillID);
  window_->load_bill(nBillID);
  tell("  voucher made:\n" + voucher_text(session_.database(), nVoucherID));
}

void ScenarioPlayer::answer(const std::string& sAnswer) {
  // A notice has one button and needs no answer.
  if (sAnswer != "ok") answers_.push_back(sAnswer == "yes" ? kButtonYes : kButtonNo);
}

/// A question without an answer given beforehand is answered no.
int ScenarioPlayer::answer_box(const ShownMessage& message) {
  messages_.push_back(message.sText);
  tell("    message: " + message.sText);
  if (!is_question(message)) return kButtonOk;
  const int nAnswer = answers_.empty() ? kButtonNo : answers_.front();
  if (!answers_.empty()) answers_.pop_front();
  return nAnswer;
}

BillWindow& ScenarioPlayer::bill() {
  if (types_ && types_->bill() != nullptr) return *types_->bill();
  if (!window_) fail("no bill is open; write \"new receipt\" or \"open receipt NUMBER\" before this line");
  return *window_;
}

std::string ScenarioPlayer::field_name(const std::string& sField, std::int32_t nRow) {
  const BillTemplate& bill_template = bill().bill();
  const std::size_t nField = bill_template.find_key(sField);
  if (nField == BillTemplate::kNone) fail("the bill has no field \"" + sField + "\"; see the template for its fields");
  const std::string& sCaption = bill_template.field(nField).sCaption;
  return (nRow > 0 ? "row " + std::to_string(nRow) + " " : "") + (sCaption.empty() ? sField : sCaption);
}

std::int32_t ScenarioPlayer::row_number(const std::string& sText) {
  const std::int32_t nRow = arap::LongOf(arap::Variant(sText));
  const auto nRows = static_cast<std::int32_t>(bill().body().size());
  if (nRow < 1 || nRow > nRows) fail("there is no row " + sText + "; the bill has " + std::to_string(nRows));
  return nRow;
}

void ScenarioPlayer::refused(const std::string& sWhat, const std::string& sReason) {
  const std::string sWhy = !sReason.empty() ? sReason : messages_.empty() ? "no reason given" : messages_.back();
  if (!sReason.empty()) messages_.push_back(sReason);
  if (!message_expected_next_)
    fail(sWhat + " was refused: " + sWhy + " (if that is meant, write \"expect message ...\" behind this line)");
  tell("    refused: " + sWhy);
}

void ScenarioPlayer::tell(const std::string& sLine) { out_ << sLine << '\n'; }

void ScenarioPlayer::tell_trace() {
  if (!options_.bTrace) return;
  for (const TraceLog::Line& line : trace_.lines()) out_ << "      | " << word_of(line.kind) << line.sText << '\n';
  if (trace_.dropped() > 0) out_ << "      | " << trace_.dropped() << " more lines are not kept\n";
  trace_.clear();
}

void ScenarioPlayer::fail(const std::string& sText) const {
  throw ScenarioError(ScenarioError::Kind::Failed, file_, step_ == nullptr ? 0 : step_->nLine, sText);
}

}  // namespace desk

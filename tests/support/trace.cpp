#include "support/trace.h"

#include <algorithm>
#include <cstdio>

namespace arap::testing {

namespace {

std::string digits_of(double dValue) {
  char aText[32];
  const int nLength = std::snprintf(aText, sizeof aText, "%.15g", dValue);
  return std::string(aText, static_cast<std::size_t>(nLength));
}

std::string list_of(Arguments args) {
  std::string sList;
  for (const Variant& vArg : args) sList.append(sList.empty() ? "" : ", ").append(show(vArg));
  return sList;
}

std::string line_of(const std::string& sName, Member member, Access access, Arguments args) {
  std::string sLine = sName + "." + std::string(name_of(member));
  if (access == Access::Put || access == Access::PutRef) {
    if (args.size() > 1) sLine += "(" + list_of(args.first(args.size() - 1)) + ")";
    return sLine + " = " + (args.empty() ? "" : show(args.back()));
  }
  if (access == Access::Get && args.empty()) return sLine;
  return sLine + "(" + list_of(args) + ")";
}

}  // namespace

Trace& trace() {
  static Trace oTrace;
  return oTrace;
}

std::string show(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Empty: return "Empty";
    case Variant::Type::Null: return "Null";
    case Variant::Type::Missing: return "missing";
    case Variant::Type::Boolean: return vValue.as<bool>() ? "True" : "False";
    case Variant::Type::Integer: return std::to_string(vValue.as<std::int16_t>());
    case Variant::Type::Long: return std::to_string(vValue.as<std::int32_t>());
    case Variant::Type::Double: return digits_of(vValue.as<double>());
    case Variant::Type::Date: return "#" + digits_of(vValue.as<Date>().days) + "#";
    case Variant::Type::Text: return "\"" + std::string(vValue.text()) + "\"";
    case Variant::Type::Object: break;
  }
  if (vValue.is_nothing()) return "Nothing";
  const auto* pObject = dynamic_cast<const TestObject*>(vValue.object().get());
  return pObject != nullptr ? pObject->label() : "<" + vValue.object()->type_name() + ">";
}

std::vector<std::string> Trace::lines_with(std::string_view sPart) const {
  return lines_with_any({std::string(sPart)});
}

std::vector<std::string> Trace::lines_with_any(const std::vector<std::string>& aParts) const {
  std::vector<std::string> aFound;
  for (const std::string& sLine : lines_) {
    const bool bHas = std::any_of(aParts.begin(), aParts.end(),
                                  [&](const std::string& sPart) { return sLine.find(sPart) != std::string::npos; });
    if (bHas) aFound.push_back(sLine);
  }
  return aFound;
}

std::ptrdiff_t Trace::position(std::string_view sPart) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(),
                                  [&](const std::string& sLine) { return sLine.find(sPart) != std::string::npos; });
  return found == lines_.end() ? -1 : found - lines_.begin();
}

std::string Trace::text() const {
  std::string sText;
  for (const std::string& sLine : lines_) sText.append(sLine).append("\n");
  return sText;
}

void Trace::clear() {
  lines_.clear();
  ++generation_;
}

void Trace::reset() {
  clear();
  detail_ = Detail::Effects;
  calls_to_fault_ = 0;
  faulted_ = false;
}

void Trace::fail_at(std::int64_t nCall, std::int32_t nNumber) {
  calls_to_fault_ = nCall;
  fault_number_ = nNumber;
  if (nCall != 0) faulted_ = false;
}

void Trace::raise_fault() {
  faulted_ = true;
  throw AutomationError(fault_number_, "Host", "host call failed");
}

Trace::Slot Trace::open(std::string sLine) {
  lines_.push_back(std::move(sLine));
  return {lines_.size() - 1, generation_};
}

void Trace::close(Slot slot, const Variant& vAnswer) {
  if (slot.nGeneration != generation_ || vAnswer.is_empty() || vAnswer.is_object()) return;
  lines_[slot.nLine] += " -> " + show(vAnswer);
}

void Trace::close_failed(Slot slot, const AutomationError& error) {
  if (slot.nGeneration == generation_) lines_[slot.nLine] += " -> error " + std::to_string(error.number());
}

int FailEachCall(const std::function<void(const std::function<void()>& arm)>& scenario) {
  for (int nCall = 1;; ++nCall) {
    scenario([nCall] { trace().fail_at(nCall); });
    const bool bFaulted = trace().faulted();
    trace().fail_at(0);
    if (!bFaulted) return nCall - 1;
  }
}

Variant HostObject::invoke(Member member, Access access, Arguments args) {
  Trace& oTrace = trace();
  if (!oTrace.records(is_read(member, access))) {
    oTrace.count_call();
    return handle(member, access, args);
  }
  const Trace::Slot slot = oTrace.open(line_of(trace_name(), member, access, args));
  try {
    oTrace.count_call();
    Variant vAnswer = handle(member, access, args);
    oTrace.close(slot, vAnswer);
    return vAnswer;
  } catch (const AutomationError& error) {
    oTrace.close_failed(slot, error);
    throw;
  }
}

Variant PartObject::handle(Member member, Access access, Arguments args) {
  Variant vAnswer = handler_(member, access, args);
  if (vAnswer.is_missing()) no_such_member(member);
  return vAnswer;
}

}  // namespace arap::testing

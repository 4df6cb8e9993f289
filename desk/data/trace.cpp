#include "data/trace.h"

#include <utility>

#include "frame/conversions.h"

namespace desk {

namespace trace_detail {
constinit thread_local TraceObserver* pObserver = nullptr;
}

namespace {

/// While a line is put together, the looks at its objects are no calls.
class Silence {
 public:
  Silence() : observer_(std::exchange(trace_detail::pObserver, nullptr)) {}
  ~Silence() { trace_detail::pObserver = observer_; }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;
  void tell(TraceObserver::Kind kind, std::string_view sText) {
    if (!observer_->on_trace(kind, sText)) observer_ = nullptr;
  }

 private:
  TraceObserver* observer_;
};

std::string argument_text(const arap::Variant& vValue) {
  switch (vValue.type()) {
    case arap::Variant::Type::Empty: return "Empty";
    case arap::Variant::Type::Null: return "Null";
    case arap::Variant::Type::Missing: return "";
    case arap::Variant::Type::Text: return '"' + std::string(vValue.text()) + '"';
    case arap::Variant::Type::Object: {
      if (vValue.is_nothing()) return "Nothing";
      // A definition or tool is known by its name; other objects by what they are.
      const arap::Ref<arap::Object>& object = vValue.object();
      if (object->type_name() == "Tool") return arap::Concat(object->get(arap::Member::Name));
      if (object->type_name() != "FieldInfo") return object->type_name();
      return arap::Concat(object->get(arap::Member::Value, "FKey"));
    }
    default: return arap::Concat(vValue);
  }
}

std::string argument_list(arap::Arguments args) {
  std::string sText = "(";
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) sText += ", ";
    sText += argument_text(args[i]);
  }
  return sText + ')';
}

std::string bind_text(const Bind& bind) {
  switch (bind.type()) {
    case Bind::Type::Null: return "Null";
    case Bind::Type::Integer: return std::to_string(bind.integer());
    case Bind::Type::Real: return arap::Concat(bind.real());
    case Bind::Type::Text: return '"' + bind.text() + '"';
  }
  return {};
}

}  // namespace

TraceScope::TraceScope(TraceObserver& observer) : former_(std::exchange(trace_detail::pObserver, &observer)) {}
TraceScope::~TraceScope() { trace_detail::pObserver = former_; }

void trace(TraceObserver::Kind kind, std::string_view sText) {
  if (tracing()) Silence().tell(kind, sText);
}

void trace_event(arap::Event event, arap::Arguments args) {
  if (!tracing()) return;
  Silence silence;
  silence.tell(TraceObserver::Kind::Event, std::string(arap::name_of(event)) + argument_list(args));
}

void trace_call(const arap::Object& object, arap::Member member, arap::Access access, arap::Arguments args,
                std::string_view sPart) {
  if (!tracing()) return;
  Silence silence;
  std::string sText = object.type_name();
  if (!sPart.empty()) sText.append(" ").append(sPart);
  sText.append(".").append(arap::name_of(member));
  const bool bPut = (access == arap::Access::Put || access == arap::Access::PutRef) && !args.empty();
  if (bPut) {
    // A put brings the new value last.
    if (args.size() > 1) sText += argument_list(args.first(args.size() - 1));
    sText += " = " + argument_text(args.back());
  } else {
    sText += argument_list(args);
  }
  silence.tell(TraceObserver::Kind::Call, sText);
}

void trace_translation(std::string_view sSql, const Binds& binds) {
  if (!tracing()) return;
  std::string sText(sSql);
  for (std::size_t i = 0; i < binds.size(); ++i) sText += (i == 0 ? "  [" : ", ") + bind_text(binds[i]);
  trace(TraceObserver::Kind::Translation, binds.empty() ? sText : sText + ']');
}

bool TraceLog::on_trace(Kind kind, std::string_view sText) {
  if (lines_.size() < most_) {
    lines_.push_back({kind, std::string(sText)});
  } else {
    ++dropped_;
  }
  return true;  // what isn't kept is counted
}

void TraceLog::clear() {
  lines_.clear();
  dropped_ = 0;
}

std::vector<std::string> TraceLog::texts(Kind kind) const {
  std::vector<std::string> aTexts;
  for (const Line& line : lines_) {
    if (line.kind == kind) aTexts.push_back(line.sText);
  }
  return aTexts;
}

}  // namespace desk

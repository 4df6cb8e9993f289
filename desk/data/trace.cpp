#include "engine/trace.h"

#include "frame/conversions.h"

namespace desk {

namespace {

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

}  // namespace

std::string trace_text(std::string_view sName, arap::Arguments args) {
  std::string sText(sName);
  sText += '(';
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) sText += ", ";
    sText += argument_text(args[i]);
  }
  return sText + ')';
}

void TraceLog::on_trace(Kind kind, std::string_view sText) {
  if (lines_.size() >= most_) {
    ++dropped_;
    return;
  }
  lines_.push_back({kind, std::string(sText)});
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

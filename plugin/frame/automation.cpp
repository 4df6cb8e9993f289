#include "frame/automation.h"

#include <algorithm>

#include "frame/conversions.h"

namespace arap {

namespace {

std::string_view description_of(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::DivisionByZero: return "Division by zero";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::ObjectNotSet: return "Object variable or With block variable not set";
    case ErrorNumber::InvalidUseOfNull: return "Invalid use of Null";
    case ErrorNumber::ObjectRequired: return "Object required";
    case ErrorNumber::CannotCreateObject: return "ActiveX component can't create object";
    case ErrorNumber::NoSuchMember: return "Object doesn't support this property or method";
    case ErrorNumber::WrongNumberOfArguments: return "Wrong number of arguments or invalid property assignment";
    case ErrorNumber::KeyAlreadyExists: return "This key is already associated with an element of this collection";
    case ErrorNumber::NoSuchEvents: return "Object or class does not support the set of events";
    case ErrorNumber::FunctionInUse: return "当前使用的功能与其他用户有冲突,目前无法使用!";
  }
  return "";
}

std::string with_detail(std::string_view sDescription, std::string_view sDetail) {
  std::string sText(sDescription);
  if (!sDetail.empty()) sText.append(": ").append(sDetail);
  return sText;
}

template <class Name, std::size_t N>
std::optional<Name> find_name(const std::array<std::string_view, N>& names, std::string_view sName) {
  const auto found =
      std::find_if(names.begin(), names.end(), [sName](std::string_view name) { return EqualsNoCase(name, sName); });
  if (found == names.end()) return std::nullopt;
  return static_cast<Name>(found - names.begin());
}

}  // namespace

void raise_object_not_set() { throw AutomationError(ErrorNumber::ObjectNotSet); }

AutomationError::AutomationError(ErrorNumber number, std::string_view sDetail)
    : AutomationError(static_cast<std::int32_t>(number), "NUVARAPBillInterface",
                      with_detail(description_of(number), sDetail)) {}

void Object::end() noexcept {
  // A reference that is taken and given back while the object ends must not end it again.
  constexpr std::int32_t kEnding = 1 << 30;
  references_ = kEnding;
  delete this;
}

void Object::no_such_member(Member member) const {
  throw AutomationError(ErrorNumber::NoSuchMember, type_name() + "." + std::string(name_of(member)));
}

std::optional<Member> find_member(std::string_view sName) { return find_name<Member>(kMemberNames, sName); }
std::optional<Event> find_event(std::string_view sName) { return find_name<Event>(kEventNames, sName); }

}  // namespace arap

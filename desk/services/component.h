#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "frame/automation.h"

namespace desk {

using Handler = std::function<arap::Variant(arap::Arguments)>;

/// A server component: an automation object whose members are handlers, told once in the constructor. Get, put and call
/// reach the same handler; a put brings the new value as its last argument.
class Component : public arap::Object {
 public:
  std::string type_name() const override { return type_name_; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 protected:
  explicit Component(std::string sTypeName) : type_name_(std::move(sTypeName)) {}
  void on(arap::Member member, Handler handler) { handlers_.emplace_back(member, std::move(handler)); }

 private:
  std::string type_name_;
  std::vector<std::pair<arap::Member, Handler>> handlers_;
};

/// A component that needs no class of its own: its type name and its members.
using MemberHandlers = std::initializer_list<std::pair<arap::Member, Handler>>;
arap::Ref<arap::Object> make_component(std::string sTypeName, MemberHandlers members);

/// The text of an optional argument; "" when the caller gave fewer.
std::string text_argument(arap::Arguments args, std::size_t nIndex);
/// The whole number of an optional argument; 0 when the caller gave fewer.
std::int32_t long_argument(arap::Arguments args, std::size_t nIndex);

}  // namespace desk

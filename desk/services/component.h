#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "frame/automation.h"

namespace desk {

/// A server component: an automation object whose members are handlers, told once in the constructor. Get, put and call
/// reach the same handler; a put brings the new value as its last argument.
class Component : public arap::Object {
 public:
  std::string type_name() const override { return type_name_; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 protected:
  using Handler = std::function<arap::Variant(arap::Arguments)>;
  explicit Component(std::string sTypeName) : type_name_(std::move(sTypeName)) {}
  void on(arap::Member member, Handler handler) { handlers_.emplace_back(member, std::move(handler)); }

 private:
  std::string type_name_;
  std::vector<std::pair<arap::Member, Handler>> handlers_;
};

/// Makes a component, tells it its members and hands it out: for components that need no class of their own.
class SimpleComponent final : public Component {
 public:
  using Component::Handler;
  SimpleComponent(std::string sTypeName, std::initializer_list<std::pair<arap::Member, Handler>> members);
};

/// The text of an optional argument; "" when the caller gave fewer.
std::string text_argument(arap::Arguments args, std::size_t nIndex);
/// The whole number of an optional argument; 0 when the caller gave fewer.
std::int32_t long_argument(arap::Arguments args, std::size_t nIndex);

}  // namespace desk

#include "services/component.h"

#include "frame/conversions.h"

namespace desk {

arap::Variant Component::invoke(arap::Member member, arap::Access, arap::Arguments args) {
  for (const auto& [name, handler] : handlers_) {
    if (name == member) return handler(args);
  }
  no_such_member(member);
}

SimpleComponent::SimpleComponent(std::string sTypeName,
                                 std::initializer_list<std::pair<arap::Member, Handler>> members)
    : Component(std::move(sTypeName)) {
  for (const auto& [member, handler] : members) on(member, handler);
}

std::string text_argument(arap::Arguments args, std::size_t nIndex) {
  return nIndex < args.size() ? arap::Concat(args[nIndex]) : std::string{};
}

std::int32_t long_argument(arap::Arguments args, std::size_t nIndex) {
  return nIndex < args.size() ? arap::LongOf(args[nIndex]) : 0;
}

}  // namespace desk

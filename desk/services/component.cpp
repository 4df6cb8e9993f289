#include "services/component.h"

#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

arap::Variant Component::invoke(arap::Member member, arap::Access access, arap::Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  try {
    for (const auto& [name, handler] : handlers_) {
      if (name == member) return handler(args);
    }
  } catch (const DeskError& error) {
    pass_through_door(error, type_name());
  }
  no_such_member(member);
}

namespace {

class SimpleComponent final : public Component {
 public:
  SimpleComponent(std::string sTypeName, MemberHandlers members) : Component(std::move(sTypeName)) {
    for (const auto& [member, handler] : members) on(member, handler);
  }
};

}  // namespace

arap::Ref<arap::Object> make_component(std::string sTypeName, MemberHandlers members) {
  return arap::make_object<SimpleComponent>(std::move(sTypeName), members);
}

std::string text_argument(arap::Arguments args, std::size_t nIndex) {
  return nIndex < args.size() ? arap::Concat(args[nIndex]) : std::string{};
}

std::int32_t long_argument(arap::Arguments args, std::size_t nIndex) {
  return nIndex < args.size() ? arap::LongOf(args[nIndex]) : 0;
}

}  // namespace desk

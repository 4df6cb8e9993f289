#include "services/object_registry.h"

#include "frame/conversions.h"

namespace desk {

void ObjectRegistry::add(std::string_view sProgID, Factory factory) {
  factories_[arap::LowerCase(sProgID)] = std::move(factory);
}

bool ObjectRegistry::contains(std::string_view sProgID) const { return factories_.contains(arap::LowerCase(sProgID)); }

arap::Ref<arap::Object> ObjectRegistry::create(std::string_view sProgID) const {
  const auto found = factories_.find(arap::LowerCase(sProgID));
  if (found == factories_.end()) throw arap::AutomationError(arap::ErrorNumber::CannotCreateObject, sProgID);
  return found->second();
}

}  // namespace desk

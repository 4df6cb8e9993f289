#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "frame/automation.h"

namespace desk {

/// Makes objects by ProgID, without regard to case. A later entry of the same ProgID takes the place of the former.
class ObjectRegistry {
 public:
  using Factory = std::function<arap::Ref<arap::Object>()>;

  void add(std::string_view sProgID, Factory factory);
  bool contains(std::string_view sProgID) const;
  /// Raises 429 for an unknown ProgID.
  arap::Ref<arap::Object> create(std::string_view sProgID) const;

 private:
  std::map<std::string, Factory> factories_;
};

}  // namespace desk

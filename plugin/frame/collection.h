#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/automation.h"

namespace arap {

/// The runtime's Collection without keys: values in the order of their adding, 1-based.
class Collection final : public Object {
 public:
  std::string type_name() const override { return "Collection"; }
  /// Count, Item (also the default member), Add and Remove. Raises 9 for a place that isn't there.
  Variant invoke(Member member, Access access, Arguments args) override;

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  const Variant& Item(std::int32_t nIndex) const;
  void Add(const Variant& vValue) { items_.push_back(vValue); }
  void Remove(std::int32_t nIndex);

 private:
  std::size_t place(std::int32_t nIndex) const;

  std::vector<Variant> items_;
};

}  // namespace arap

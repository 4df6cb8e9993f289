#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "frame/automation.h"

/// The host's two containers.
namespace desk {

/// An ordered map from text to Variant; keys without regard to case, spelled as they were first written.
class HostDictionary : public arap::Object {
 public:
  std::string type_name() const override { return "Dictionary"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  /// nullptr when the key is absent.
  const arap::Variant* find(std::string_view sKey) const;
  void set(std::string_view sKey, arap::Variant vValue);
  std::size_t size() const { return entries_.size(); }

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  /// Up to this size a scan of the keys is quicker than an index.
  static constexpr std::size_t kScanned = 12;

  std::size_t position(std::string_view sKey) const;

  std::vector<std::pair<std::string, arap::Variant>> entries_;
  std::unordered_map<std::string, std::size_t> index_;  // lower-case keys, once there are more than kScanned
};

/// A growable array, 1-based.
class HostVector final : public arap::Object {
 public:
  std::string type_name() const override { return "Vector"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  void add(arap::Variant vValue) { items_.push_back(std::move(vValue)); }
  std::size_t size() const { return items_.size(); }

 private:
  std::size_t position(const arap::Variant& vIndex) const;

  std::vector<arap::Variant> items_;
};

/// The 0-based position behind a 1-based index. Raises 9 outside 1 to nSize.
std::size_t checked_position(const arap::Variant& vIndex, std::size_t nSize);

/// A container or loose tool by its ProgID; Nothing for another ProgID.
arap::Ref<arap::Object> make_engine_object(std::string_view sProgID);

}  // namespace desk

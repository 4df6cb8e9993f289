#include "engine/containers.h"

#include "data/automation_names.h"
#include "data/trace.h"
#include "engine/bars.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"

namespace desk {

namespace {

/// The text of a key without a copy where the value is a text already.
class KeyText {
 public:
  explicit KeyText(const Variant& vKey) : copy_(vKey.is_text() ? std::string() : arap::Concat(vKey)) {
    view_ = vKey.is_text() ? vKey.text() : std::string_view(copy_);
  }
  operator std::string_view() const { return view_; }

 private:
  std::string copy_;
  std::string_view view_;
};

}  // namespace

std::size_t HostDictionary::position(std::string_view sKey) const {
  if (entries_.size() > kScanned) {
    const auto found = index_.find(arap::LowerCase(sKey));
    return found == index_.end() ? kNone : found->second;
  }
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const std::string& sName = entries_[i].first;
    if (sName.size() == sKey.size() && arap::EqualsNoCase(sName, sKey)) return i;
  }
  return kNone;
}

const Variant* HostDictionary::find(std::string_view sKey) const {
  const std::size_t nPosition = position(sKey);
  return nPosition == kNone ? nullptr : &entries_[nPosition].second;
}

void HostDictionary::set(std::string_view sKey, Variant vValue) {
  if (const std::size_t nPosition = position(sKey); nPosition != kNone) {
    entries_[nPosition].second = std::move(vValue);
    return;
  }
  entries_.emplace_back(std::string(sKey), std::move(vValue));
  if (entries_.size() <= kScanned) return;
  if (index_.empty()) {
    for (std::size_t i = 0; i < entries_.size(); ++i) index_.emplace(arap::LowerCase(entries_[i].first), i);
  } else {
    index_.emplace(arap::LowerCase(sKey), entries_.size() - 1);
  }
}

Variant HostDictionary::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::Default:
    case Member::Value: {
      const KeyText sKey(argument(args, 0));
      if (is_put(access)) {
        set(sKey, argument(args, 1));
        return {};
      }
      if (const Variant* pValue = find(sKey)) return *pValue;
      throw AutomationError(ErrorNumber::InvalidProcedureCall, sKey);
    }
    case Member::Lookup: return find(KeyText(argument(args, 0))) != nullptr;
    case Member::GetValue: {
      const Variant* pValue = find(KeyText(argument(args, 0)));
      return pValue != nullptr ? *pValue : argument(args, 1);
    }
    case Member::Size: return static_cast<std::int32_t>(entries_.size());
    case Member::Name: return entries_[checked_position(argument(args, 0), entries_.size())].first;
    default: no_such_member(member);
  }
}

std::size_t checked_position(const Variant& vIndex, std::size_t nSize) {
  const std::int32_t nIndex = arap::LongOf(vIndex);
  if (nIndex < 1 || static_cast<std::size_t>(nIndex) > nSize) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::to_string(nIndex));
  }
  return static_cast<std::size_t>(nIndex) - 1;
}

Variant HostVector::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::Default:
    case Member::Item: {
      Variant& vItem = items_[checked_position(argument(args, 0), items_.size())];
      if (!is_put(access)) return vItem;
      vItem = argument(args, 1);
      return {};
    }
    case Member::Size:
    case Member::UBound: return static_cast<std::int32_t>(items_.size());
    case Member::LBound: return std::int32_t{items_.empty() ? 0 : 1};
    case Member::Add: items_.push_back(argument(args, 0)); return {};
    case Member::Remove:
      items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(checked_position(argument(args, 0), items_.size())));
      return {};
    default: no_such_member(member);
  }
}

arap::Ref<arap::Object> make_engine_object(std::string_view sProgID) {
  if (arap::EqualsNoCase(sProgID, arap::open_choices::kDictionary)) return arap::make_object<HostDictionary>();
  if (arap::EqualsNoCase(sProgID, arap::open_choices::kVector)) return arap::make_object<HostVector>();
  if (arap::EqualsNoCase(sProgID, arap::open_choices::kTool)) return arap::make_object<BarTool>("");
  return {};
}

}  // namespace desk

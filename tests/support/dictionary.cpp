#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>

#include "support/containers.h"

namespace arap::testing {

namespace {

constexpr std::size_t kLargeDictionary = 12;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view sText) const { return std::hash<std::string_view>{}(sText); }
};

KeyId id_of_lower(std::string_view sKey) {
  static std::unordered_map<std::string, KeyId, NameHash, std::equal_to<>> aIds;
  const auto found = aIds.find(sKey);
  if (found != aIds.end()) return found->second;
  return aIds.emplace(std::string(sKey), static_cast<KeyId>(aIds.size())).first->second;
}

KeyId id_of_static(const TextBody* pBody, std::string_view sKey) {
  struct Known {
    const TextBody* body = nullptr;
    KeyId id = 0;
  };
  static std::array<Known, 4096> aKnown;
  Known& known = aKnown[(reinterpret_cast<std::uintptr_t>(pBody) / alignof(TextBody)) % aKnown.size()];
  if (known.body != pBody) known = {pBody, key_id(sKey)};
  return known.id;
}

}  // namespace

KeyId key_id(std::string_view sKey) {
  std::array<char, 64> aLower;
  if (sKey.size() <= aLower.size()) {
    std::transform(sKey.begin(), sKey.end(), aLower.begin(), lower);
    return id_of_lower({aLower.data(), sKey.size()});
  }
  std::string sLower(sKey);
  std::transform(sLower.begin(), sLower.end(), sLower.begin(), lower);
  return id_of_lower(sLower);
}

KeyId key_id_of(const Variant& vKey) {
  if (!vKey.is_text()) return key_id(std::string_view(plain_text(vKey)));
  const TextBody* pBody = vKey.as<Text>().body();
  if (pBody != nullptr && pBody->references == TextBody::kStatic) return id_of_static(pBody, vKey.text());
  return key_id(vKey.text());
}

double plain_number(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Boolean: return vValue.as<bool>() ? -1 : 0;
    case Variant::Type::Integer: return vValue.as<std::int16_t>();
    case Variant::Type::Long: return vValue.as<std::int32_t>();
    case Variant::Type::Double: return vValue.as<double>();
    case Variant::Type::Date: return vValue.as<Date>().days;
    case Variant::Type::Text: return std::strtod(std::string(vValue.text()).c_str(), nullptr);
    default: return 0;
  }
}

std::string plain_text(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Text: return std::string(vValue.text());
    case Variant::Type::Empty:
    case Variant::Type::Null:
    case Variant::Type::Missing:
    case Variant::Type::Object: return "";
    default: return show(vValue);
  }
}

bool same_name(std::string_view sA, std::string_view sB) {
  return std::equal(sA.begin(), sA.end(), sB.begin(), sB.end(), [](char a, char b) { return lower(a) == lower(b); });
}

TestDictionary::TestDictionary(Pairs aPairs) {
  for (const auto& [sKey, vValue] : aPairs) set(sKey, vValue);
}

std::int32_t TestDictionary::position(KeyId id) const {
  if (!index_.empty()) {
    return static_cast<std::size_t>(id) < index_.size() ? index_[static_cast<std::size_t>(id)] : -1;
  }
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].id == id) return static_cast<std::int32_t>(i);
  }
  return -1;
}

const Variant* TestDictionary::find(KeyId id) const {
  const std::int32_t nAt = position(id);
  return nAt < 0 ? nullptr : &entries_[static_cast<std::size_t>(nAt)].value;
}

void TestDictionary::index_last() {
  if (entries_.size() < kLargeDictionary) return;
  const std::size_t nFirst = index_.empty() ? 0 : entries_.size() - 1;
  for (std::size_t i = nFirst; i < entries_.size(); ++i) {
    const auto nId = static_cast<std::size_t>(entries_[i].id);
    if (nId >= index_.size()) index_.resize(nId + 1, -1);
    index_[nId] = static_cast<std::int16_t>(i);
  }
}

void TestDictionary::put(const Variant& vKey, const Variant& vValue) {
  const KeyId id = key_id_of(vKey);
  const std::int32_t nAt = position(id);
  if (nAt >= 0) {
    entries_[static_cast<std::size_t>(nAt)].value = vValue;
    return;
  }
  entries_.push_back({id, vKey.is_text() ? vKey.as<Text>() : Text(plain_text(vKey)), vValue});
  index_last();
}

TestDictionary& TestDictionary::set(std::string_view sKey, Variant vValue) {
  put(Variant(sKey), vValue);
  return *this;
}

const Variant& TestDictionary::at(std::string_view sKey) const {
  static const Variant vNone;
  const Variant* pValue = find(key_id(sKey));
  return pValue != nullptr ? *pValue : vNone;
}

void TestDictionary::erase(std::string_view sKey) {
  const KeyId id = key_id(sKey);
  std::erase_if(entries_, [id](const Entry& entry) { return entry.id == id; });
  std::vector<Entry> aKept;
  aKept.swap(entries_);
  index_.clear();
  for (Entry& entry : aKept) {
    entries_.push_back(std::move(entry));
    index_last();
  }
}

Variant TestDictionary::invoke(Member member, Access access, Arguments args) {
  trace().count_call();
  switch (member) {
    case Member::Default:
    case Member::Value: {
      if (access == Access::Put || access == Access::PutRef) {
        put(argument(args, 0), argument(args, 1));
        if (!label_.empty() && trace().records(false)) {
          trace().add(label_ + "." + plain_text(args[0]) + " = " + show(args[1]));
        }
        return {};
      }
      const Variant* pValue = find(key_id_of(argument(args, 0)));
      if (pValue == nullptr) throw AutomationError(ErrorNumber::SubscriptOutOfRange, plain_text(args[0]));
      return *pValue;
    }
    case Member::Lookup: return find(key_id_of(argument(args, 0))) != nullptr;
    case Member::GetValue: {
      const Variant* pValue = find(key_id_of(argument(args, 0)));
      if (pValue != nullptr) return *pValue;
      return args.size() > 1 ? args[1] : Variant();
    }
    case Member::Size: return static_cast<std::int32_t>(entries_.size());
    case Member::Name: {
      const double dIndex = plain_number(argument(args, 0));
      if (dIndex < 1 || dIndex > static_cast<double>(entries_.size())) {
        throw AutomationError(ErrorNumber::SubscriptOutOfRange);
      }
      return entries_[static_cast<std::size_t>(dIndex) - 1].name;
    }
    default: no_such_member(member);
  }
}

Ref<TestDictionary> dictionary(Pairs aPairs) { return make_object<TestDictionary>(aPairs); }

}  // namespace arap::testing

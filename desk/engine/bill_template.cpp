#include "engine/bill_template.h"

#include "frame/conversions.h"

namespace desk {

std::size_t BillTemplate::find_key(std::string_view sKey) const {
  const auto found = by_key_.find(arap::LowerCase(sKey));
  return found == by_key_.end() ? kNone : found->second;
}

std::size_t BillTemplate::find(const arap::Variant& vKey) const {
  if (!vKey.is_text()) return find_key(arap::Concat(vKey));
  const arap::TextBody* pBody = vKey.as<arap::Text>().body();
  if (const std::size_t* pField = by_body_.find(pBody)) return *pField;
  const std::size_t nField = find_key(vKey.text());
  // Only a key of the program keeps its place for good.
  if (pBody != nullptr && pBody->references == arap::TextBody::kStatic) by_body_.enter(pBody, nField);
  return nField;
}

}  // namespace desk

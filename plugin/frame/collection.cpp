#include "frame/collection.h"

#include "frame/conversions.h"

namespace arap {

std::size_t Collection::place(std::int32_t nIndex) const {
  if (nIndex < 1 || nIndex > Count()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, "Collection");
  return static_cast<std::size_t>(nIndex) - 1;
}

const Variant& Collection::Item(std::int32_t nIndex) const { return items_[place(nIndex)]; }

void Collection::Remove(std::int32_t nIndex) {
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place(nIndex)));
}

Variant Collection::invoke(Member member, Access, Arguments args) {
  switch (member) {
    case Member::Count: return Count();
    case Member::Default:
    case Member::Item: return Item(ToLong(argument(args, 0)));
    case Member::Add: Add(argument(args, 0)); return {};
    case Member::Remove: Remove(ToLong(argument(args, 0))); return {};
    default: no_such_member(member);
  }
}

}  // namespace arap

#include "engine/key_places.h"

#include <utility>

namespace desk {

namespace {
constexpr std::size_t kFirstSize = 256;
}

void KeyPlaces::enter(const arap::TextBody* pBody, std::size_t nNumber) {
  if (pBody == nullptr || find(pBody) != nullptr) return;
  if (2 * (count_ + 1) > slots_.size()) grow();
  std::size_t i = first_slot(pBody);
  while (slots_[i].pBody != nullptr) i = (i + 1) & (slots_.size() - 1);
  slots_[i] = {pBody, nNumber};
  ++count_;
}

void KeyPlaces::grow() {
  const std::vector<Slot> former = std::exchange(slots_, {});
  slots_.resize(former.empty() ? kFirstSize : 2 * former.size());
  count_ = 0;
  for (const Slot& slot : former) enter(slot.pBody, slot.nNumber);
}

}  // namespace desk

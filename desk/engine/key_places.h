#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "frame/text.h"

namespace desk {

/// From the body of a key text to a number. Bodies that are entered must outlive the table: those of the program's own
/// keys and those that the owner of the table keeps. Then a body that is found is that very text, whoever asks with it.
class KeyPlaces {
 public:
  /// nullptr when the body wasn't entered.
  const std::size_t* find(const arap::TextBody* pBody) const {
    if (slots_.empty()) return nullptr;
    for (std::size_t i = first_slot(pBody);; i = (i + 1) & (slots_.size() - 1)) {
      if (slots_[i].pBody == nullptr) return nullptr;
      if (slots_[i].pBody == pBody) return &slots_[i].nNumber;
    }
  }

  /// A body that is there already keeps its number.
  void enter(const arap::TextBody* pBody, std::size_t nNumber);

 private:
  struct Slot {
    const arap::TextBody* pBody = nullptr;
    std::size_t nNumber = 0;
  };

  std::size_t first_slot(const arap::TextBody* pBody) const {
    // Bodies stand at least eight bytes apart; the product spreads the rest over the high bits.
    const std::uint64_t nMixed = (reinterpret_cast<std::uintptr_t>(pBody) >> 3) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(nMixed >> 32) & (slots_.size() - 1);
  }
  void grow();

  std::vector<Slot> slots_;  // a power of two, at most half of them taken
  std::size_t count_ = 0;
};

}  // namespace desk

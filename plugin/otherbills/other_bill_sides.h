#pragma once

#include <array>

#include "frame/text.h"

namespace arap {

/// What differs between the other receivable bill and the other payable bill. The two constants stand next to each
/// other in other_bill_sides.cpp; every member is named there.
struct OtherBillSide {
  Key sClassName;
  /// By the index of GetTaskCode.
  std::array<Key, 8> aTaskCodes;
};

extern const OtherBillSide kROtherSide;
extern const OtherBillSide kPOtherSide;

}  // namespace arap

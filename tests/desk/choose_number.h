#pragma once

#include <string>

#include "engine/host.h"

namespace desk::testing {

/// Takes the source bill of this number out of a selection.
inline SourceChooser choose_number(const std::string& sBillNo) {
  return choose_where(
      [sBillNo](const SourceList& list, std::size_t nRow) { return list.text(nRow, "FBillNo") == sBillNo; });
}

}  // namespace desk::testing

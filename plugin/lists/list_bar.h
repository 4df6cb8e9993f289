#pragma once

#include "frame/host_contract.h"

namespace arap {

/// What becomes of the host's view command on a list of this module.
enum class ViewCommand : std::uint8_t { Kept, Hidden };

/// Hides the commands of the host's list window that the lists of this module don't have, switches its format commands
/// off and computes the layout anew. Statement errors are skipped.
void TrimListBar(const ActiveBar& oBar, ViewCommand view);

}  // namespace arap

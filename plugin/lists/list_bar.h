#pragma once

#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// What becomes of the host's view command on a list of this module.
enum class ViewCommand : std::uint8_t { Kept, Hidden };

/// Hides the commands of the host's list window that the lists of this module don't have, switches its format commands
/// off and computes the layout anew. Statement errors are skipped.
void TrimListBar(const ActiveBar& oBar, ViewCommand view);

/// Takes a tool from the template of the bill lists onto the bar and gives it these words. Statement errors are
/// skipped.
void TakeTemplateTool(const ActiveBar& oBar, Key sTool, std::string_view sCaption, std::string_view sDescription);

/// A yes or no of the list window; a window that lacks the answer counts as one that says no.
bool Answers(const ListEvents& oList, Member member);
/// True when the list is a window in which the user selects; a window that can't tell its mode is none.
bool ServesSelection(const ListEvents& oList);

}  // namespace arap

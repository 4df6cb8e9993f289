#pragma once

#include <initializer_list>
#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// Sets the row commands and the look-up command by an action key (a command key, DisableEdit, EnableEdit, EnableSel or
/// DisableSel; without regard to case), then hides mnuCopyRow and mnuBatchFillField after any action whatever.
/// Statement errors are skipped.
void SetEditBarState(const BillEvent& oBill, std::string_view sAction);

/// Disables the body commands while the bill can't be edited (BillStatus 0).
void DisableBodyCommands(const BillEvent& oBill);

/// The 0-based position of a tool in a band, names in lower case; 0 also when there is none.
std::int32_t FindToolIndex(const ActiveBar& oBar, const Variant& vBand, std::string_view sTool);

/// Describes the row commands of a bill window and places them on its toolbar right behind the preview.
void PlaceRowCommands(const BillEvent& oBill, const ActiveBar& oBar);

/// Each hides tools of a bar, or of one of its bands; what the bar lacks is skipped.
void HideTools(const ActiveBar& oBar, std::initializer_list<Key> aTools);
void HideBandTools(const ActiveBar& oBar, Key sBand, std::initializer_list<Key> aTools);
/// Disables and hides, each by itself.
void SwitchOffTools(const ActiveBar& oBar, std::initializer_list<Key> aTools);

}  // namespace arap

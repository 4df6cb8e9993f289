#pragma once

#include <cstdint>
#include <string_view>

#include "frame/names.h"

/// What the host's contract leaves open, chosen once. An integrator whose host spells one of these differently changes
/// it here and nowhere else (docs/integration.md tells how).
namespace arap::open_choices {

/// The host's object factory; its one method is CreateServerObject(sProgID, vServer).
inline constexpr std::string_view kObjectFactory = "NUVObjectFactory.Factory";
/// The two containers, made plainly when a rule needs a new one.
inline constexpr std::string_view kDictionary = "NUVContainers.Dictionary";
inline constexpr std::string_view kVector = "NUVContainers.Vector";
/// A tool that isn't on a bar yet; it needs Name and Tag.
inline constexpr std::string_view kTool = "ActiveBarLibraryCtl.Tool";
/// The connection of the switch file.
inline constexpr std::string_view kAdoConnection = "ADODB.Connection";
/// The grid control of the form of source bills, a FarPoint Spread.
inline constexpr std::string_view kGridControl = "FPSpreadADO.fpSpread";

/// The lock flag of a screen field, apart from the lock of its cell.
inline constexpr Member kScreenFieldLock = Member::Locked;
/// The member that switches off the previous and next tools of a bill that is only read.
inline constexpr Member kToolSwitchedOff = Member::Visible;
/// The checked state of a tool.
inline constexpr Member kToolChecked = Member::Checked;
/// The short text of a new tool.
inline constexpr Member kToolShortText = Member::ToolTipText;

/// The cell type of the grid control that takes numbers, and its properties.
inline constexpr std::int32_t kNumberCell = 2;
inline constexpr Member kNumberCellDecimals = Member::TypeFloatDecimalPlaces;
inline constexpr Member kNumberCellMin = Member::TypeFloatMin;
inline constexpr Member kNumberCellMax = Member::TypeFloatMax;

/// The class of base data that GetDataRight is asked for: accounts.
inline constexpr int kAccountClass = 1;
/// The member of that data right with the text that marks the user, and the one that says it is switched on.
/// The GetDataRight answer is read as an object with Value(kRightUserText) and Value(kRightInUse).
inline constexpr std::string_view kRightUserText = "UserText";
inline constexpr std::string_view kRightInUse = "InUse";

}  // namespace arap::open_choices

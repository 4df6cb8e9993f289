#include "frame/bar_state.h"

#include <algorithm>
#include <array>

#include "frame/failure.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

enum class RowCommands { Enable, Disable, Show, Hide };

/// What an action key does to the row commands. EnableSel and DisableSel change nothing and so aren't here.
struct EditAction {
  std::string_view sAction;
  RowCommands rowCommands;
};
constexpr std::array kEditActions = std::to_array<EditAction>({
    {"mnuEditCheck", RowCommands::Disable},
    {"mnuEditUnCheck", RowCommands::Enable},
    {"miAffirm", RowCommands::Disable},
    {"miUnAffirm", RowCommands::Enable},
    {"miEnable", RowCommands::Enable},
    {"miDisable", RowCommands::Disable},
    {"DisableEdit", RowCommands::Hide},
    {"EnableEdit", RowCommands::Show},
});

void EnableRowCommands(const BillEvent& oBill, bool bEnabled) {
  ResumeNext([&] { oBill.EnableTool("mnuEditDelRow"_key, bEnabled); });
  ResumeNext([&] { oBill.EnableTool("mnuEditAddRow"_key, bEnabled); });
}

/// With the row commands goes the look-up of base data.
void ShowRowCommands(const BillEvent& oBill, bool bVisible) {
  ResumeNext([&] { oBill.ShowTool("mnuEditDelRow"_key, bVisible); });
  ResumeNext([&] { oBill.ShowTool("mnuEditAddRow"_key, bVisible); });
  ResumeNext([&] { oBill.EnableTool("mnuDataLookUp"_key, bVisible); });
}

void SetRowCommands(const BillEvent& oBill, RowCommands rowCommands) {
  switch (rowCommands) {
    case RowCommands::Enable: return EnableRowCommands(oBill, true);
    case RowCommands::Disable: return EnableRowCommands(oBill, false);
    case RowCommands::Show: return ShowRowCommands(oBill, true);
    case RowCommands::Hide: return ShowRowCommands(oBill, false);
  }
}

}  // namespace

void SetEditBarState(const BillEvent& oBill, std::string_view sAction) {
  const auto found = std::find_if(kEditActions.begin(), kEditActions.end(), [sAction](const EditAction& action) {
    return EqualsNoCase(action.sAction, sAction);
  });
  if (found != kEditActions.end()) SetRowCommands(oBill, found->rowCommands);
  // After any action, also an unknown one: these bills never show the two commands.
  ResumeNext([&] { oBill.ShowTool("mnuCopyRow"_key, false); });
  ResumeNext([&] { oBill.ShowTool("mnuBatchFillField"_key, false); });
}

void DisableBodyCommands(const BillEvent& oBill) {
  if (oBill.Ctl().BillStatus() != 0) return;
  for (const Key sTool : {"mnuEditDelRow"_key, "mnuEditAddRow"_key, "mnuBatchFillField"_key, "mnuDataLookUp"_key}) {
    oBill.EnableTool(sTool, false);
  }
}

std::int32_t FindToolIndex(const ActiveBar& oBar, const Variant& vBand, std::string_view sTool) {
  const ToolCollection oTools = oBar.Bands(vBand).Tools();
  const std::int32_t nCount = oTools.Count();
  for (std::int32_t i = 0; i < nCount; ++i) {
    if (EqualsNoCase(Concat(oTools.Item(i).Name()), sTool)) return i;
  }
  return 0;
}

void PlaceRowCommands(const BillEvent& oBill, const ActiveBar& oBar) {
  const std::int32_t nPreview = FindToolIndex(oBar, "BandToolBar"_key, "mnuFilePreview");
  oBar.Tools("mnuEditAddRow"_key).SetDescription(LoadText("插行"));
  oBar.Tools("mnuEditDelRow"_key).SetDescription(LoadText("删行"));
  const ToolCollection oToolBand = oBar.Bands("BandToolBar"_key).Tools();
  oToolBand.Insert(nPreview + 1, "mnuEditAddRow"_key);
  oToolBand.Insert(nPreview + 2, "mnuEditDelRow"_key);
  oBill.Form().RefreshToolbar();
}

void HideTools(const ActiveBar& oBar, std::initializer_list<Key> aTools) {
  for (const Key sTool : aTools) ResumeNext([&] { oBar.Tools(sTool).SetVisible(false); });
}

void HideBandTools(const ActiveBar& oBar, Key sBand, std::initializer_list<Key> aTools) {
  for (const Key sTool : aTools) ResumeNext([&] { oBar.Bands(sBand).Tools(sTool).SetVisible(false); });
}

void SwitchOffTools(const ActiveBar& oBar, std::initializer_list<Key> aTools) {
  for (const Key sTool : aTools) {
    ResumeNext([&] { oBar.Tools(sTool).SetEnabled(false); });
    ResumeNext([&] { oBar.Tools(sTool).SetVisible(false); });
  }
}

}  // namespace arap

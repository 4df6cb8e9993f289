#include "lists/list_bar.h"

#include <array>

#include "frame/conversions.h"
#include "frame/failure.h"
#include "frame/text_utils.h"
#include "lists/bar_templates.h"

namespace arap {

namespace {

/// ShowMode of a list that serves a selection.
constexpr std::int32_t kSelectionMode = 3;

/// Tools of one band; the bar's own when the band is "".
struct BandTool {
  Key sBand;
  Key sTool;
};

constexpr std::array kHiddenTools{
    BandTool{"mnuFile"_key, "mnuNoteSetup"_key},
    BandTool{"mnuFile"_key, "mnuFileSeriesPrint"_key},
    BandTool{"mnuFile"_key, "mnuFileSeriesPrintView"_key},
    BandTool{"mnuFile"_key, "mnuFileUseEconomizePaper"_key},
    BandTool{"mnuEdit"_key, "mnuEditCopy"_key},
    BandTool{"mnuEdit"_key, "mnuFileView"_key},
    BandTool{""_key, "mnuDataViewPrvBill"_key},
    BandTool{""_key, "mnuDataViewNextBill"_key},
    BandTool{"mnuPop"_key, "mnuEditCopyEntry"_key},
    BandTool{"mnuData"_key, "mnuDataViewPrvBill"_key},
    BandTool{"mnuData"_key, "mnuDataViewNextBill"_key},
    BandTool{"mnuView"_key, "mnuViewToolBar"_key},
    BandTool{"mnuView"_key, "mnuViewToolCaption"_key},
    BandTool{"menu"_key, "mnuPushBill"_key},
};

constexpr std::array kFormatTools{
    "mnuFormatRowHeight"_key,        "mnuFormatFont"_key,  "mnuFormatOpt"_key,
    "mnuDataAccessory"_key,          "mnuPreHeadFoot"_key, "mnuFileSeriesPrintAll"_key,
    "mnuFileSeriesPrintViewAll"_key,
};

Tool ToolOf(const ActiveBar& oBar, const BandTool& tool) {
  return tool.sBand == ""_key ? oBar.Tools(tool.sTool) : oBar.Bands(tool.sBand).Tools(tool.sTool);
}

bool IsHidden(const BandTool& tool, ViewCommand view) {
  switch (view) {
    case ViewCommand::Kept: return tool.sTool != "mnuFileView"_key;
    case ViewCommand::Hidden: return true;
  }
  return true;
}

}  // namespace

void TrimListBar(const ActiveBar& oBar, ViewCommand view) {
  for (const BandTool& tool : kHiddenTools) {
    if (IsHidden(tool, view)) ResumeNext([&] { ToolOf(oBar, tool).SetVisible(false); });
  }
  for (const Key sTool : kFormatTools) ResumeNext([&] { oBar.Tools(sTool).SetEnabled(false); });
  for (const Key sTool : kFormatTools) ResumeNext([&] { oBar.Tools(sTool).SetVisible(false); });
  ResumeNext([&] { oBar.RecalcLayout(); });
}

void TakeTemplateTool(const ActiveBar& oBar, Key sTool, std::string_view sCaption, std::string_view sDescription) {
  ResumeNext([&] { AddTemplateTool(oBar, LoadedFrmBar().abReport.Tools(sTool)); });
  ResumeNext([&] { oBar.Tools(sTool).SetCaption(LoadText(sCaption)); });
  ResumeNext([&] { oBar.Tools(sTool).SetDescription(LoadText(sDescription)); });
}

bool Answers(const ListEvents& oList, Member member) {
  bool bTrue = false;
  ResumeNext([&] { bTrue = ToBoolean(oList.ListForm().object()->get(member)); });
  return bTrue;
}

bool ServesSelection(const ListEvents& oList) {
  std::int32_t nShowMode = 0;
  ResumeNext([&] { nShowMode = LongOf(oList.ListForm().object()->get(Member::ShowMode)); });
  return nShowMode == kSelectionMode;
}

}  // namespace arap

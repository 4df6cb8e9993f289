#include "frame/bar_state.h"
#include "frame/failure.h"
#include "frame/text_utils.h"
#include "lists/list_bar.h"
#include "otherbills/other_bill.h"

/// The list's bar. Resume next: a statement on a tool or band that the bar lacks is skipped.
namespace arap {

namespace {

/// Where Check and UnCheck stand in the menus.
constexpr std::int32_t kCheckPlace = 4;
constexpr std::int32_t kUncheckPlace = 5;

void AddToolbarTool(const ActiveBar& oBar, Key sTool, std::string_view sCaption, std::string_view sDescription) {
  TakeTemplateTool(oBar, sTool, sCaption, sDescription);
  ResumeNext([&] { oBar.Bands("BandToolBar"_key).Tools().Place(sTool); });
}

void AddListTools(const ActiveBar& oBar) {
  AddToolbarTool(oBar, "Check"_key, "审核", "审核");
  AddToolbarTool(oBar, "UnCheck"_key, "反审核", "反审");
  for (const Key sBand : {"mnuEdit"_key, "mnuPop"_key}) {
    ResumeNext([&] { oBar.Bands(sBand).Tools().Insert(kCheckPlace, "Check"_key); });
    ResumeNext([&] { oBar.Bands(sBand).Tools().Insert(kUncheckPlace, "UnCheck"_key); });
    ResumeNext([&] { oBar.Bands(sBand).Tools("Check"_key).SetBeginGroup(true); });
    HideBandTools(oBar, sBand, {"mnuEditCopyEntry"_key});
  }
  AddToolbarTool(oBar, "Voucher"_key, "凭证", "凭证");
}

/// Commands of the host that these lists don't have.
void HideHostCommands(const ActiveBar& oBar) {
  HideTools(oBar, {"mnuDataViewPrvBill"_key, "mnuDataViewNextBill"_key});
  HideBandTools(oBar, "mnuData"_key, {"mnuDataViewPrvBill"_key, "mnuDataViewNextBill"_key});
  HideBandTools(oBar, "mnuView"_key, {"mnuViewToolBar"_key, "mnuViewToolCaption"_key});
  HideBandTools(oBar, "menu"_key, {"mnuPushBill"_key});
}

/// In multi-check mode the host checks by levels of its own.
bool ChecksByLevels(const ListEvents& oList) {
  const bool bExists = Answers(oList, Member::ExistMultiCheck);
  return Answers(oList, Member::IsRun) && bExists;
}

}  // namespace

void OtherBill::SetUpListBar(const ActiveBar& oBar) const {
  AddListTools(oBar);
  HideHostCommands(oBar);
  if (ChecksByLevels(List())) {
    HideTools(oBar, {"Check"_key, "UnCheck"_key});
    for (const Key sTool : {"Check"_key, "UnCheck"_key}) {
      ResumeNext([&] { oBar.Tools(sTool).SetEnabled(false); });
    }
  }
  SwitchOffTools(oBar, {"mnuFormatRowHeight"_key, "mnuFormatFont"_key, "mnuFormatOpt"_key, "mnuDataAccessory"_key,
                        "mnuPreHeadFoot"_key, "mnuFileSeriesPrintAll"_key, "mnuFileSeriesPrintViewAll"_key});
  HideBandTools(oBar, "mnuFile"_key, {"mnuExportData"_key});
}

void OtherBill::m_LstInterface_BarInitialize(const ActiveBar& oBar) {
  if (ServesSelection(List())) {
    HideTools(oBar, {"mnuFileNew"_key, "mnuEditModify"_key, "mnuEditDelete"_key, "mnuEditCopy"_key, "mnuDataFilter"_key,
                     "mnuDataAccessory"_key, "mnuCaculate"_key, "Check"_key, "UnCheck"_key, "mnuEdit"_key});
  } else {
    SetUpListBar(oBar);
  }
  ResumeNext([&] { oBar.RecalcLayout(); });
  for (const Key sBand : {"mnuEdit"_key, "mnuFile"_key}) {
    ResumeNext([&] { oBar.Bands(sBand).Tools("mnuEditCopy"_key).SetEnabled(false); });
  }
}

/// The related bills viewer comes back into the view menu.
void OtherBill::m_LstInterface_MenuBarInitialize(const ActiveBar& oBar) {
  const Tool oViewer = oBar.Bands("mnuView"_key).Tools("mnuDataViewNextBill"_key);
  oViewer.SetEnabled(true);
  oViewer.SetVisible(true);
}

}  // namespace arap

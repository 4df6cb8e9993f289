#include <array>

#include "frame/bar_state.h"
#include "frame/failure.h"
#include "frame/text_utils.h"
#include "lists/list_bar.h"
#include "settlement/settlement_bill.h"

/// The list's bar. Resume next: a statement on a tool or band that the bar lacks is skipped.
namespace arap {

namespace {

/// Where the new tools stand on the toolbar and in the menus.
constexpr std::int32_t kToolbarPlace = 11;
constexpr std::int32_t kCheckPlace = 4;
constexpr std::int32_t kUncheckPlace = 5;

void InsertTool(const ActiveBar& oBar, Key sBand, std::int32_t nPlace, Key sTool) {
  ResumeNext([&] { oBar.Bands(sBand).Tools().Insert(nPlace, sTool); });
}

void AddCheckTools(const ActiveBar& oBar) {
  TakeTemplateTool(oBar, "Check"_key, "审核", "审核");
  InsertTool(oBar, "BandToolBar"_key, kToolbarPlace, "Check"_key);
  for (const Key sBand : {"mnuEdit"_key, "mnuPop"_key}) {
    InsertTool(oBar, sBand, kCheckPlace, "Check"_key);
    ResumeNext([&] { oBar.Bands(sBand).Tools("Check"_key).SetBeginGroup(true); });
  }
  TakeTemplateTool(oBar, "UnCheck"_key, "反审核", "反审");
  for (const Key sBand : {"mnuEdit"_key, "mnuPop"_key}) InsertTool(oBar, sBand, kUncheckPlace, "UnCheck"_key);
}

void AddVoucherTool(const ActiveBar& oBar) {
  TakeTemplateTool(oBar, "Voucher"_key, "凭证", "凭证");
  InsertTool(oBar, "BandToolBar"_key, kToolbarPlace, "Voucher"_key);
}

/// Commands of the host that these lists don't have.
void HideHostCommands(const ActiveBar& oBar) {
  HideTools(oBar, {"mnuDataViewPrvBill"_key, "mnuDataViewNextBill"_key});
  HideBandTools(oBar, "mnuData"_key, {"mnuDataViewPrvBill"_key, "mnuDataViewNextBill"_key});
  HideBandTools(oBar, "mnuEdit"_key, {"mnuEditCopyEntry"_key});
  HideBandTools(oBar, "mnuPop"_key, {"mnuEditCopyEntry"_key});
  HideBandTools(oBar, "mnuView"_key, {"mnuViewToolBar"_key, "mnuViewToolCaption"_key});
  HideBandTools(oBar, "menu"_key, {"mnuPushBill"_key});
}

/// Several-level checking: the host checks with commands of its own.
void LeaveCheckingToHost(const ActiveBar& oBar, const ListEvents& oList) {
  const bool bRuns = Answers(oList, Member::IsRun);
  const bool bExists = Answers(oList, Member::ExistMultiCheck);
  if (!bRuns || !bExists) return;
  HideTools(oBar, {"Check"_key, "UnCheck"_key});
  ResumeNext([&] { oBar.Tools("UnCheck"_key).SetEnabled(false); });
}

}  // namespace

void SettlementBill::SetUpListBar(const ActiveBar& oBar) const {
  AddCheckTools(oBar);
  switch (side_.listExtras) {
    case ListExtras::ViewBill: break;
    case ListExtras::ExportShown:
      ResumeNext([&] { oBar.Bands("mnuFile"_key).Tools("mnuExportData"_key).SetVisible(true); });
      break;
  }
  AddVoucherTool(oBar);
  HideHostCommands(oBar);
  LeaveCheckingToHost(oBar, List());
  SwitchOffTools(oBar, {"mnuFormatRowHeight"_key, "mnuFormatFont"_key, "mnuFormatOpt"_key, "mnuPreHeadFoot"_key,
                        "mnuFileSeriesPrintAll"_key, "mnuFileSeriesPrintViewAll"_key});
}

void SettlementBill::m_LstInterface_BarInitialize(const ActiveBar& oBar) {
  if (ServesSelection(List())) {
    HideTools(oBar, {"mnuFileNew"_key, "mnuEditModify"_key, "mnuEditDelete"_key, "mnuEditCopy"_key, "mnuDataFilter"_key,
                     "mnuDataAccessory"_key, "mnuCaculate"_key, "Check"_key, "UnCheck"_key});
  } else {
    SetUpListBar(oBar);
  }
  ResumeNext([&] { oBar.RecalcLayout(); });
}

void SettlementBill::m_LstInterface_MenuBarInitialize(const ActiveBar& oBar) {
  oBar.Tools("mnuEditCopy"_key).SetVisible(false);
}

}  // namespace arap

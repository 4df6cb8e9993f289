#include <string_view>

#include "frame/bar_state.h"
#include "frame/session.h"
#include "frame/text_utils.h"
#include "lists/bar_templates.h"
#include "settlement/settlement_bill.h"

namespace arap {
namespace {

struct NewTool {
  Key sName;
  std::string_view sCaption;
  std::string_view sDescription;
  std::string_view sShortText;
  std::int32_t nStyle;
  bool bVisible;
  bool bBeginGroup;
  std::int32_t nImage;  // place in the image list of the bar templates; 0 for none
};

void AddTool(const ActiveBar& oBar, const NewTool& tool) {
  const Tool oTool = oBar.Tools().Add(tool.sName);
  oTool.SetCaption(LoadText(tool.sCaption));
  oTool.SetDescription(LoadText(tool.sDescription));
  oTool.SetShortText(LoadText(tool.sShortText));
  oTool.SetStyle(tool.nStyle);
  oTool.SetVisible(tool.bVisible);
  oTool.SetEnabled(true);
  oTool.SetBeginGroup(tool.bBeginGroup);
  if (tool.nImage != 0) oTool.SetPicture(FrmBar::Image(tool.nImage), kPictureColourKey);
}

void HideAndDisable(const Tool& oTool) {
  oTool.SetVisible(false);
  oTool.SetEnabled(false);
}

void ShowAndEnable(const Tool& oTool) {
  oTool.SetVisible(true);
  oTool.SetEnabled(true);
}

/// The edit commands: no copies, rows by hand, and uncheck beside check.
void SetUpEditMenu(const ActiveBar& oBar) {
  const Band oEdit = oBar.Bands("mnuEdit"_key);
  HideAndDisable(oBar.Bands("mnuFile"_key).Tools("mnuEditCopy"_key));
  ShowAndEnable(oEdit.Tools("mnuEditAddRow"_key));
  ShowAndEnable(oBar.Tools("mnuEditAddRow"_key));
  HideAndDisable(oEdit.Tools("mnuCopyRow"_key));
  HideAndDisable(oEdit.Tools("mnuBatchFillField"_key));
  AddTool(oBar, {"mnuEditUnCheck"_key, "反审核", "对单据进行取消审核操作", "反审核", 1, true, false, 0});
  oEdit.Tools().Place("mnuEditUnCheck"_key);
}

/// The new commands of the data menu. Required: what is placed here and there is a tool made before, or the host's.
void SetUpDataMenu(const ActiveBar& oBar, const SettlementSide& side) {
  const ToolCollection oData = oBar.Bands("mnuData"_key).Tools();
  const ToolCollection oToolBand = oBar.Bands("BandToolBar"_key).Tools();
  AddTool(oBar, {"mnuDataAutoSumAmt"_key, "自动合计", side.sAutoSumDescription, "合计", 0, true, true, 1});
  oData.Place("mnuCalculate"_key);
  oToolBand.Place("mnuDataLookUp"_key);
  AddTool(oBar, {"mnuViewVch"_key, "调阅凭证", "调阅凭证", "凭证", 0, false, true, 0});
  oData.Place("mnuDataLookUp"_key);
  AddTool(oBar, {"mnuDataAutoPartAmt"_key, "自动分摊金额", side.sAutoPartDescription, "分摊", 0, true, false, 2});
  oData.Place("mnuDataAutoSumAmt"_key);
  oToolBand.Place("mnuDataAutoSumAmt"_key);
  AddTool(oBar, {"mnuHelpFile"_key, "帮助目录", "帮助目录", "帮助目录", 27, true, true, 0});
  oBar.Tools("mnuOption"_key).SetVisible(true);
  AddTool(oBar, {side.sSelectTool, "选源单", "选源单", "选源单", 0, true, false, 4});
  oData.Place("mnuDataAutoPartAmt"_key);
  oToolBand.Place("mnuDataLookUp"_key);
}

void HideTools(const Band& oBand, std::initializer_list<Key> aTools) {
  for (const Key sTool : aTools) oBand.Tools(sTool).SetVisible(false);
}

/// Commands of the host that these bills don't have.
void HideHostCommands(const ActiveBar& oBar) {
  HideTools(oBar.Bands("mnuData"_key), {"mnuSelectBill"_key});
  HideTools(oBar.Bands("BandToolBar"_key), {"mnuSelectBill"_key});
  HideTools(oBar.Bands("mnuData"_key), {"mnuDataAccessory"_key, "mnuStockQuery"_key});
  HideTools(oBar.Bands("mnuFormat"_key), {"mnuFormatBack"_key});
  HideTools(oBar.Bands("mnuOption"_key), {"mnuOptionLinkBill"_key, "mnuFormatIndentity"_key, "mnuOptionBatchFull"_key});
  oBar.Tools("mnuEditAddRow"_key).SetVisible(true);
  oBar.Tools("mnuEditDelRow"_key).SetVisible(true);
}

}  // namespace

void SettlementBill::m_BillInterface_MenuBarInitialize(const ActiveBar& oBar) {
  SetUpEditMenu(oBar);
  SetUpDataMenu(oBar, side_);
  HideHostCommands(oBar);
  Bill().BarControl().RecalcLayout();
  m_sReportDate = TextOf(Variant(GetReportTransDate()));
  m_bLoaded = true;
}

void SettlementBill::m_BillInterface_BarInitialize(const ActiveBar& oBar) { PlaceRowCommands(Bill(), oBar); }

}  // namespace arap

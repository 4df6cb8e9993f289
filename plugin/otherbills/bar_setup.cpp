#include <initializer_list>
#include <string_view>

#include "frame/bar_state.h"
#include "frame/text_utils.h"
#include "otherbills/other_bill.h"

namespace arap {
namespace {

struct NewTool {
  Key sName;
  std::string_view sCaption;
  std::string_view sDescription;
  std::string_view sCategory;
  std::int32_t nStyle;
  bool bBeginGroup;
};

void AddTool(const ActiveBar& oBar, const NewTool& tool) {
  const Tool oTool = oBar.Tools().Add(tool.sName);
  oTool.SetCaption(LoadText(tool.sCaption));
  oTool.SetDescription(LoadText(tool.sDescription));
  oTool.SetCategory(LoadText(tool.sCategory));
  oTool.SetStyle(tool.nStyle);
  oTool.SetEnabled(true);
  oTool.SetVisible(true);
  oTool.SetBeginGroup(tool.bBeginGroup);
}

void DisableTools(const Band& oBand, std::initializer_list<Key> aTools) {
  for (const Key sTool : aTools) oBand.Tools(sTool).SetEnabled(false);
}

void TakeRowCommandsAway(const Band& oEdit, RowCommandsInMenu rowCommands) {
  switch (rowCommands) {
    case RowCommandsInMenu::CopyAndFill:
      for (const Key sTool : {"mnuCopyRow"_key, "mnuBatchFillField"_key}) {
        oEdit.Tools(sTool).SetEnabled(false);
        oEdit.Tools(sTool).SetVisible(false);
      }
      return;
    case RowCommandsInMenu::CopyOnly: return DisableTools(oEdit, {"mnuCopyRow"_key});
  }
}

void AddVoucherTool(const ActiveBar& oBar) {
  AddTool(oBar, {"mnuViewVch"_key, "调阅凭证", "调阅凭证", "凭证", 0, true});
  const std::int32_t nLookUp = FindToolIndex(oBar, "mnuData"_key, "mnuDataLookUp");
  oBar.Bands("mnuData"_key).Tools().Insert(nLookUp, "mnuViewVch"_key);
  oBar.RecalcLayout();
}

void AddUncheckTool(const ActiveBar& oBar) {
  AddTool(oBar, {"mnuEditUnCheck"_key, "反审核", "对单据进行取消审核操作", "反审核", 1, false});
  oBar.Bands("mnuEdit"_key).Tools().Place("mnuEditUnCheck"_key);
  oBar.RecalcLayout();
}

void AddHelpTool(const ActiveBar& oBar) {
  AddTool(oBar, {"mnuHelpFile"_key, "帮助目录", "帮助目录", "帮助目录", 27, true});
  const Band oOption = oBar.Bands("mnuOption"_key);
  oOption.SetEnabled(true);
  oOption.Tools().Place("mnuHelpFile"_key);
  oBar.RecalcLayout();
}

}  // namespace

void OtherBill::m_BillInterface_BarInitialize(const ActiveBar& oBar) { PlaceRowCommands(Bill(), oBar); }

void OtherBill::m_BillInterface_MenuBarInitialize(const ActiveBar& oBar) {
  TakeRowCommandsAway(oBar.Bands("mnuEdit"_key), side_.rowCommandsInMenu);
  DisableTools(oBar.Bands("mnuData"_key), {"mnuDataAccessory"_key, "mnuStockQuery"_key});
  DisableTools(oBar.Bands("mnuFormat"_key), {"mnuFormatBack"_key});
  DisableTools(oBar.Bands("mnuOption"_key),
               {"mnuOptionLinkBill"_key, "mnuFormatIndentity"_key, "mnuOptionBatchFull"_key});
  AddVoucherTool(oBar);
  AddUncheckTool(oBar);
  AddHelpTool(oBar);
}

}  // namespace arap

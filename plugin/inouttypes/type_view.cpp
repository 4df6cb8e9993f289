#include "inouttypes/type_view.h"

#include "frame/failure.h"
#include "frame/platform.h"

namespace arap {

namespace {

/// The help file beside the library, at its start page; neither the help server nor a topic.
void ShowViewHelp() {
  Platform& platform = CurrentPlatform();
  platform.StartHelpViewer(platform.LibraryPath() + "\\" + "NUVV11.chm");
}

}  // namespace

void clsRPInOutTypeView::OnBaseEvent(Event event, Arguments args) {
  switch (event) {
    case Event::AfterGetData: return m_LstInterface_AfterGetData();
    case Event::BarInitialize: return m_LstInterface_BarInitialize(ActiveBar(argument(args, 0)));
    case Event::MenuBarClick: return m_LstInterface_MenuBarClick(Tool(argument(args, 0)));
    default: return;  // RefreshList among them: nothing is to be done
  }
}

void clsRPInOutTypeView::m_LstInterface_AfterGetData() { BaseClassEvent(m_LstInterface.source()).RefreshItems(1); }

/// Resume next. Everything that edits goes, and what prints and exports with it.
void clsRPInOutTypeView::m_LstInterface_BarInitialize(const ActiveBar& oBar) {
  for (const Key sTool :
       {"mnuFileNewItem"_key, "mnuFileNewGroup"_key, "mnuEditModify"_key, "mnuEditDel"_key, "mnuEditDelGroup"_key,
        "mnuEditUse"_key, "mnuEditUnuse"_key, "mnuOption"_key, "mnuDataFind"_key, "mnuFilePageSetup"_key,
        "mnuFilePrintPreview"_key, "mnuPreHeadFoot"_key, "mnuFilePrint"_key, "mnuExportData"_key}) {
    ResumeNext([&] { oBar.Tools(sTool).SetVisible(false); });
  }
  ResumeNext([&] { oBar.Bands("mnuEdit"_key).SetVisible(false); });
}

/// Every other command is left to the host.
void clsRPInOutTypeView::m_LstInterface_MenuBarClick(const Tool& oTool) {
  if (EqualsNoCase(Concat(oTool.Name()), "mnuHelpDetail")) ShowViewHelp();
}

}  // namespace arap

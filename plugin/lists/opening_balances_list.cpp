#include "lists/opening_balances_list.h"

#include "frame/failure.h"
#include "lists/list_bar.h"

namespace arap {

void clsRPInitial::OnListEvent(Event event, Arguments args) {
  if (event == Event::BarInitialize) m_LstInterface_BarInitialize(ActiveBar(argument(args, 0)));
}

/// Resume next. The last two go after the layout was computed; required.
void clsRPInitial::m_LstInterface_BarInitialize(const ActiveBar& oBar) {
  TrimListBar(oBar, ViewCommand::Hidden);
  for (const Key sTool : {"mnuExportData"_key, "mnuFilePageSetup"_key}) {
    ResumeNext([&] { oBar.Bands("mnuFile"_key).Tools(sTool).SetVisible(false); });
  }
}

}  // namespace arap

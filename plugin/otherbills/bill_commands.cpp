#include <array>

#include "frame/failure.h"
#include "frame/messages.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "frame/voucher_access.h"
#include "otherbills/other_bill.h"

namespace arap {

std::span<const OtherBill::Command> OtherBill::Commands() {
  static constexpr std::array kCommands{
      Command{"mnuEditCheck"_key, &OtherBill::CheckBillCommand},
      Command{"mnuEditUnCheck"_key, &OtherBill::UncheckBillCommand},
      Command{"mnuEditDelete"_key, &OtherBill::DeleteCommand},
      Command{"mnuFileNew"_key, &OtherBill::NewBillCommand},
      Command{"mnuHelpFile"_key, &OtherBill::HelpCommand},
      Command{"mnuStockQuery"_key, &OtherBill::TakeAwayCommand},
      Command{"mnuViewVch"_key, &OtherBill::VoucherCommand},
  };
  return kCommands;
}

/// Trap and pass on. A command that stands in no list is the host's alone.
void OtherBill::m_BillInterface_MenuBarClick(const Tool& oTool, Variant& vCancel) {
  TrapAndPassOn(vCancel, [&] {
    const std::string sBillNo(Trim(Concat(GetBillField(Bill(), "FBillNo"_key, kHead))));
    const std::string sName = Concat(oTool.Name());
    for (const Command& command : Commands()) {
      if (EqualsNoCase(sName, command.sName)) return (this->*command.run)(sBillNo, vCancel);
    }
  });
}

/// The host deletes, unless the bill is checked.
void OtherBill::DeleteCommand(const std::string&, Variant& vCancel) {
  if (HeadNumber("FStatus"_key) == 0) return;
  ShowMessage(LoadText("单据已经被审核，不允许删除！"), kNotice, kTitle);
  vCancel = true;
}

void OtherBill::NewBillCommand(const std::string&, Variant&) {
  switch (side_.newCommand) {
    case NewCommand::NoRule: return;
    case NewCommand::EmptiesCreditPanel: return ClearCreditStatus();
  }
}

void OtherBill::HelpCommand(const std::string&, Variant&) {
  ShowHelpTopic(side_.sHelpTopic);
  Bill().BarControl().Bands("mnuCust"_key).SetCaption(LoadText("帮助"));
}

/// The command never reaches the host.
void OtherBill::TakeAwayCommand(const std::string&, Variant& vCancel) { vCancel = true; }

void OtherBill::VoucherCommand(const std::string&, Variant&) {
  ShowVoucherOfBill(Bill(), side_.sBillTable, EditorArgument::ModeOne);
}

}  // namespace arap

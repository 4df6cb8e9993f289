#include <array>
#include <span>

#include "frame/bill_fields.h"
#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/voucher_access.h"
#include "settlement/settlement_bill.h"

namespace arap {

/// The commands in the order in which the click tests them.
std::span<const SettlementBill::Command> SettlementBill::Commands() const {
  static constexpr std::array kWithColours{
      Command{"mnuEditCheck"_key, &SettlementBill::CheckBillCommand},
      Command{"mnuEditUnCheck"_key, &SettlementBill::UncheckBillCommand},
      Command{"mnuDataLookUp"_key, &SettlementBill::LookUpSourceBill},
      Command{"mnuSelectBill_2000001"_key, &SettlementBill::SelectSourceBills},
      Command{"mnuDataAutoPartAmt"_key, &SettlementBill::AutoApportionCommand},
      Command{"mnuDataAutoSumAmt"_key, &SettlementBill::AutoSumCommand},
      Command{"mnuSelectBill_1000002"_key, &SettlementBill::ChooseSecondOlderSource},
      Command{"mnuSelectBill_1000000"_key, &SettlementBill::ChooseFirstOlderSource},
      Command{"mnuSelectBill_1000005"_key, &SettlementBill::ChooseThirdOlderSource},
      Command{"mnuEditBlueBill"_key, &SettlementBill::BlueBillCommand},
      Command{"mnuEditRedBill"_key, &SettlementBill::RedBillCommand},
      Command{"mnuFileExit"_key, &SettlementBill::ExitCommand},
      Command{"mnuHelpFile"_key, &SettlementBill::HelpCommand},
      Command{"mnuFileSave"_key, &SettlementBill::SaveCommand},
      Command{"mnuStockQuery"_key, &SettlementBill::TakeAwayCommand},
      Command{"mnuViewVch"_key, &SettlementBill::VoucherCommand},
  };
  static constexpr std::array kWithRowCommands{
      Command{"mnuEditCheck"_key, &SettlementBill::CheckBillCommand},
      Command{"mnuEditUnCheck"_key, &SettlementBill::UncheckBillCommand},
      Command{"mnuDataLookUp"_key, &SettlementBill::LookUpSourceBill},
      Command{"mnuSelectBill_2000002"_key, &SettlementBill::SelectSourceBills},
      Command{"mnuDataAutoPartAmt"_key, &SettlementBill::AutoApportionCommand},
      Command{"mnuDataAutoSumAmt"_key, &SettlementBill::AutoSumCommand},
      Command{"mnuEditDelRow"_key, &SettlementBill::LeaveToHost},
      Command{"mnuEditAddRow"_key, &SettlementBill::LeaveToHost},
      Command{"mnuHelpFile"_key, &SettlementBill::HelpCommand},
      Command{"mnuStockQuery"_key, &SettlementBill::TakeAwayCommand},
      Command{"mnuViewVch"_key, &SettlementBill::VoucherCommand},
      Command{"mnuFileSave"_key, &SettlementBill::SaveCommand},
      Command{"mnuFileExit"_key, &SettlementBill::ExitCommand},
  };
  switch (side_.clickCommands) {
    case ClickCommands::ColoursAndOlderSources: return kWithColours;
    case ClickCommands::RowCommands: return kWithRowCommands;
  }
  return {};
}

/// Trap and pass on. A command that stands in no list is the host's alone.
void SettlementBill::m_BillInterface_MenuBarClick(const Tool& oTool, Variant& vCancel) {
  TrapAndPassOn(vCancel, [&] {
    const std::string sName = Concat(oTool.Name());
    for (const Command& command : Commands()) {
      if (sName != command.sName.view()) continue;
      (this->*command.run)(oTool, vCancel);
      return;
    }
  });
}

void SettlementBill::AutoApportionCommand(const Tool&, Variant&) { AutoApportion(); }

void SettlementBill::AutoSumCommand(const Tool&, Variant&) { AutoSum(); }

void SettlementBill::VoucherCommand(const Tool&, Variant&) {
  ShowVoucherOfBill(Bill(), side_.sBillTable, EditorArgument::PropsString);
}

void SettlementBill::LeaveToHost(const Tool&, Variant&) {}

/// The command never reaches the host.
void SettlementBill::TakeAwayCommand(const Tool&, Variant& vCancel) { vCancel = true; }

void SettlementBill::HelpCommand(const Tool&, Variant&) {
  ShowHelpTopic(side_.sHelpTopic);
  switch (side_.helpBand) {
    case HelpBand::Captioned: Bill().BarControl().Bands("mnuCust"_key).SetCaption(LoadText("帮助")); break;
    case HelpBand::LeftAlone: break;
  }
}

/// A bill that another module pushed computes its rate anew.
void SettlementBill::RewriteRateOfPushedBill() {
  const BillEvent oBill = Bill();
  const Ref<Object> oPush = CreateServerObject("NUVMARAPPush.clsPush");
  // Required: the id stands before the table here, other than on load.
  std::array<Variant, 3> args{GetPropsString(), GetBillLong(oBill, "FBillId"_key, kHead), side_.sBillTable};
  if (LongOf(oPush->invoke(Member::GetBillTypeID, Access::Call, args)) != 1) return;
  oBill.SetFieldValue("FExchangeRate"_key, GetBillField(oBill, "FExchangeRate"_key, kHead), kHead);
}

/// A new bill goes to the host's save. Of a checked bill only the settlement fields are written, and the host's save
/// stores nothing.
void SettlementBill::SaveCommand(const Tool&, Variant&) {
  const BillEvent oBill = Bill();
  if (GetBillLong(oBill, "FBillId"_key, kHead) == 0) return;
  if (GetBillLong(oBill, "FStatus"_key, kHead) == kChecked) {
    SaveSettleFields();
    oBill.Form().SetNotSave(true);
    return;
  }
  RewriteRateOfPushedBill();
  ShowCreditStatus();
}

void SettlementBill::ExitCommand(const Tool&, Variant&) {
  if (GetBillLong(Bill(), "FBillId"_key, kHead) == 0) return;
  RewriteRateOfPushedBill();
}

}  // namespace arap

#include <algorithm>

#include "cli/player.h"
#include "frame/conversions.h"
#include "services/invoice_lists.h"
#include "services/type_keeper.h"

/// The part of the player that works on the tree of types and on the lists of invoices and opening balances.
namespace desk {

namespace {

struct TypeCommand {
  std::string_view sWord;
  std::string_view sTool;
};

constexpr TypeCommand kTypeCommands[] = {
    {"modify", "mnuEditModify"}, {"delete", "mnuEditDel"}, {"disable", "mnuEditUnuse"}, {"enable", "mnuEditUse"}};

std::string tool_of(const std::string& sWord) {
  const auto found =
      std::ranges::find_if(kTypeCommands, [&sWord](const TypeCommand& command) { return command.sWord == sWord; });
  return std::string(found == std::end(kTypeCommands) ? "mnuFileNewItem" : found->sTool);
}

}  // namespace

void ScenarioPlayer::types(const std::string& sCommand) {
  close_windows();
  if (sCommand == "open") types_ = open_type_window(session_, options_.sToday);
  if (sCommand == "view") types_ = open_type_view(session_, options_.sToday);
  tell("types " + sCommand);
}

BaseWindow& ScenarioPlayer::type_window() {
  if (!types_ || types_->closed()) fail("the types aren't open; write \"types open\" before this line");
  return *types_.get();
}

void ScenarioPlayer::select_node(const std::string& sNode) {
  BaseWindow& window = type_window();
  const BaseItem* pItem = window.find_number(sNode);
  if (pItem == nullptr && sNode != "root") fail("the tree has no node " + sNode + "; see \"desk show BOOK types\"");
  window.select_node(pItem == nullptr ? window.root() : pItem->nID);
  tell("  select " + (pItem == nullptr ? window.root_name() : pItem->sNumber + " " + pItem->sName) + ": " +
       std::to_string(window.grid().size()) + " below");
}

/// A type is worked on in the grid of the node above it.
void ScenarioPlayer::point_at(const std::string& sNumber) {
  BaseWindow& window = type_window();
  const BaseItem* pItem = window.find_number(sNumber);
  if (pItem == nullptr) fail("there is no type " + sNumber + "; see \"desk show BOOK types\"");
  const std::int32_t nID = pItem->nID;
  if (window.selected_node() != pItem->nParent) window.select_node(pItem->nParent);
  window.select_item(nID);
}

void ScenarioPlayer::type(const std::vector<std::string>& args) {
  BaseWindow& window = type_window();
  const bool bNew = args[0] == "new";
  if (args.size() == 2) {
    if (bNew) {
      select_node(args[1]);
    } else {
      point_at(args[1]);
    }
  }
  tell("type " + args[0] + (args.size() == 2 ? " " + args[1] : ""));
  const Outcome outcome = window.press(tool_of(args[0]));
  if (!outcome) return refused("the command", outcome.sReason);
  if (bNew && !window.bill()->shown("FNumber").empty()) tell("    proposed: " + window.bill()->shown("FNumber"));
}

void ScenarioPlayer::list(const std::vector<std::string>& args) {
  close_windows();
  const bool bInvoices = args[0] == "invoices";
  const OpeningSide side = args[1] == "receivables" ? OpeningSide::Receivables : OpeningSide::Payables;
  RecordListContent content = bInvoices ? invoice_list(arap::LongOf(arap::Variant(args[1]))) : opening_list(side);
  records_ = open_record_list(session_.database(), std::move(content));
  tell("list " + records_->content().sCaption + ": " + std::to_string(records_->lines().size()) + " lines");
}

void ScenarioPlayer::select_lines(const std::vector<std::string>& args) {
  std::vector<std::size_t> aLines;
  for (std::size_t n = 0; n < records_->lines().size(); ++n) {
    const std::string sNumber = records_->lines().text(n, "FBillNo");
    if (args[0] == "all" || std::ranges::find(args, sNumber) != args.end()) aLines.push_back(n);
  }
  if (args[0] != "all" && aLines.size() < args.size()) fail("the list hasn't all of these bills");
  tell("  select " + std::to_string(aLines.size()) + " of " + std::to_string(records_->lines().size()) + " lines");
  records_->select_lines(std::move(aLines));
}

Outcome ScenarioPlayer::press_in_front(const std::string& sTool) {
  if (records_) return records_->press(sTool);
  if (types_ && (types_->bill() == nullptr || types_->bill()->bar().find_tool(sTool) == nullptr))
    return types_->press(sTool);
  return bill().press(sTool);
}

Bar& ScenarioPlayer::bar_in_front(const std::string& sTool) {
  if (records_) return records_->bar();
  if (types_ && (types_->bill() == nullptr || types_->bill()->bar().find_tool(sTool) == nullptr)) return types_->bar();
  return bill().bar();
}

void ScenarioPlayer::close_windows() {
  if (window_) window_->close();
  window_.reset();
  types_.reset();
  records_.reset();
}

void ScenarioPlayer::tell_shown_bills() {
  for (; bill_lists_told_ < session_.shown_bill_lists.size(); ++bill_lists_told_) {
    const ShownBills& bills = session_.shown_bill_lists[bill_lists_told_];
    for (std::size_t n = 0; n < bills.aRows.size(); ++n) {
      tell("    bill list: " + arap::Concat(bills.value(n, "FBillNo")) + " of " +
           arap::Concat(bills.value(n, "FDate")) + ", " + arap::Concat(bills.value(n, "FAmountFor")));
    }
  }
}

void ScenarioPlayer::expect_type(const std::string& sNumber, const std::string& sState) {
  BaseWindow& window = type_window();
  const BaseItem* pItem = window.find_number(sNumber);
  if (sState == "gone" && pItem != nullptr) fail("the type " + sNumber + " is still there");
  if (sState == "gone") return;
  if (pItem == nullptr) fail("there is no type " + sNumber);
  const bool bHolds = sState == "there"     ? true
                      : sState == "leaf"    ? pItem->bLeaf
                      : sState == "parent"  ? !pItem->bLeaf
                      : sState == "enabled" ? !pItem->bDiscontinued
                                            : pItem->bDiscontinued;
  if (!bHolds) fail("the type " + sNumber + " isn't " + sState);
}

void ScenarioPlayer::expect_level(const std::string& sNumber, const std::string& sLevel) {
  const BaseItem* pItem = type_window().find_number(sNumber);
  if (pItem == nullptr) fail("there is no type " + sNumber);
  if (std::to_string(pItem->nLevel) != sLevel)
    fail("the type " + sNumber + " is on level " + std::to_string(pItem->nLevel) + ", expected " + sLevel);
}

void ScenarioPlayer::expect_shown(const std::string& sNumber) {
  const auto& aLists = session_.shown_bill_lists;
  const bool bShown =
      !aLists.empty() && !aLists.back().aRows.empty() && arap::Concat(aLists.back().value(0, "FBillNo")) == sNumber;
  if (!bShown) fail("the bill list doesn't show " + sNumber);
}

void ScenarioPlayer::expect_lines(const std::string& sCount) {
  if (!records_) fail("no list is open; write \"list invoices CLASS\" or \"list opening ...\" before this line");
  if (std::to_string(records_->lines().size()) != sCount)
    fail("the list has " + std::to_string(records_->lines().size()) + " lines, expected " + sCount);
}

}  // namespace desk

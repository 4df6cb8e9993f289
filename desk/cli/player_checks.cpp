#include <algorithm>

#include "cli/player.h"
#include "frame/contract_bill.h"
#include "frame/conversions.h"

/// The part of the player that looks: expectations, selection and loops.
namespace desk {

namespace {

std::int32_t currency_id(Database& database, const std::string& sCode) {
  return arap::LongOf(database.value("SELECT FCurrencyID FROM t_Currency WHERE FNumber = ? OR FName = ?",
                                     {Bind(sCode), Bind(sCode)}, std::int32_t{0}));
}

bool same_value(const std::string& sExpected, const std::string& sActual) {
  if (sExpected == sActual) return true;
  const arap::Variant vExpected(sExpected), vActual(sActual);
  return arap::IsNumeric(vExpected) && arap::IsNumeric(vActual) &&
         Money::from_double(arap::ToDouble(vExpected)) == Money::from_double(arap::ToDouble(vActual));
}

}  // namespace

void ScenarioPlayer::expect(const Step& step, const std::vector<std::string>& args) {
  switch (step.verb) {
    case Verb::ExpectField: return expect_value(args[0], arap::kHead, args[1]);
    case Verb::ExpectRow: return expect_value(args[1], row_number(args[0]), args[2]);
    case Verb::ExpectMessage: return expect_message(args[0]);
    case Verb::ExpectStatus: return expect_value("FStatus", arap::kHead, args[0]);
    case Verb::ExpectTool: return expect_tool(args[0], args[1]);
    case Verb::ExpectOpen: return expect_open(args[0], args[1]);
    case Verb::ExpectType: return expect_type(args[0], args[1]);
    case Verb::ExpectLevel: return expect_level(args[0], args[1]);
    case Verb::ExpectShown: return expect_shown(args[0]);
    case Verb::ExpectLines: return expect_lines(args[0]);
    case Verb::ExpectLock: {
      const std::string sName = field_name(args[0], arap::kHead);
      const bool bLocked = bill().locked(args[0]);
      if (bLocked != (args[1] == "locked")) fail(sName + " is " + (bLocked ? "locked" : "free") + ", not " + args[1]);
      return;
    }
    default: fail("this line can't be played");
  }
}

void ScenarioPlayer::expect_value(const std::string& sField, std::int32_t nRow, const std::string& sExpected) {
  const std::string sName = field_name(sField, nRow);
  const BillWindow& window = bill();
  const std::string sValue = arap::Concat(window.value(sField, nRow));
  const std::string sShown = window.shown(sField, nRow);
  if (same_value(sExpected, sValue) || sExpected == sShown || sExpected == window.code(sField, nRow)) return;
  fail(sName + " is " + (sShown.empty() ? "\"" + sValue + "\"" : sShown) + ", expected " + sExpected);
}

void ScenarioPlayer::expect_message(const std::string& sText) {
  const auto found = std::find_if(messages_.begin(), messages_.end(), [&sText](const std::string& sMessage) {
    return sMessage.find(sText) != std::string::npos;
  });
  if (found != messages_.end()) return;
  fail("the message \"" + sText + "\" didn't come; " +
       (messages_.empty() ? "there was none" : "the last one was \"" + messages_.back() + "\""));
}

void ScenarioPlayer::expect_tool(const std::string& sTool, const std::string& sState) {
  const BarTool* tool = bar_in_front(sTool).find_tool(sTool);
  if (tool == nullptr) fail("the bar has no command \"" + sTool + "\"");
  const bool bHolds = sState == "enabled"    ? tool->bEnabled
                      : sState == "disabled" ? !tool->bEnabled
                      : sState == "visible"  ? tool->bVisible
                      : sState == "hidden"   ? !tool->bVisible
                                             : tool->bChecked;
  if (!bHolds) fail("the command " + sTool + " isn't " + sState);
}

void ScenarioPlayer::expect_open(const std::string& sSource, const std::string& sAmount) {
  const OpenAmount open = open_amount(session_.database(), sSource);
  if (!open.bFound) fail("the book has no source bill " + sSource + "; see \"desk show BOOK receivables\"");
  if (open.amount != Money::parse(sAmount))
    fail("on " + sSource + " there is " + open.amount.text() + " open, expected " + sAmount);
  tell("  open on " + sSource + ": " + open.amount.text());
}

void ScenarioPlayer::select(const std::vector<std::string>& args) {
  if (records_) return select_lines(args);
  if (types_) return select_node(args[0]);
  BillWindow& window = bill();
  const bool bAll = args[0] == "all";
  std::int32_t nCurrency = 0;
  if (args.size() == 3 && bAll) {
    nCurrency = currency_id(session_.database(), args[2]);
    if (nCurrency == 0) fail("the book has no currency \"" + args[2] + "\"");
  }
  std::vector<std::string> missing = bAll ? std::vector<std::string>{} : args;
  std::size_t nOffered = 0, nTaken = 0;
  window.set_chooser([&](const SourceList& list) {
    std::vector<std::size_t> chosen;
    nOffered = list.size();
    for (std::size_t i = 0; i < list.size(); ++i) {
      const std::string sNumber = list.text(i, "FBillNo");
      const bool bWanted = bAll ? nCurrency == 0 || arap::LongOf(list.value(i, "FCurrencyID")) == nCurrency
                                : std::find(args.begin(), args.end(), sNumber) != args.end();
      if (!bWanted) continue;
      chosen.push_back(i);
      std::erase(missing, sNumber);
    }
    nTaken = chosen.size();
    return chosen;
  });
  const Outcome outcome = window.press(std::string(kind_->side.sSelectTool));
  if (!missing.empty() && nOffered > 0)
    fail("the selection doesn't offer " + missing.front() + "; it may be settled already");
  if (!outcome || nOffered == 0) return refused("the selection", outcome.sReason);
  tell("  select " + std::to_string(nTaken) + " of " + std::to_string(nOffered) + " open bills");
}

std::vector<std::map<std::string, std::string>> loop_turns(Database& database, std::string_view sThing) {
  const bool bReceipts = sThing == kOpenCustomers || sThing == kCheckedReceipts;
  const SettlementTables& tables = bReceipts ? kReceiptTables : kPaymentTables;
  std::vector<std::map<std::string, std::string>> turns;
  if (sThing.starts_with(kNumbersUpTo)) {
    const int nLast = std::stoi(std::string(sThing.substr(kNumbersUpTo.size())));
    for (int n = 1; n <= nLast; ++n) turns.push_back({{"number", std::to_string(n)}});
    return turns;
  }
  if (sThing == kOpenCustomers || sThing == kOpenSuppliers) {
    const Rows rows =
        database.query(side_sql(tables,
                                "SELECT DISTINCT p.FNumber AS FNumber, c.FNumber AS FCurrency FROM {openview} v"
                                " JOIN {partners} p ON p.FItemID = v.{viewpartner}"
                                " JOIN t_Currency c ON c.FCurrencyID = v.FCurrencyID ORDER BY 1, 2"));
    for (std::size_t i = 0; i < rows.size(); ++i) {
      turns.push_back(
          {{bReceipts ? "customer" : "supplier", rows.text(i, "FNumber")}, {"currency", rows.text(i, "FCurrency")}});
    }
    return turns;
  }
  // The newest bill first: what it built on is still there when it is taken back.
  const Rows rows =
      database.query(side_sql(tables, "SELECT FBillNo FROM {bill} WHERE FStatus = 1 ORDER BY FBillID DESC"));
  for (std::size_t i = 0; i < rows.size(); ++i)
    turns.push_back({{bReceipts ? "receipt" : "payment", rows.text(i, "FBillNo")}});
  return turns;
}

OpenAmount open_amount(Database& database, const std::string& sSource) {
  OpenAmount open;
  for (const SettlementTables* tables : {&kReceiptTables, &kPaymentTables}) {
    const Rows rows =
        database.query(side_sql(*tables,
                                "SELECT FAmountFor - FReceiveAmountFor AS FLeft FROM {invoice} WHERE FBillNo = ?"
                                " UNION ALL SELECT FAmountFor - FCheckAmountFor FROM {other} WHERE FBillNo = ?"),
                       {Bind(sSource), Bind(sSource)});
    for (std::size_t i = 0; i < rows.size(); ++i) {
      open.bFound = true;
      open.amount += rows.money(i, "FLeft");
    }
  }
  return open;
}

}  // namespace desk

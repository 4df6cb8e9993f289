#include "cli/show.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "services/bill_kinds.h"
#include "services/book_queries.h"

namespace desk {

namespace {

struct Column {
  std::string sColumn;
  std::string sTitle;
  bool bMoney;
};

struct List {
  std::string sSql;
  std::vector<Column> columns;
};

List open_items(const SettlementTables& tables) {
  return {open_items_sql(tables),
          {{"FPartner", "partner", false},
           {"FPartnerName", "name", false},
           {"FBillNo", "number", false},
           {"FDate", "date", false},
           {"FDueDate", "due", false},
           {"FCurrency", "currency", false},
           {"FAmountFor", "amount", true},
           {"FSettledFor", "settled", true},
           {"FOpenFor", "open", true},
           {"FOpen", "open_base", true}}};
}

std::string bill_select(const SettlementTables& tables, std::string_view sKind) {
  return side_sql(tables, "SELECT '" + std::string(sKind) +
                              "' AS FKind, b.FBillNo AS FBillNo, b.FDate AS FDate, p.FNumber AS FPartner, b.{type} AS"
                              " FType, c.FNumber AS FCurrency, b.FAmountFor AS FSettledFor, b.F{got}AmountFor AS"
                              " FMoneyFor, b.FDiscountAmountFor AS FDiscountFor, b.FStatus AS FStatus, b.FVoucherID AS"
                              " FVoucherID, b.FBillID AS FBillID FROM {bill} b LEFT JOIN {partners} p"
                              " ON p.FItemID = b.{partner} LEFT JOIN t_Currency c ON c.FCurrencyID = b.FCurrencyID");
}

// An other bill settles nothing: its amount stands as money, and what was settled of it so far as settled.
std::string other_bill_select(const OtherTables& tables, std::string_view sKind) {
  return side_sql(tables.side, "SELECT '" + std::string(sKind) +
                                   "', b.FBillNo, b.FDate, p.FNumber, b.FBillTypeID, c.FNumber, b.FCheckAmountFor,"
                                   " b.FAmountFor, 0, b.FStatus, b.FVoucherID, b.FBillID FROM {other} b LEFT JOIN"
                                   " {partners} p ON p.FItemID = b.{partner} LEFT JOIN t_Currency c"
                                   " ON c.FCurrencyID = b.FCurrencyID");
}

List bills() {
  std::string sSql;
  for (const BillKind& kind : bill_kinds()) {
    if (!sSql.empty()) sSql += " UNION ALL ";
    sSql += kind.other != nullptr ? other_bill_select(*kind.other, kind.sWord) : bill_select(kind.side, kind.sWord);
  }
  return {sSql + " ORDER BY 1 DESC, 12",
          {{"FKind", "kind", false},
           {"FBillNo", "number", false},
           {"FDate", "date", false},
           {"FPartner", "partner", false},
           {"FType", "type", false},
           {"FCurrency", "currency", false},
           {"FSettledFor", "settled", true},
           {"FMoneyFor", "money", true},
           {"FDiscountFor", "discount", true},
           {"FStatus", "checked", false},
           {"FVoucherID", "voucher", false}}};
}

List action_log() {
  return {action_log_sql(LogOrder::OldestFirst),
          {{"FTime", "time", false},
           {"FUser", "user", false},
           {"FMachine", "machine", false},
           {"FCode", "code", false},
           {"FResult", "result", false},
           {"FText", "text", false}}};
}

// Who works on what: the locks between the seats.
List tasks() {
  return {"SELECT FFunction, FExtra, FUser, FMachine, FProcess, FSince FROM t_Task ORDER BY FTaskID",
          {{"FFunction", "function", false},
           {"FExtra", "bills", false},
           {"FUser", "user", false},
           {"FMachine", "machine", false},
           {"FProcess", "process", false},
           {"FSince", "since", false}}};
}

List types() {
  return {
      "SELECT t.FNumber AS FNumber, t.FName AS FName, b.FName AS FBranchName, t.FLevels AS FLevels,"
      " CASE t.FIsLeaf WHEN 0 THEN 'parent' ELSE 'leaf' END AS FKind,"
      " CASE t.FDiscontinued WHEN 0 THEN '' ELSE 'disabled' END AS FState FROM t_RP_InOutType t"
      " LEFT JOIN t_RP_InOutType b ON b.FBranch = t.FBranch AND b.FParentID = 1000207 ORDER BY t.FNumber",
      {{"FNumber", "number", false},
       {"FName", "name", false},
       {"FBranchName", "branch", false},
       {"FLevels", "level", false},
       {"FKind", "kind", false},
       {"FState", "state", false}}};
}

// Sale and purchase in one list.
List invoices(bool bOpening) {
  const std::string sCondition = bOpening ? "s.FIsBegin = 1" : "s.FIsBegin = 0";
  const auto side = [&sCondition](const std::string& sKind, const SettlementTables& tables) {
    return "SELECT '" + sKind + "' AS FKind, i.* FROM (" + invoices_sql(tables, sCondition) + ") i";
  };
  return {side("sale", kReceiptTables) + " UNION ALL " + side("purchase", kPaymentTables) +
              " ORDER BY FKind DESC, FClass, FBillNo",
          {{"FKind", "kind", false},
           {"FClass", "class", false},
           {"FBillNo", "number", false},
           {"FDate", "date", false},
           {"FPartner", "partner", false},
           {"FPartnerName", "name", false},
           {"FCurrency", "currency", false},
           {"FAmountFor", "amount", true},
           {"FReceiveAmountFor", "settled", true},
           {"FOpenFor", "open", true}}};
}

List list_of(const std::string& sWhat) {
  if (sWhat == "receivables") return open_items(kReceiptTables);
  if (sWhat == "payables") return open_items(kPaymentTables);
  if (sWhat == "bills") return bills();
  if (sWhat == "tasks") return tasks();
  if (sWhat == "types") return types();
  if (sWhat == "invoices") return invoices(false);
  if (sWhat == "opening") return invoices(true);
  return action_log();
}

std::string cell_text(const Rows& rows, std::size_t nRow, const Column& column) {
  return column.bMoney ? rows.money(nRow, column.sColumn).text() : rows.text(nRow, column.sColumn);
}

// Columns of a terminal: a character outside Latin takes two.
std::size_t width_of(const std::string& sText) {
  std::size_t nWidth = 0;
  for (const char c : sText) {
    const auto nByte = static_cast<unsigned char>(c);
    if (nByte < 0x80) nWidth += 1;
    if (nByte >= 0xC0) nWidth += nByte >= 0xE0 ? 2 : 1;
  }
  return nWidth;
}

void print_json(const Rows& rows, const List& list, std::ostream& out) {
  nlohmann::ordered_json lines = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    nlohmann::ordered_json line;
    for (const Column& column : list.columns) line[column.sTitle] = cell_text(rows, i, column);
    lines.push_back(std::move(line));
  }
  out << lines.dump(2) << '\n';
}

void print_table(const Rows& rows, const List& list, std::ostream& out) {
  std::vector<std::vector<std::string>> lines(1);
  for (const Column& column : list.columns) lines[0].push_back(column.sTitle);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    lines.emplace_back();
    for (const Column& column : list.columns) lines.back().push_back(cell_text(rows, i, column));
  }
  std::vector<std::size_t> widths(list.columns.size());
  for (const auto& line : lines)
    for (std::size_t n = 0; n < line.size(); ++n) widths[n] = std::max(widths[n], width_of(line[n]));
  for (const auto& line : lines) {
    std::string sLine;
    for (std::size_t n = 0; n < line.size(); ++n) {
      const std::string sPadding(widths[n] - width_of(line[n]), ' ');
      sLine += list.columns[n].bMoney ? sPadding + line[n] : line[n] + sPadding;
      sLine += "  ";
    }
    sLine.erase(sLine.find_last_not_of(' ') + 1);
    out << sLine << '\n';
  }
  out << rows.size() << (rows.size() == 1 ? " line\n" : " lines\n");
}

}  // namespace

void show_list(Database& database, const std::string& sWhat, bool bJson, std::ostream& out) {
  const List list = list_of(sWhat);
  const Rows rows = database.query(list.sSql);
  if (bJson) {
    print_json(rows, list, out);
  } else {
    print_table(rows, list, out);
  }
}

}  // namespace desk

#include "engine/bill_store.h"

#include <cstdio>

#include "frame/conversions.h"

namespace desk {

namespace {

/// The columns that the store gives itself.
bool is_own_column(const TemplateField& field) {
  return field.sColumn.empty() || arap::EqualsNoCase(field.sColumn, "FBillID") ||
         (field.nPage == 1 && arap::EqualsNoCase(field.sColumn, "FBillNo"));
}

/// What only the services write after the first store: a save must not put an older state back.
bool is_kept_by_services(const TemplateField& field) {
  for (const char* sKey : {"FStatus", "FCheckAmountFor", "FCheckAmount", "FVoucherID", "FChecker", "FCheckDate"}) {
    if (arap::EqualsNoCase(field.sKey, sKey)) return true;
  }
  return false;
}

Bind bind_of(const TemplateField& field, const Cell& cell) {
  switch (field.kind) {
    case FieldKind::Money: return Money::from_double(arap::NumberOf(cell.vValue));
    case FieldKind::Id:
    case FieldKind::Integer: return arap::LongOf(cell.vValue);
    case FieldKind::Rate:
    case FieldKind::Percent: return arap::NumberOf(cell.vValue);
    case FieldKind::Text:
    case FieldKind::Date: break;
  }
  return arap::Concat(cell.vValue);
}

Value value_of(const TemplateField& field, const Value& vStored) {
  if (field.kind == FieldKind::Money) return Money::from_stored(vStored).to_double();
  if (vStored.is_null()) return {};
  return vStored;
}

bool is_blank(const Value& vValue) { return arap::Trim(arap::Concat(vValue)).empty(); }

std::string marks(std::size_t nCount) {
  std::string sMarks;
  for (std::size_t i = 0; i < nCount; ++i) sMarks += i == 0 ? "?" : ", ?";
  return sMarks;
}

}  // namespace

BillStore::Stored BillStore::save(const DataRow& head, const BodyPage& body, std::int32_t nBillID) {
  Transaction transaction(database_);
  Stored stored{nBillID, {}};
  const std::string& sTable = template_.page(1).sTable;
  if (nBillID == 0) {
    stored.nBillID = arap::LongOf(database_.value("SELECT COALESCE(MAX(FBillID), 0) + 1 FROM " + sTable));
    stored.sBillNo = next_number();
    insert_head(head, stored);
  } else {
    update_head(head, nBillID);
    stored.sBillNo = arap::Concat(database_.value("SELECT FBillNo FROM " + sTable + " WHERE FBillID = ?", {nBillID}));
    database_.exec("DELETE FROM " + template_.page(2).sTable + " WHERE FBillID = ?", {nBillID});
  }
  insert_rows(body, stored.nBillID);
  transaction.commit();
  return stored;
}

std::string BillStore::next_number() {
  Rows rows =
      database_.query("UPDATE t_BillNumber SET FNext = FNext + 1 WHERE FClassTypeID = ? RETURNING FPrefix, FNext",
                      {template_.nClassType});
  if (rows.empty()) {
    rows = database_.query(
        "INSERT INTO t_BillNumber (FClassTypeID, FPrefix, FNext) VALUES (?, ?, 2) RETURNING FPrefix, FNext",
        {template_.nClassType, template_.sNumberPrefix});
  }
  char sNumber[16];
  std::snprintf(sNumber, sizeof sNumber, "%06d", rows.integer(0, "FNext") - 1);
  return rows.text(0, "FPrefix") + sNumber;
}

void BillStore::insert_head(const DataRow& head, const Stored& stored) {
  std::string sColumns = "FBillID, FBillNo";
  Binds binds{stored.nBillID, stored.sBillNo};
  for (std::size_t i = 0; i < head.size(); ++i) {
    const TemplateField& field = head.field(i);
    if (is_own_column(field)) continue;
    sColumns += ", " + field.sColumn;
    binds.push_back(bind_of(field, head.cell(i)));
  }
  database_.exec("INSERT INTO " + template_.page(1).sTable + " (" + sColumns + ") VALUES (" + marks(binds.size()) + ")",
                 binds);
}

void BillStore::update_head(const DataRow& head, std::int32_t nBillID) {
  std::string sSet;
  Binds binds;
  for (std::size_t i = 0; i < head.size(); ++i) {
    const TemplateField& field = head.field(i);
    if (is_own_column(field) || is_kept_by_services(field)) continue;
    sSet += (sSet.empty() ? "" : ", ") + field.sColumn + " = ?";
    binds.push_back(bind_of(field, head.cell(i)));
  }
  binds.emplace_back(nBillID);
  const std::string& sTable = template_.page(1).sTable;
  // A bill that was checked meanwhile, by another seat, stays as it was checked.
  const auto nChanged =
      database_.exec("UPDATE " + sTable + " SET " + sSet + " WHERE FBillID = ? AND FStatus = 0", binds);
  if (nChanged == 0) {
    throw DeskError(ErrorKind::Constraint, "单据已被其他用户审核或删除，不能保存。",
                    sTable + " " + std::to_string(nBillID), "请重新打开单据。");
  }
}

void BillStore::insert_rows(const BodyPage& body, std::int32_t nBillID) {
  const TemplatePage& page = template_.page(2);
  std::vector<std::size_t> aPositions;
  std::string sColumns = "FBillID, FIndex";
  for (const std::size_t nField : page.aFields) {
    const TemplateField& field = template_.field(nField);
    if (is_own_column(field)) continue;
    aPositions.push_back(field.nPosition);
    sColumns += ", " + field.sColumn;
  }
  const std::string sSql =
      "INSERT INTO " + page.sTable + " (" + sColumns + ") VALUES (" + marks(aPositions.size() + 2) + ")";
  const std::size_t nKeyField = template_.find_key(page.sKeyField);
  std::int32_t nIndex = 0;
  for (std::int32_t nRow = 1; const DataRow* pRow = body.row(nRow); ++nRow) {
    if (nKeyField != BillTemplate::kNone && is_blank(pRow->cell(template_.field(nKeyField).nPosition).vValue)) continue;
    Binds binds{nBillID, ++nIndex};
    for (const std::size_t nPosition : aPositions)
      binds.push_back(bind_of(pRow->field(nPosition), pRow->cell(nPosition)));
    database_.exec(sSql, binds);
  }
}

std::vector<int> BillStore::columns_of(const Rows& rows, std::int32_t nPage) const {
  std::vector<int> aColumns;
  for (const std::size_t nField : template_.page(nPage).aFields) {
    const std::string& sColumn = template_.field(nField).sColumn;
    aColumns.push_back(sColumn.empty() ? -1 : rows.find_column(sColumn));
  }
  return aColumns;
}

void BillStore::fill(DataRow& row, const Rows& rows, std::size_t nRow, const std::vector<int>& aColumns) const {
  for (std::size_t i = 0; i < aColumns.size(); ++i) {
    if (aColumns[i] < 0) continue;
    row.cell(i).vValue = value_of(row.field(i), rows.at(nRow, static_cast<std::size_t>(aColumns[i])));
  }
}

bool BillStore::load(std::int32_t nBillID, DataRow& head, BodyPage& body) {
  const Rows heads = database_.query("SELECT * FROM " + template_.page(1).sTable + " WHERE FBillID = ?", {nBillID});
  if (heads.empty()) return false;
  fill(head, heads, 0, columns_of(heads, 1));
  const Rows rows =
      database_.query("SELECT * FROM " + template_.page(2).sTable + " WHERE FBillID = ? ORDER BY FIndex", {nBillID});
  const std::vector<int> aColumns = columns_of(rows, 2);
  body.clear();
  body.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) fill(body.add_row(), rows, i, aColumns);
  return true;
}

std::int32_t BillStore::find_number(const std::string& sBillNo) {
  return arap::LongOf(
      database_.value("SELECT FBillID FROM " + template_.page(1).sTable + " WHERE FBillNo = ?", {sBillNo}));
}

}  // namespace desk

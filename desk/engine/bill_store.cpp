#include "engine/bill_store.h"

#include <cstdio>
#include <span>

#include "frame/conversions.h"

namespace desk {

namespace {

/// Of a body that wasn't read from the bill; no store has it.
constexpr std::int32_t kNoVersion = -1;
/// Rows that one statement stores; more of them wouldn't make it faster.
constexpr std::size_t kRowsAtOnce = 16;

/// The columns that the store gives itself.
bool is_own_column(const TemplateField& field) {
  return field.sColumn.empty() || arap::EqualsNoCase(field.sColumn, "FBillID") ||
         (field.nPage == 1 && arap::EqualsNoCase(field.sColumn, "FBillNo"));
}

Bind bind_of(const TemplateField& field, const Value& vValue) {
  switch (field.kind) {
    case FieldKind::Money: return Money::from_double(arap::NumberOf(vValue));
    case FieldKind::Id:
    case FieldKind::Integer: return arap::LongOf(vValue);
    case FieldKind::Rate:
    case FieldKind::Percent: return arap::NumberOf(vValue);
    case FieldKind::Text:
    case FieldKind::Date: break;
  }
  return arap::Concat(vValue);
}

/// What bind_of stores, as value_of would read it.
Value as_stored(const TemplateField& field, const Value& vValue) {
  if (field.sColumn.empty()) return {};
  if (is_own_column(field)) return vValue;
  switch (field.kind) {
    case FieldKind::Money: return Money::from_double(arap::NumberOf(vValue)).to_double();
    case FieldKind::Id:
    case FieldKind::Integer: return arap::LongOf(vValue);
    case FieldKind::Rate:
    case FieldKind::Percent: return arap::NumberOf(vValue);
    case FieldKind::Text:
    case FieldKind::Date: break;
  }
  return vValue.is_text() ? vValue : Value(arap::Concat(vValue));
}

Value value_of(const TemplateField& field, const Value& vStored) {
  if (field.kind == FieldKind::Money) return Money::from_stored(vStored).to_double();
  if (vStored.is_null()) return {};
  return vStored;
}

bool is_blank(const Value& vValue) { return arap::Trim(arap::Concat(vValue)).empty(); }

/// Whether the book holds the row of that index already.
bool stands_at(const std::vector<DataRow*>& aRows, std::int32_t nIndex, const BodyInBook& state) {
  const auto nRow = static_cast<std::size_t>(nIndex) - 1;
  return nIndex <= state.nLastIndex && nRow < aRows.size() && aRows[nRow]->index_in_book() == nIndex;
}

std::string repeated(std::string_view sPart, std::size_t nCount) {
  std::string sList;
  for (std::size_t i = 0; i < nCount; ++i) sList.append(i == 0 ? "" : ", ").append(sPart);
  return sList;
}

std::string marks(std::size_t nCount) { return repeated("?", nCount); }

}  // namespace

BillStore::Stored BillStore::save(const DataRow& head, BodyPage& body, std::int32_t nBillID,
                                  const std::function<void()>& guard) {
  Transaction transaction(database_);
  if (guard) guard();
  Stored stored{nBillID, {}};
  BodyInBook state = body.in_book();
  const std::string& sTable = template_.page(1).sTable;
  if (nBillID == 0) {
    stored.nBillID = arap::LongOf(database_.value("SELECT COALESCE(MAX(FBillID), 0) + 1 FROM " + sTable));
    stored.sBillNo = typed_number(head, 0);
    if (stored.sBillNo.empty()) stored.sBillNo = next_number();
    insert_head(head, stored);
    state = {stored.nBillID, 0, 0};
  } else {
    const std::string sTyped = typed_number(head, nBillID);
    update_head(head, nBillID, state);
    if (!sTyped.empty()) database_.exec("UPDATE " + sTable + " SET FBillNo = ? WHERE FBillID = ?", {sTyped, nBillID});
    stored.sBillNo = arap::Concat(database_.value("SELECT FBillNo FROM " + sTable + " WHERE FBillID = ?", {nBillID}));
    ++state.nVersion;
  }
  const std::vector<DataRow*> aRows = used_rows(body);
  delete_former_rows(aRows, state);
  insert_rows(aRows, state);
  transaction.commit();
  note_stored(aRows, state);
  body.set_in_book({state.nBillID, state.nVersion, static_cast<std::int32_t>(aRows.size())});
  return stored;
}

/// The number that the user gave the bill; "" where the number is the store's. Raises DeskError for one that another
/// bill has.
std::string BillStore::typed_number(const DataRow& head, std::int32_t nBillID) {
  const TemplateField& field = template_.field(template_.find_key("FBillNo"));
  if (field.bReadOnly) return {};
  const std::string sNumber(arap::Trim(arap::Concat(head.cell(field.nPosition).value())));
  const std::int32_t nHolder = sNumber.empty() ? 0 : find_number(sNumber);
  if (nHolder != 0 && nHolder != nBillID) {
    throw DeskError(ErrorKind::Constraint, "编号为“" + sNumber + "”的单据已经存在。", template_.page(1).sTable,
                    "请修改单据编号。");
  }
  return sNumber;
}

/// The next number that no bill has, here or in the twin's table.
std::string BillStore::next_number() {
  const std::string& sTwin = template_.sNumberTwin;
  while (true) {
    std::string sNumber = count_up();
    if (find_number(sNumber) != 0) continue;
    if (sTwin.empty() || database_.query("SELECT 1 FROM " + sTwin + " WHERE FBillNo = ?", {sNumber}).empty())
      return sNumber;
  }
}

std::string BillStore::count_up() {
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
    binds.push_back(bind_of(field, head.cell(i).value()));
  }
  database_.exec("INSERT INTO " + template_.page(1).sTable + " (" + sColumns + ") VALUES (" + marks(binds.size()) + ")",
                 binds);
}

void BillStore::update_head(const DataRow& head, std::int32_t nBillID, const BodyInBook& state) {
  std::string sSet = "FVersion = FVersion + 1";
  Binds binds;
  for (std::size_t i = 0; i < head.size(); ++i) {
    const TemplateField& field = head.field(i);
    if (is_own_column(field) || field.bKept) continue;
    sSet += ", " + field.sColumn + " = ?";
    binds.push_back(bind_of(field, head.cell(i).value()));
  }
  binds.emplace_back(nBillID);
  binds.emplace_back(state.nBillID == nBillID ? state.nVersion : kNoVersion);
  const std::string& sTable = template_.page(1).sTable;
  // A bill that was stored or checked meanwhile, by another seat, stays as it is: these rows are those of its last
  // load.
  const auto nChanged = database_.exec(
      "UPDATE " + sTable + " SET " + sSet + " WHERE FBillID = ? AND FVersion = ? AND FStatus = 0", binds);
  if (nChanged == 0) {
    throw DeskError(ErrorKind::Constraint, "单据已被其他用户修改、审核或删除，不能保存。",
                    sTable + " " + std::to_string(nBillID), "请重新打开单据。");
  }
}

/// The rows that are stored, in the order of their FIndex.
std::vector<DataRow*> BillStore::used_rows(const BodyPage& body) const {
  std::vector<DataRow*> aRows;
  aRows.reserve(body.size());
  const std::size_t nKeyField = template_.find_key(template_.page(2).sKeyField);
  for (std::int32_t nRow = 1; DataRow* pRow = body.row(nRow); ++nRow) {
    const bool bUsed =
        nKeyField == BillTemplate::kNone || !is_blank(pRow->cell(template_.field(nKeyField).nPosition).value());
    if (bUsed) aRows.push_back(pRow);
  }
  return aRows;
}

/// Takes away the rows of the book that others take the place of, or none.
void BillStore::delete_former_rows(const std::vector<DataRow*>& aRows, const BodyInBook& state) {
  const std::string sSql = "DELETE FROM " + template_.page(2).sTable + " WHERE FBillID = ? AND FIndex = ?";
  for (std::int32_t nIndex = 1; nIndex <= state.nLastIndex; ++nIndex) {
    if (!stands_at(aRows, nIndex, state)) database_.exec(sSql, {state.nBillID, nIndex});
  }
}

void BillStore::insert_rows(const std::vector<DataRow*>& aRows, const BodyInBook& state) {
  const TemplatePage& page = template_.page(2);
  std::vector<const TemplateField*> aFields;
  std::string sColumns = "FBillID, FIndex";
  for (const std::size_t nField : page.aFields) {
    const TemplateField& field = template_.field(nField);
    if (is_own_column(field)) continue;
    aFields.push_back(&field);
    sColumns += ", " + field.sColumn;
  }
  const std::string sInsert = "INSERT INTO " + page.sTable + " (" + sColumns + ") VALUES ";
  const std::string sRow = "(" + marks(aFields.size() + 2) + ")";
  std::vector<std::int32_t> aNew;
  for (std::int32_t nIndex = 1; nIndex <= static_cast<std::int32_t>(aRows.size()); ++nIndex)
    if (!stands_at(aRows, nIndex, state)) aNew.push_back(nIndex);
  Binds binds;
  for (std::span<const std::int32_t> aLeft(aNew); !aLeft.empty();) {
    const auto aNow = aLeft.first(aLeft.size() < kRowsAtOnce ? 1 : kRowsAtOnce);
    binds.clear();
    for (const std::int32_t nIndex : aNow) {
      const DataRow& row = *aRows[static_cast<std::size_t>(nIndex) - 1];
      binds.emplace_back(state.nBillID);
      binds.emplace_back(nIndex);
      for (const TemplateField* pField : aFields)
        binds.push_back(bind_of(*pField, row.cell(pField->nPosition).value()));
    }
    database_.exec(sInsert + repeated(sRow, aNow.size()), binds);
    aLeft = aLeft.subspan(aNow.size());
  }
}

/// The window shows what was stored: the values of the rows become those that a load would read.
void BillStore::note_stored(const std::vector<DataRow*>& aRows, const BodyInBook& state) {
  std::int32_t nIndex = 0;
  for (DataRow* pRow : aRows) {
    if (stands_at(aRows, ++nIndex, state)) continue;
    for (std::size_t i = 0; i < pRow->size(); ++i) pRow->put(i, as_stored(pRow->field(i), pRow->cell(i).value()));
    pRow->stand_in_book(nIndex);
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
    row.put(i, value_of(row.field(i), rows.at(nRow, static_cast<std::size_t>(aColumns[i]))));
  }
}

void BillStore::read_rows(const Rows& rows, BodyPage& body) const {
  const std::vector<int> aColumns = columns_of(rows, 2);
  body.clear();
  body.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    DataRow& row = body.add_row();
    fill(row, rows, i, aColumns);
    row.stand_in_book(rows.integer(i, "FIndex"));
  }
}

bool BillStore::load(std::int32_t nBillID, DataRow& head, BodyPage& body) {
  const Rows heads = database_.query("SELECT * FROM " + template_.page(1).sTable + " WHERE FBillID = ?", {nBillID});
  if (heads.empty()) return false;
  fill(head, heads, 0, columns_of(heads, 1));
  const std::int32_t nVersion = heads.integer(0, "FVersion");
  if (body.in_book() == BodyInBook{nBillID, nVersion, body.in_book().nLastIndex} && body.is_as_in_book()) {
    body.forget_marks();
    return true;
  }
  const Rows rows =
      database_.query("SELECT * FROM " + template_.page(2).sTable + " WHERE FBillID = ? ORDER BY FIndex", {nBillID});
  read_rows(rows, body);
  body.set_in_book({nBillID, nVersion, rows.empty() ? 0 : rows.integer(rows.size() - 1, "FIndex")});
  return true;
}

std::int32_t BillStore::find_number(const std::string& sBillNo) {
  return arap::LongOf(
      database_.value("SELECT FBillID FROM " + template_.page(1).sTable + " WHERE FBillNo = ?", {sBillNo}));
}

/// Numbers are given once, so they are an order.
std::int32_t BillStore::neighbour(std::int32_t nBillID, Direction direction) {
  const bool bNext = direction == Direction::Next;
  if (nBillID == 0 && bNext) return 0;
  const std::string& sTable = template_.page(1).sTable;
  const std::string sOrder = bNext ? " ORDER BY FBillNo LIMIT 1" : " ORDER BY FBillNo DESC LIMIT 1";
  if (nBillID == 0) return arap::LongOf(database_.value("SELECT FBillID FROM " + sTable + sOrder));
  return arap::LongOf(database_.value("SELECT FBillID FROM " + sTable + " WHERE FBillNo " + (bNext ? ">" : "<") +
                                          " (SELECT FBillNo FROM " + sTable + " WHERE FBillID = ?)" + sOrder,
                                      {nBillID}));
}

}  // namespace desk

#include "engine/bill_data.h"

#include <algorithm>

#include "data/automation_names.h"
#include "data/trace.h"
#include "engine/containers.h"
#include "frame/conversions.h"

namespace desk {

using arap::operator""_key;

namespace {

enum class RecordKey { Value, Display, Code, Old, Modify, ControlType, Other };

RecordKey record_key(const Variant& vKey) {
  // Nearly every call brings one of these very keys, so the place decides before the letters do.
  if (vKey.is_text()) {
    const arap::TextBody* pBody = vKey.as<arap::Text>().body();
    if (pBody == "FFLD"_key.body()) return RecordKey::Value;
    if (pBody == "FModify"_key.body()) return RecordKey::Modify;
  }
  static constexpr std::pair<std::string_view, RecordKey> kKeys[] = {
      {"FFLD", RecordKey::Value}, {"FDSP", RecordKey::Display},   {"FFND", RecordKey::Code},
      {"FOLD", RecordKey::Old},   {"FMODIFY", RecordKey::Modify}, {"FCTLTYPE", RecordKey::ControlType},
  };
  const std::string sKey = arap::UpperCase(arap::Concat(vKey));
  for (const auto& [sName, key] : kKeys) {
    if (sKey == sName) return key;
  }
  return RecordKey::Other;
}

}  // namespace

DataRow::DataRow(std::shared_ptr<const BillTemplate> bill, std::int32_t nPage)
    : template_(std::move(bill)), page_(nPage), cells_(template_->page(nPage).aFields.size()) {}

std::size_t DataRow::position(const Variant& vKey) const {
  const std::size_t nField = template_->find(vKey);
  if (nField == BillTemplate::kNone || template_->field(nField).nPage != page_) return BillTemplate::kNone;
  return template_->field(nField).nPosition;
}

void DataRow::forget_marks() {
  for (Cell& cell : cells_) {
    cell.pExtras.reset();
    cell.nModify = 0;
    cell.nDecimals = -1;
    cell.bLocked = false;
  }
}

Variant DataRow::record(std::size_t nPosition) { return arap::make_object<FieldRecord>(Ref<DataRow>(this), nPosition); }

Variant DataRow::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, "Page" + std::to_string(page_));
  switch (member) {
    case Member::Default:
    case Member::Value: {
      const std::size_t nPosition = position(argument(args, 0));
      // The fields of a row are those of the template: none is added or exchanged.
      if (nPosition == BillTemplate::kNone || is_put(access)) {
        throw AutomationError(ErrorNumber::InvalidProcedureCall, arap::Concat(args[0]));
      }
      return record(nPosition);
    }
    case Member::Lookup: return position(argument(args, 0)) != BillTemplate::kNone;
    case Member::GetValue: {
      const std::size_t nPosition = position(argument(args, 0));
      return nPosition == BillTemplate::kNone ? argument(args, 1) : record(nPosition);
    }
    case Member::Size: return static_cast<std::int32_t>(cells_.size());
    case Member::Name: return field(checked_position(argument(args, 0), cells_.size())).key;
    default: no_such_member(member);
  }
}

bool FieldRecord::read(const Variant& vKey, Variant* pValue) const {
  const Cell& cell = row_->cell(position_);
  const TemplateField& field = row_->field(position_);
  const CellExtras* pExtras = cell.pExtras.get();
  switch (record_key(vKey)) {
    case RecordKey::Value: *pValue = cell.value(); return true;
    case RecordKey::Modify: *pValue = cell.nModify; return true;
    case RecordKey::ControlType: *pValue = field.nControlType; return true;
    case RecordKey::Display:
      *pValue = pExtras != nullptr ? pExtras->vDisplay : Variant(""_key);
      return field.lookUp.has_value() || pExtras != nullptr;
    case RecordKey::Code:
      *pValue = pExtras != nullptr ? pExtras->vCode : Variant(""_key);
      return field.lookUp.has_value() || pExtras != nullptr;
    case RecordKey::Old:
      if (pExtras == nullptr || !pExtras->bHasOld) return false;
      *pValue = pExtras->vOld;
      return true;
    case RecordKey::Other: break;
  }
  if (pExtras == nullptr) return false;
  const std::string sKey = arap::Concat(vKey);
  for (const auto& [sName, vValue] : pExtras->aOthers) {
    if (!arap::EqualsNoCase(sName, sKey)) continue;
    *pValue = vValue;
    return true;
  }
  return false;
}

void FieldRecord::write(const Variant& vKey, const Variant& vValue) {
  Cell& cell = row_->cell(position_);
  switch (record_key(vKey)) {
    case RecordKey::Value: row_->put(position_, vValue); return;
    case RecordKey::Modify: cell.nModify = arap::LongOf(vValue); return;
    case RecordKey::ControlType: return;  // the template's, for all rows
    case RecordKey::Display: cell.extras().vDisplay = vValue; return;
    case RecordKey::Code: cell.extras().vCode = vValue; return;
    case RecordKey::Old:
      cell.extras().vOld = vValue;
      cell.extras().bHasOld = true;
      return;
    case RecordKey::Other: break;
  }
  const std::string sKey = arap::Concat(vKey);
  for (auto& [sName, vOther] : cell.extras().aOthers) {
    if (!arap::EqualsNoCase(sName, sKey)) continue;
    vOther = vValue;
    return;
  }
  cell.extras().aOthers.emplace_back(sKey, vValue);
}

std::vector<std::string> FieldRecord::keys() const {
  std::vector<std::string> aKeys;
  Variant vIgnored;
  for (const char* sKey : {"FFLD", "FDSP", "FFND", "FOLD", "FModify", "FCtlType"}) {
    if (read(sKey, &vIgnored)) aKeys.emplace_back(sKey);
  }
  if (const CellExtras* pExtras = row_->cell(position_).pExtras.get()) {
    for (const auto& [sName, vValue] : pExtras->aOthers) aKeys.push_back(sName);
  }
  return aKeys;
}

Variant FieldRecord::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, row_->field(position_).sKey);
  Variant vValue;
  switch (member) {
    case Member::Default:
    case Member::Value:
      if (is_put(access)) {
        write(argument(args, 0), argument(args, 1));
        return {};
      }
      if (read(argument(args, 0), &vValue)) return vValue;
      throw AutomationError(ErrorNumber::InvalidProcedureCall, arap::Concat(args[0]));
    case Member::Lookup: return read(argument(args, 0), &vValue);
    case Member::GetValue: return read(argument(args, 0), &vValue) ? vValue : argument(args, 1);
    case Member::Size: return static_cast<std::int32_t>(keys().size());
    case Member::Name: {
      const std::vector<std::string> aKeys = keys();
      return aKeys[checked_position(argument(args, 0), aKeys.size())];
    }
    default: no_such_member(member);
  }
}

DataRow* BodyPage::row(std::int32_t nRow) const {
  if (nRow < 1 || static_cast<std::size_t>(nRow) > rows_.size()) return nullptr;
  return rows_[static_cast<std::size_t>(nRow) - 1].get();
}

DataRow& BodyPage::add_row() {
  rows_.push_back(arap::make_object<DataRow>(template_, page_));
  return *rows_.back();
}

void BodyPage::remove(std::int32_t nRow) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(checked_position(nRow, rows_.size())));
}

void BodyPage::remove_first(std::size_t nRows) {
  rows_.erase(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(nRows));
}

void BodyPage::forget_marks() {
  for (const Ref<DataRow>& row : rows_) row->forget_marks();
}

bool BodyPage::is_as_in_book() const {
  if (rows_.size() != static_cast<std::size_t>(in_book_.nLastIndex)) return false;
  std::int32_t nIndex = 0;
  return std::ranges::all_of(rows_, [&nIndex](const Ref<DataRow>& row) { return row->index_in_book() == ++nIndex; });
}

Variant BodyPage::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, "Page" + std::to_string(page_));
  switch (member) {
    case Member::Default:
    case Member::Item: return rows_[checked_position(argument(args, 0), rows_.size())];
    case Member::Size:
    case Member::UBound: return static_cast<std::int32_t>(rows_.size());
    case Member::LBound: return std::int32_t{rows_.empty() ? 0 : 1};
    case Member::Remove: remove(arap::LongOf(argument(args, 0))); return {};
    default: no_such_member(member);
  }
}

}  // namespace desk

#include "engine/look_ups.h"

#include "data/sql_dialect.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

namespace {

LookUpItem item_of(const Rows& rows, std::size_t nRow) {
  return {rows.at(nRow, 0), arap::Concat(rows.at(nRow, 1)), arap::Concat(rows.at(nRow, 2))};
}

}  // namespace

Rows LookUps::select(const LookUpSource& source, const std::string& sCondition, const Binds& binds,
                     std::string_view sFilter) {
  std::string sSql = "SELECT " + source.sKeyColumn + ", " + source.sCodeColumn + ", FName FROM " + source.sTable;
  Binds all = binds;
  if (!sCondition.empty()) sSql += " WHERE " + sCondition;
  if (!arap::Trim(sFilter).empty()) {
    const TranslatedCondition filter = translate_condition(sFilter);
    sSql += (sCondition.empty() ? " WHERE (" : " AND (") + filter.sSql + ")";
    all.insert(all.end(), filter.binds.begin(), filter.binds.end());
    trace(TraceObserver::Kind::Sql, sFilter);
    trace_translation(filter.sSql, filter.binds);
  }
  return database_.query(sSql + " ORDER BY " + source.sCodeColumn, all);
}

const ShownItem* LookUps::by_id(const LookUpSource& source, std::int32_t nId) {
  const auto [place, bNew] = kept_[source.sTable].try_emplace(nId);
  if (bNew) {
    const Rows rows = select(source, source.sKeyColumn + " = ?", {Bind(nId)}, {});
    if (!rows.empty()) {
      const LookUpItem item = item_of(rows, 0);
      place->second = ShownItem{item.sName, item.sCode};
    }
  }
  return place->second ? &*place->second : nullptr;
}

std::optional<LookUpItem> LookUps::by_text(const LookUpSource& source, std::string_view sText,
                                           std::string_view sFilter) {
  for (const std::string& sColumn : {source.sCodeColumn, std::string("FName")}) {
    const std::string sOffered = source.sFilter.empty() ? "" : " AND (" + source.sFilter + ")";
    const Rows rows = select(source, sColumn + " = ?" + sOffered, {Bind(sText)}, sFilter);
    if (!rows.empty()) return item_of(rows, 0);
  }
  return std::nullopt;
}

std::vector<LookUpItem> LookUps::list(const LookUpSource& source, std::string_view sFilter) {
  const Rows rows = select(source, source.sFilter, {}, sFilter);
  std::vector<LookUpItem> aItems;
  aItems.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) aItems.push_back(item_of(rows, i));
  return aItems;
}

}  // namespace desk

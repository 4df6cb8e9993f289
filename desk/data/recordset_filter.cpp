#include "data/recordset_filter.h"

#include <algorithm>
#include <iterator>

#include "data/sql_tokens.h"
#include "frame/automation.h"
#include "frame/conversions.h"

namespace desk {
namespace {

using Kind = SqlToken::Kind;
constexpr std::int32_t kWrongArguments = 3001;
constexpr std::int32_t kItemNotFound = 3265;

[[noreturn]] void refuse(std::string_view sFilter) {
  throw arap::AutomationError(kWrongArguments, "Recordset", "The filter can't be read: " + std::string(sFilter));
}

std::vector<SqlToken> tokens_of(std::string_view sFilter) {
  try {
    return tokenize_sql(sFilter);
  } catch (const DeskError&) {
    refuse(sFilter);
  }
}

}  // namespace

RecordFilter::RecordFilter(std::string_view sFilter, const Rows& rows) {
  const std::vector<SqlToken> tokens = tokens_of(sFilter);
  const std::string_view kComparisons[] = {"=", "<>", "<", "<=", ">", ">="};
  bool bNewGroup = false;
  for (std::size_t i = 0; i < tokens.size();) {
    if (i + 2 >= tokens.size() || tokens[i].kind != Kind::Word) refuse(sFilter);
    const int nColumn = rows.find_column(tokens[i].sText);
    if (nColumn < 0) throw arap::AutomationError(kItemNotFound, "Recordset", "No such column: " + tokens[i].sText);
    const auto found = std::find(std::begin(kComparisons), std::end(kComparisons), tokens[i + 1].sText);
    if (found == std::end(kComparisons)) refuse(sFilter);
    const bool bNegative = tokens[i + 2].sText == "-" && tokens[i + 2].kind == Kind::Symbol && i + 3 < tokens.size();
    const SqlToken& value = tokens[bNegative ? i + 3 : i + 2];
    if (value.kind != Kind::Number && (bNegative || value.kind != Kind::String)) refuse(sFilter);
    terms_.push_back({static_cast<std::size_t>(nColumn), static_cast<Comparison>(found - std::begin(kComparisons)),
                      (bNegative ? "-" : "") + value.sText, bNewGroup});
    i += bNegative ? 4 : 3;
    if (i >= tokens.size()) break;
    bNewGroup = arap::EqualsNoCase(tokens[i].sText, "or");
    if (!bNewGroup && !arap::EqualsNoCase(tokens[i].sText, "and")) refuse(sFilter);
    if (++i == tokens.size()) refuse(sFilter);
  }
}

bool RecordFilter::holds(const Term& term, const Value& vCell) {
  if (vCell.is_null() || vCell.is_empty()) return false;
  int nOrder = 0;
  if (vCell.is_text()) {
    nOrder = arap::LowerCase(vCell.text()).compare(arap::LowerCase(term.sValue));
  } else {
    const double dCell = arap::NumberOf(vCell);
    const double dValue = arap::Val(term.sValue);
    nOrder = dCell < dValue ? -1 : dCell > dValue ? 1 : 0;
  }
  switch (term.comparison) {
    case Comparison::Equal: return nOrder == 0;
    case Comparison::NotEqual: return nOrder != 0;
    case Comparison::Less: return nOrder < 0;
    case Comparison::LessOrEqual: return nOrder <= 0;
    case Comparison::Greater: return nOrder > 0;
    case Comparison::GreaterOrEqual: return nOrder >= 0;
  }
  return false;
}

bool RecordFilter::matches(const Rows& rows, std::size_t nRow) const {
  bool bGroup = true;
  for (const Term& term : terms_) {
    if (term.bNewGroup) {
      if (bGroup) return true;
      bGroup = true;
    }
    bGroup = bGroup && holds(term, rows.at(nRow, term.nColumn));
  }
  return bGroup;
}

}  // namespace desk

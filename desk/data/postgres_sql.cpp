#include "data/postgres_sql.h"

#include <unordered_map>

#include "data/schema.h"
#include "frame/conversions.h"

namespace desk {
namespace {

bool is_word_character(char c) {
  return c == '_' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The position behind the quotation that begins at i.
std::size_t behind_quotation(std::string_view sSql, std::size_t i) {
  const std::size_t nEnd = sSql.find(sSql[i], i + 1);
  return nEnd == std::string_view::npos ? sSql.size() : nEnd + 1;
}

std::size_t behind_word(std::string_view sSql, std::size_t i) {
  while (i < sSql.size() && is_word_character(sSql[i])) ++i;
  return i;
}

std::string_view trimmed(std::string_view sText) {
  const std::size_t nFirst = sText.find_first_not_of(" \t\r\n");
  if (nFirst == std::string_view::npos) return {};
  return sText.substr(nFirst, sText.find_last_not_of(" \t\r\n") - nFirst + 1);
}

/// The places of the only comma and of the closing parenthesis of a list of two that opens at nOpen; npos when it
/// isn't such a list.
struct Pair {
  std::size_t nComma = std::string_view::npos;
  std::size_t nClose = std::string_view::npos;
};

Pair pair_in_parentheses(std::string_view sSql, std::size_t nOpen) {
  Pair pair;
  int nDepth = 0;
  for (std::size_t i = nOpen; i < sSql.size();) {
    const char c = sSql[i];
    if (c == '\'' || c == '"') {
      i = behind_quotation(sSql, i);
      continue;
    }
    if (c == '(') ++nDepth;
    if (c == ')' && --nDepth == 0) {
      pair.nClose = i;
      return pair;
    }
    if (c == ',' && nDepth == 1) pair.nComma = i;
    ++i;
  }
  return {};
}

class Speller {
 public:
  explicit Speller(std::string_view sSql) : sql_(sSql), table_(begins_with("CREATE TABLE ")) {}

  std::string run() {
    for (std::size_t i = 0; i < sql_.size();) {
      const char c = sql_[i];
      if (c == '\'') {
        i = copy_to(i, behind_quotation(sql_, i));
      } else if (c == '"') {
        const std::size_t nEnd = behind_quotation(sql_, i);
        out_ += arap::LowerCase(sql_.substr(i, nEnd - i));
        i = nEnd;
      } else if (c == '?' && is_negated()) {
        out_ += "CAST(? AS NUMERIC)";  // the server wouldn't know what to turn the sign of
        ++i;
      } else if (is_word_character(c)) {
        i = word(i);
      } else {
        out_ += c;
        ++i;
      }
    }
    return std::move(out_);
  }

 private:
  bool begins_with(std::string_view sWords) const {
    return arap::EqualsNoCase(trimmed(sql_).substr(0, sWords.size()), sWords);
  }

  /// Whether a sign stands before what comes, and nothing that it could be taken from.
  bool is_negated() const {
    const std::string_view sBefore = trimmed(out_);
    if (!sBefore.ends_with('-')) return false;
    const std::string_view sLeft = trimmed(sBefore.substr(0, sBefore.size() - 1));
    return sLeft.empty() || std::string_view("=<>(,").find(sLeft.back()) != std::string_view::npos;
  }

  std::size_t copy_to(std::size_t i, std::size_t nEnd) {
    out_ += sql_.substr(i, nEnd - i);
    return nEnd;
  }

  std::size_t word(std::size_t i) {
    const std::size_t nEnd = behind_word(sql_, i);
    const std::string_view sWord = sql_.substr(i, nEnd - i);
    const auto is = [sWord](std::string_view s) { return arap::EqualsNoCase(sWord, s); };
    if (is("like")) {
      out_ += "ILIKE";
    } else if (is("instr")) {
      out_ += "strpos";
    } else if (is("coalesce")) {
      return coalesce(i, nEnd);
    } else if (table_ && is("text")) {
      out_ += "TEXT COLLATE \"C\"";
    } else if (table_ && is("integer") && sql_.substr(nEnd).starts_with(" PRIMARY KEY")) {
      out_ += "INTEGER DEFAULT desk_next_key('" + table_name() + "', '" + arap::LowerCase(column_) + "')";
    } else {
      out_ += sWord;
    }
    column_ = sWord;
    return nEnd;
  }

  /// coalesce(number, 'text'): the server wants one type, so the number becomes a text.
  std::size_t coalesce(std::size_t i, std::size_t nOpen) {
    const Pair pair = nOpen < sql_.size() && sql_[nOpen] == '(' ? pair_in_parentheses(sql_, nOpen) : Pair{};
    if (pair.nComma == std::string_view::npos) return copy_to(i, nOpen);
    const std::string_view sFirst = sql_.substr(nOpen + 1, pair.nComma - nOpen - 1);
    const std::string_view sSecond = trimmed(sql_.substr(pair.nComma + 1, pair.nClose - pair.nComma - 1));
    if (!sSecond.starts_with('\'')) return copy_to(i, nOpen);
    out_ += "coalesce(CAST(" + Speller(sFirst).run() + " AS TEXT), " + std::string(sSecond) + ')';
    return pair.nClose + 1;
  }

  std::string table_name() const {
    const std::string_view sBehind = trimmed(sql_).substr(std::string_view("CREATE TABLE ").size());
    return arap::LowerCase(sBehind.substr(0, behind_word(sBehind, 0)));
  }

  std::string_view sql_;
  bool table_;
  std::string_view column_;  // the last word
  std::string out_;
};

}  // namespace

std::string name_in_tables(const std::string& sName) {
  static const std::unordered_map<std::string, std::string> kNames = [] {
    std::unordered_map<std::string, std::string> names;
    for (const std::string_view sScript : {table_script(), view_script()}) {
      for (std::size_t i = 0; i < sScript.size();) {
        const std::size_t nEnd = behind_word(sScript, i);
        if (nEnd > i) names.emplace(arap::LowerCase(sScript.substr(i, nEnd - i)), sScript.substr(i, nEnd - i));
        i = nEnd + 1;
      }
    }
    return names;
  }();
  const auto found = kNames.find(sName);
  return found == kNames.end() ? sName : found->second;
}

std::string postgres_sql(std::string_view sSql) { return Speller(sSql).run(); }

}  // namespace desk

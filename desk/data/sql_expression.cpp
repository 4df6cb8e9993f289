#include "data/sql_expression.h"

#include <algorithm>
#include <array>

#include "data/columns.h"
#include "frame/conversions.h"

namespace desk {
namespace {

using Kind = SqlToken::Kind;

template <std::size_t N>
bool one_of(std::string_view sWord, const std::array<std::string_view, N>& words) {
  return std::ranges::any_of(words, [&](std::string_view s) { return arap::EqualsNoCase(s, sWord); });
}

// Words that may stand before a parenthesis without being a function.
constexpr std::array<std::string_view, 26> kKeywords = {
    "in", "and",    "or",    "not", "exists", "on",   "where", "values",  "from", "select", "when", "then", "else",
    "by", "having", "union", "all", "as",     "join", "like",  "between", "is",   "set",    "any",  "case", "into"};
// Functions of the same name and order of arguments on both sides.
constexpr std::array<std::string_view, 14> kSameFunctions = {"coalesce", "nullif", "abs",   "round",   "upper",
                                                             "lower",    "ltrim",  "rtrim", "replace", "sum",
                                                             "count",    "min",    "max",   "avg"};
constexpr std::array<std::string_view, 5> kLiftingClauses = {"where", "on", "having", "set", "values"};
constexpr std::array<std::string_view, 4> kKeepingClauses = {"select", "from", "group", "order"};
// So many stay a chain, as the rule wrote them.
constexpr std::size_t kFewAlternatives = 100;
constexpr std::array<std::string_view, 8> kForeign = {"exec",  "execute", "if",    "while",
                                                      "begin", "goto",    "print", "top"};

std::string text_literal(std::string_view sValue) {
  std::string sText = "'";
  for (const char c : sValue) sText += c == '\'' ? std::string("''") : std::string(1, c);
  return sText + "'";
}

bool is_literal(const SqlToken& token) { return token.kind == Kind::Number || token.kind == Kind::String; }

bool is_comparison(const SqlToken& token) {
  static constexpr std::array<std::string_view, 7> kComparisons = {"=", "<>", "!=", "<", ">", "<=", ">="};
  return token.kind == Kind::Symbol && one_of(token.sText, kComparisons);
}

}  // namespace

void SqlPiece::append(std::string_view sText, bool bTight) {
  const bool bOpen = sSql.empty() || sSql.ends_with('(') || sSql.ends_with('.');
  if (!bTight && !bOpen) sSql += ' ';
  sSql += sText;
}

void SqlPiece::append(const SqlPiece& other) {
  append(other.sSql);
  aParameters.insert(aParameters.end(), other.aParameters.begin(), other.aParameters.end());
}

bool SqlExpression::is_word(std::size_t i, std::string_view sWord) const {
  return i < tokens_.size() && tokens_[i].kind == Kind::Word && !tokens_[i].bQuoted &&
         arap::EqualsNoCase(tokens_[i].sText, sWord);
}

bool SqlExpression::is_symbol(std::size_t i, std::string_view sSymbol) const {
  return i < tokens_.size() && tokens_[i].kind == Kind::Symbol && tokens_[i].sText == sSymbol;
}

std::size_t SqlExpression::behind_parenthesis(std::size_t nOpen, std::size_t nEnd) const {
  int nDepth = 0;
  for (std::size_t i = nOpen; i < nEnd; ++i) {
    if (is_symbol(i, "(")) ++nDepth;
    if (is_symbol(i, ")") && --nDepth == 0) return i + 1;
  }
  refuse_sql(text_, tokens_[nOpen].nOffset, "a parenthesis has no end");
}

bool SqlExpression::starts_function(std::size_t i) const {
  if (!is_symbol(i + 1, "(") || one_of(tokens_[i].sText, kKeywords)) return false;
  return i == 0 || !(is_word(i - 1, "into") || is_word(i - 1, "insert"));
}

SqlPiece SqlExpression::carry(std::size_t nBegin, std::size_t nEnd, bool bLift) const {
  const std::vector<Term> aTerms = alternatives(nBegin, nEnd);
  if (aTerms.size() > kFewAlternatives) {
    if (auto rows = carry_as_rows(aTerms, bLift)) return *std::move(rows);
  }
  return carry_sequence(nBegin, nEnd, bLift);
}

/// What "or" joins at the level of the tokens, without parentheses around each; none where they are more than a
/// condition.
std::vector<SqlExpression::Term> SqlExpression::alternatives(std::size_t nBegin, std::size_t nEnd) const {
  std::vector<Term> aTerms;
  const auto add = [&](std::size_t nFirst, std::size_t nBehind) {
    const bool bWrapped = is_symbol(nFirst, "(") && behind_parenthesis(nFirst, nBehind) == nBehind;
    aTerms.push_back(bWrapped ? Term{nFirst + 1, nBehind - 1} : Term{nFirst, nBehind});
  };
  std::size_t nFirst = nBegin;
  for (std::size_t i = nBegin; i < nEnd; i = is_symbol(i, "(") ? behind_parenthesis(i, nEnd) : i + 1) {
    if (tokens_[i].kind != Kind::Word || tokens_[i].bQuoted) continue;
    const std::string& sWord = tokens_[i].sText;
    if (is_word(i, "case") || one_of(sWord, kLiftingClauses) || one_of(sWord, kKeepingClauses)) return {};
    if (!is_word(i, "or")) continue;
    add(nFirst, i);
    nFirst = i + 1;
  }
  if (!aTerms.empty()) add(nFirst, nEnd);
  return aTerms;
}

/// The parts of "a=1 and b=2 and ..."; none where it is anything else.
std::vector<SqlExpression::Equality> SqlExpression::equalities(Term term) const {
  std::vector<Equality> aEqualities;
  for (std::size_t i = term.nBegin; i < term.nEnd; ++i) {
    const std::size_t nColumn = i;
    while (i + 1 < term.nEnd && is_symbol(i + 1, ".")) i += 2;  // the table of the column
    const bool bColumn = i < term.nEnd && tokens_[i].kind == Kind::Word && tokens_[nColumn].kind == Kind::Word;
    const bool bLiteral = ++i + 1 < term.nEnd && is_symbol(i, "=") && is_literal(tokens_[i + 1]);
    if (!bColumn || !bLiteral) return {};
    aEqualities.push_back({{nColumn, i}, i + 1});
    i += 2;  // at the "and"
    if (i < term.nEnd && !is_word(i, "and")) return {};
  }
  return aEqualities;
}

/// The rows of a bill, each as an alternative "(a=1 and b=2)", make a chain that is too deep for the engine, and that
/// it would walk for whatever it looks at. As a list of rows, "(a, b) in (values (1, 2), ...)", they are neither. The
/// literals stay where they stand: so many parameters take longer than the query, and no other text is like this one.
std::optional<SqlPiece> SqlExpression::carry_as_rows(const std::vector<Term>& aTerms, bool bLift) const {
  const std::vector<Equality> aFirst = equalities(aTerms.front());
  const auto is_alike = [&](Term term) {
    const auto first = tokens_.subspan(aTerms.front().nBegin, aTerms.front().nEnd - aTerms.front().nBegin);
    return std::ranges::equal(first, tokens_.subspan(term.nBegin, term.nEnd - term.nBegin),
                              [](const SqlToken& a, const SqlToken& b) {
                                return a.kind == b.kind && (is_literal(a) || arap::EqualsNoCase(a.sText, b.sText));
                              });
  };
  if (aFirst.empty() || !std::ranges::all_of(aTerms, is_alike)) return std::nullopt;
  SqlPiece piece;
  piece.append("(");
  for (const Equality& each : aFirst) {
    if (&each != &aFirst.front()) piece.append(",", true);
    piece.append(carry_sequence(each.column.nBegin, each.column.nEnd, bLift));
  }
  piece.append(") in (values", true);
  for (const Term& term : aTerms) {
    piece.append(&term == &aTerms.front() ? " (" : ", (", true);
    for (const Equality& each : aFirst) {
      if (&each != &aFirst.front()) piece.append(",", true);
      const std::size_t nLiteral = each.nLiteral - aTerms.front().nBegin + term.nBegin;
      carry_literal(nLiteral, bLift && compares_money(nLiteral), piece);
    }
    piece.append(")", true);
  }
  piece.append(")", true);
  return piece;
}

SqlPiece SqlExpression::carry_sequence(std::size_t nBegin, std::size_t nEnd, bool bLift) const {
  SqlPiece piece;
  for (std::size_t i = nBegin; i < nEnd;) {
    const SqlToken& token = tokens_[i];
    if (token.kind == Kind::Word && !token.bQuoted && (i == 0 || !is_symbol(i - 1, "."))) {
      if (one_of(token.sText, kLiftingClauses)) bLift = true;
      if (one_of(token.sText, kKeepingClauses)) bLift = false;
      if (one_of(token.sText, kForeign)) refuse_sql(text_, token.nOffset, "'" + token.sText + "' is not carried");
      if (is_word(i, "with") && is_symbol(i + 1, "(") && is_word(i + 2, "nolock")) {
        i = behind_parenthesis(i + 1, nEnd);
        continue;
      }
      if (starts_function(i)) {
        i = carry_function(i, nEnd, bLift, piece);
        continue;
      }
    }
    if (is_symbol(i, "(")) {
      i = carry_parenthesis(i, nEnd, bLift, piece);
      continue;
    }
    if (is_symbol(i, ")")) refuse_sql(text_, token.nOffset, "a parenthesis was never opened");
    switch (token.kind) {
      case Kind::Number:
      case Kind::String: carry_literal(i, bLift, piece); break;
      case Kind::Variable: carry_variable(i, piece); break;
      case Kind::Word: piece.append(token.bQuoted ? '"' + token.sText + '"' : token.sText); break;
      case Kind::Symbol: piece.append(token.sText, token.sText == "," || token.sText == "."); break;
    }
    ++i;
  }
  return piece;
}

std::size_t SqlExpression::carry_parenthesis(std::size_t i, std::size_t nEnd, bool bLift, SqlPiece& piece) const {
  const std::size_t nBehind = behind_parenthesis(i, nEnd);
  piece.append("(");
  piece.append(carry(i + 1, nBehind - 1, bLift));
  piece.append(")", true);
  return nBehind;
}

std::vector<SqlPiece> SqlExpression::arguments(std::size_t nBegin, std::size_t nEnd, bool bLift) const {
  std::vector<SqlPiece> pieces;
  std::size_t nStart = nBegin;
  for (std::size_t i = nBegin; i < nEnd; ++i) {
    if (is_symbol(i, "(")) {
      i = behind_parenthesis(i, nEnd) - 1;
    } else if (is_symbol(i, ",")) {
      pieces.push_back(carry(nStart, i, bLift));
      nStart = i + 1;
    }
  }
  // A text that stands in for NULL stays in sight: its type decides that of the whole.
  const bool bText = nStart + 1 == nEnd && tokens_[nStart].kind == Kind::String && !pieces.empty();
  if (nStart < nEnd) pieces.push_back(carry(nStart, nEnd, bLift && !bText));
  return pieces;
}

std::size_t SqlExpression::carry_function(std::size_t i, std::size_t nEnd, bool bLift, SqlPiece& piece) const {
  const SqlToken& token = tokens_[i];
  const std::size_t nBehind = behind_parenthesis(i + 1, nEnd);
  std::vector<SqlPiece> args = arguments(i + 2, nBehind - 1, bLift);
  const auto need = [&](std::size_t nCount) {
    if (args.size() != nCount)
      refuse_sql(text_, token.nOffset, token.sText + " is carried with " + std::to_string(nCount) + " arguments only");
  };
  std::string sName = token.sText;
  if (is_word(i, "isnull")) {
    need(2);
    sName = "coalesce";
  } else if (is_word(i, "charindex")) {
    need(2);
    sName = "instr";
    std::swap(args[0], args[1]);
  } else if (is_word(i, "len")) {
    need(1);
    sName = "length";
  } else if (is_word(i, "substring")) {
    need(3);
    sName = "substr";
  } else if (is_word(i, "left")) {
    need(2);
    sName = "substr";
    args.insert(args.begin() + 1, SqlPiece{"1", {}});
  } else if (!one_of(sName, kSameFunctions)) {
    refuse_sql(text_, token.nOffset, "the function " + sName + " is not carried");
  }
  piece.append(sName + "(");
  for (std::size_t n = 0; n < args.size(); ++n) {
    if (n > 0) piece.append(",", true);
    piece.append(args[n]);
  }
  piece.append(")", true);
  return nBehind;
}

/// True for a number that is compared with (or assigned to) an amount, which the book holds in ten-thousandths.
bool SqlExpression::compares_money(std::size_t i) const {
  if (i >= 2 && is_comparison(tokens_[i - 1])) return is_money_column(tokens_[i - 2].sText);
  if (i >= 3 && is_symbol(i - 1, "-") && is_comparison(tokens_[i - 2])) return is_money_column(tokens_[i - 3].sText);
  if (i + 2 >= tokens_.size() || !is_comparison(tokens_[i + 1])) return false;
  const bool bQualified = is_symbol(i + 3, ".") && i + 4 < tokens_.size();
  return is_money_column(tokens_[bQualified ? i + 4 : i + 2].sText);
}

void SqlExpression::carry_literal(std::size_t i, bool bLift, SqlPiece& piece) const {
  const SqlToken& token = tokens_[i];
  if (!bLift) {
    piece.append(token.kind == Kind::String ? text_literal(token.sText) : token.sText);
    return;
  }
  piece.append("?");
  piece.aParameters.emplace_back(LiteralUse{i, token.kind == Kind::Number && compares_money(i)});
}

void SqlExpression::carry_variable(std::size_t i, SqlPiece& piece) const {
  const SqlToken& token = tokens_[i];
  const auto found = std::ranges::find_if(
      variables_, [&](const SqlVariable& variable) { return arap::EqualsNoCase(variable.sName, token.sText); });
  if (found == variables_.end()) refuse_sql(text_, token.nOffset, "the variable " + token.sText + " was not declared");
  piece.append("?");
  piece.aParameters.emplace_back(VariableUse{found->sName});
}

}  // namespace desk

#include "data/sql_expression.h"

#include <algorithm>
#include <array>
#include <charconv>

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
constexpr std::array<std::string_view, 8> kForeign = {"exec",  "execute", "if",    "while",
                                                      "begin", "goto",    "print", "top"};

std::string text_literal(std::string_view sValue) {
  std::string sText = "'";
  for (const char c : sValue) sText += c == '\'' ? std::string("''") : std::string(1, c);
  return sText + "'";
}

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
  if (token.kind == Kind::String) {
    piece.aParameters.emplace_back(Bind(token.sText));
    return;
  }
  if (compares_money(i)) {
    piece.aParameters.emplace_back(Bind(Money::parse(token.sText)));
    return;
  }
  const char* pEnd = token.sText.data() + token.sText.size();
  std::int64_t nValue = 0;
  const auto result = std::from_chars(token.sText.data(), pEnd, nValue);
  const bool bWhole = result.ec == std::errc() && result.ptr == pEnd;
  piece.aParameters.emplace_back(bWhole ? Bind(nValue) : Bind(std::stod(token.sText)));
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

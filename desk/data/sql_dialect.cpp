#include "data/sql_dialect.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "data/sql_expression.h"
#include "data/sql_shapes.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {
namespace {

using Kind = SqlToken::Kind;

SqlVariable::Kind kind_of_type(std::string_view sType) {
  static constexpr std::array<std::string_view, 5> kIntegers = {"int", "smallint", "bigint", "tinyint", "bit"};
  static constexpr std::array<std::string_view, 5> kReals = {"float", "real", "decimal", "numeric", "money"};
  const auto is = [&](std::string_view s) { return arap::EqualsNoCase(s, sType); };
  if (std::ranges::any_of(kIntegers, is)) return SqlVariable::Kind::Integer;
  return std::ranges::any_of(kReals, is) ? SqlVariable::Kind::Real : SqlVariable::Kind::Text;
}

class BatchTranslator {
 public:
  BatchTranslator(std::string_view sText, const std::vector<SqlToken>& tokens)
      : text_(sText), tokens_(tokens), expression_(text_, tokens_, batch_.aVariables) {}

  SqlBatch run() {
    std::size_t i = 0;
    while (i < tokens_.size()) {
      if (expression_.is_symbol(i, ";")) {
        ++i;
        continue;
      }
      const std::size_t nEnd = statement_end(i);
      if (expression_.is_word(i, "declare")) {
        declare(i + 1, nEnd);
      } else {
        statement(i, nEnd);
      }
      i = nEnd;
    }
    if (batch_.aStatements.empty()) refuse_sql(text_, 0, "it holds no statement");
    return std::move(batch_);
  }

 private:
  bool word(std::size_t i, std::string_view s) const { return expression_.is_word(i, s); }

  bool starts_statement(std::size_t i, std::size_t nBegin) const {
    if (word(i, "declare") || word(i, "insert") || word(i, "update") || word(i, "delete")) return true;
    if (word(i, "set")) return i + 1 < tokens_.size() && tokens_[i + 1].kind == Kind::Variable;
    if (!word(i, "select") || word(i - 1, "union") || word(i - 1, "all") || word(i - 1, "except")) return false;
    if (!word(nBegin, "insert")) return true;
    for (std::size_t n = nBegin; n < i; ++n)
      if (word(n, "values") || word(n, "select")) return true;
    return false;
  }

  std::size_t statement_end(std::size_t nBegin) const {
    int nDepth = 0;
    for (std::size_t i = nBegin + 1; i < tokens_.size(); ++i) {
      if (expression_.is_symbol(i, "(")) ++nDepth;
      if (expression_.is_symbol(i, ")")) --nDepth;
      if (nDepth == 0 && (expression_.is_symbol(i, ";") || starts_statement(i, nBegin))) return i;
    }
    return tokens_.size();
  }

  void declare(std::size_t i, std::size_t nEnd) {
    while (i < nEnd) {
      if (tokens_[i].kind != Kind::Variable || i + 1 >= nEnd || tokens_[i + 1].kind != Kind::Word)
        refuse_sql(text_, tokens_[i].nOffset, "a declaration is a variable and its type");
      batch_.aVariables.push_back({tokens_[i].sText, kind_of_type(tokens_[i + 1].sText)});
      i += 2;
      if (expression_.is_symbol(i, "(")) i = expression_.behind_parenthesis(i, nEnd);
      if (i < nEnd && !expression_.is_symbol(i, ","))
        refuse_sql(text_, tokens_[i].nOffset, "only a comma can stand between two declarations");
      ++i;
    }
  }

  void statement(std::size_t nBegin, std::size_t nEnd) {
    const bool bSelect = word(nBegin, "select");
    const bool bSet = word(nBegin, "set");
    const bool bWrite = word(nBegin, "insert") || word(nBegin, "update") || word(nBegin, "delete");
    if (!bSelect && !bSet && !bWrite)
      refuse_sql(text_, tokens_[nBegin].nOffset, "a statement can't begin with '" + tokens_[nBegin].sText + "'");
    if (bSet || (bSelect && nBegin + 1 < nEnd && tokens_[nBegin + 1].kind == Kind::Variable &&
                 expression_.is_symbol(nBegin + 2, "="))) {
      assignment(nBegin + 1, nEnd);
      return;
    }
    SqlPiece piece = expression_.carry(nBegin, nEnd, false);
    batch_.aStatements.push_back({std::move(piece.sSql), std::move(piece.aParameters), {}, bSelect});
  }

  /// "@x=expr, @y=expr From ...": becomes a select of the expressions, the last row of which fills the variables.
  void assignment(std::size_t i, std::size_t nEnd) {
    TranslatedStatement statement;
    statement.bSelect = true;
    SqlPiece piece;
    piece.append("select");
    for (;;) {
      if (i + 1 >= nEnd || tokens_[i].kind != Kind::Variable || !expression_.is_symbol(i + 1, "="))
        refuse_sql(text_, tokens_[std::min(i, nEnd - 1)].nOffset, "a select assigns all its columns or none");
      statement.aAssigned.push_back(declared(i));
      const std::size_t nExpression = i + 2;
      i = expression_end(nExpression, nEnd);
      piece.append(expression_.carry(nExpression, i, false));
      if (!expression_.is_symbol(i, ",") || i >= nEnd) break;
      piece.append(",", true);
      ++i;
    }
    if (i < nEnd) piece.append(expression_.carry(i, nEnd, false));
    statement.sSql = std::move(piece.sSql);
    statement.aParameters = std::move(piece.aParameters);
    batch_.aStatements.push_back(std::move(statement));
  }

  std::size_t expression_end(std::size_t i, std::size_t nEnd) const {
    while (i < nEnd && !expression_.is_symbol(i, ",") && !word(i, "from") && !word(i, "where"))
      i = expression_.is_symbol(i, "(") ? expression_.behind_parenthesis(i, nEnd) : i + 1;
    return i;
  }

  std::string declared(std::size_t i) const {
    for (const SqlVariable& variable : batch_.aVariables)
      if (arap::EqualsNoCase(variable.sName, tokens_[i].sText)) return variable.sName;
    refuse_sql(text_, tokens_[i].nOffset, "the variable " + tokens_[i].sText + " was not declared");
  }

  std::string_view text_;
  SqlBatch batch_;
  const std::vector<SqlToken>& tokens_;
  SqlExpression expression_;
};

Bind as_variable(const SqlVariable& variable, const Value& vValue) {
  if (vValue.is_null()) return {};
  if (variable.kind == SqlVariable::Kind::Text) return Bind(arap::Concat(vValue));
  const std::string sText(arap::Trim(arap::Concat(vValue)));
  if (!sText.empty() && !arap::IsNumeric(sText))
    throw DeskError(ErrorKind::BadValue, "The value for " + variable.sName + " is no number", "'" + sText + "'");
  const double dValue = arap::Val(sText);
  if (variable.kind == SqlVariable::Kind::Real) return Bind(dValue);
  return Bind(static_cast<std::int64_t>(dValue));
}

using VariableValues = std::map<std::string, Bind>;

Rows run_statement(Database& database, const TranslatedStatement& statement, const std::vector<SqlToken>& tokens,
                   const VariableValues& values) {
  Binds binds;
  binds.reserve(statement.aParameters.size());
  for (const Parameter& parameter : statement.aParameters) {
    const auto* pVariable = std::get_if<VariableUse>(&parameter);
    binds.push_back(pVariable != nullptr ? values.at(pVariable->sName)
                                         : literal_value(std::get<LiteralUse>(parameter), tokens));
  }
  trace_translation(statement.sSql, binds);
  return database.query(statement.sSql, binds);
}

}  // namespace

SqlBatch translate(std::string_view sText, const std::vector<SqlToken>& tokens) {
  return BatchTranslator(sText, tokens).run();
}

Bind literal_value(const LiteralUse& use, const std::vector<SqlToken>& tokens) {
  const SqlToken& token = tokens[use.nToken];
  if (token.kind == Kind::String) return Bind(token.sText);
  if (use.bMoney) return Bind(Money::parse(token.sText));
  const char* pEnd = token.sText.data() + token.sText.size();
  std::int64_t nValue = 0;
  const auto result = std::from_chars(token.sText.data(), pEnd, nValue);
  const bool bWhole = result.ec == std::errc() && result.ptr == pEnd;
  return bWhole ? Bind(nValue) : Bind(std::stod(token.sText));
}

TranslatedCondition translate_condition(std::string_view sCondition) {
  const std::vector<SqlToken> tokens = tokenize_sql(sCondition);
  for (const SqlToken& token : tokens) {
    if (token.sText == ";" && token.kind == Kind::Symbol)
      refuse_sql(sCondition, token.nOffset, "a condition is no statement");
  }
  const std::vector<SqlVariable> none;
  SqlPiece piece = SqlExpression(sCondition, tokens, none).carry(0, tokens.size(), true);
  TranslatedCondition condition{std::move(piece.sSql), {}};
  for (const Parameter& parameter : piece.aParameters)
    condition.binds.push_back(literal_value(std::get<LiteralUse>(parameter), tokens));
  return condition;
}

std::string translate_order(std::string_view sOrder) {
  SqlPiece piece;
  for (const SqlToken& token : tokenize_sql(sOrder)) {
    const bool bSeparator = token.kind == Kind::Symbol && (token.sText == "," || token.sText == ".");
    if (token.kind != Kind::Word && !bSeparator)
      refuse_sql(sOrder, token.nOffset, "an order holds columns, asc and desc only");
    piece.append(token.bQuoted ? '"' + token.sText + '"' : token.sText, bSeparator);
  }
  return piece.sSql;
}

Rows run_sql(Database& database, std::string_view sText) {
  trace(TraceObserver::Kind::Sql, sText);
  static thread_local SqlShapes shapes;
  const std::vector<SqlToken> tokens = tokenize_sql(sText);
  const SqlBatch& batch = shapes.translation(sText, tokens);
  VariableValues values;
  for (const SqlVariable& variable : batch.aVariables) values[variable.sName] = Bind();
  Rows result;
  for (const TranslatedStatement& statement : batch.aStatements) {
    Rows rows = run_statement(database, statement, tokens, values);
    if (statement.aAssigned.empty()) {
      if (statement.bSelect) result = std::move(rows);
      continue;
    }
    if (rows.empty()) continue;
    for (std::size_t n = 0; n < statement.aAssigned.size(); ++n) {
      const auto variable = std::ranges::find(batch.aVariables, statement.aAssigned[n], &SqlVariable::sName);
      values[variable->sName] = as_variable(*variable, rows.at(rows.size() - 1, n));
    }
  }
  return result;
}

}  // namespace desk

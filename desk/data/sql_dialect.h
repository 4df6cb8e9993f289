#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/database.h"
#include "data/sql_tokens.h"

/// The original server's SQL, as the plug-in writes it, carried over to the book's database token by token. A text that
/// can't be carried raises DeskError (UnsupportedSql) that names the position.
namespace desk {

/// A variable of a batch ("@Per"), bound when its statement runs.
struct VariableUse {
  std::string sName;
};
/// A literal of the text, by the number of its token; bound when its statement runs.
struct LiteralUse {
  std::size_t nToken = 0;
  bool bMoney = false;  // it stands beside an amount, which the book holds in ten-thousandths
};
using Parameter = std::variant<LiteralUse, VariableUse>;

/// One statement in the book's SQL, with a "?" for each parameter.
struct TranslatedStatement {
  std::string sSql;
  std::vector<Parameter> aParameters;
  /// Variables that take the columns of the last row, in order; empty for a plain statement.
  std::vector<std::string> aAssigned;
  bool bSelect = false;  // it answers rows
};

/// A variable that a batch declares; it is Null until a statement assigns it.
struct SqlVariable {
  enum class Kind { Integer, Real, Text };
  std::string sName;
  Kind kind;
};

/// The statements of one text, in their order.
struct SqlBatch {
  std::vector<SqlVariable> aVariables;
  std::vector<TranslatedStatement> aStatements;
};

/// A whole text: one statement, or a batch with declare and assignments. Literals of conditions and values become
/// parameters, so that texts that differ only in an id share one translation and one prepared statement.
SqlBatch translate(std::string_view sText, const std::vector<SqlToken>& tokens);
/// What a parameter stands for.
Bind literal_value(const LiteralUse& use, const std::vector<SqlToken>& tokens);

/// A condition such as a look-up filter or the source filter, to be put behind WHERE.
struct TranslatedCondition {
  std::string sSql;
  Binds binds;
};
TranslatedCondition translate_condition(std::string_view sCondition);
/// The terms behind ORDER BY; columns with asc or desc.
std::string translate_order(std::string_view sOrder);

/// Translates and runs; the rows of the last select, or no rows.
Rows run_sql(Database& database, std::string_view sText);

}  // namespace desk

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/sql_dialect.h"
#include "data/sql_tokens.h"

namespace desk {

/// A piece of SQL in the book's own dialect, with its parameters in the order of their "?".
struct SqlPiece {
  std::string sSql;
  std::vector<Parameter> aParameters;
  void append(const SqlPiece& other);
  void append(std::string_view sText, bool bTight = false);
};

/// Carries the tokens of one statement or expression over.
class SqlExpression {
 public:
  SqlExpression(std::string_view sText, std::span<const SqlToken> tokens, const std::vector<SqlVariable>& variables)
      : text_(sText), tokens_(tokens), variables_(variables) {}

  /// Tokens nBegin to nEnd. bLift: literals become parameters until a clause says otherwise.
  SqlPiece carry(std::size_t nBegin, std::size_t nEnd, bool bLift) const;
  /// The position behind the parenthesis that matches the one at nOpen.
  std::size_t behind_parenthesis(std::size_t nOpen, std::size_t nEnd) const;

  bool is_word(std::size_t i, std::string_view sWord) const;
  bool is_symbol(std::size_t i, std::string_view sSymbol) const;

 private:
  /// Tokens nBegin to nEnd of a condition.
  struct Term {
    std::size_t nBegin;
    std::size_t nEnd;
  };
  /// A column, and the literal that it equals.
  struct Equality {
    Term column;
    std::size_t nLiteral;
  };
  SqlPiece carry_sequence(std::size_t nBegin, std::size_t nEnd, bool bLift) const;
  std::vector<Term> alternatives(std::size_t nBegin, std::size_t nEnd) const;
  std::vector<Equality> equalities(Term term) const;
  std::optional<SqlPiece> carry_as_rows(const std::vector<Term>& aTerms, bool bLift) const;
  std::size_t carry_function(std::size_t i, std::size_t nEnd, bool bLift, SqlPiece& piece) const;
  std::size_t carry_parenthesis(std::size_t i, std::size_t nEnd, bool bLift, SqlPiece& piece) const;
  void carry_literal(std::size_t i, bool bLift, SqlPiece& piece) const;
  void carry_variable(std::size_t i, SqlPiece& piece) const;
  bool compares_money(std::size_t i) const;
  bool starts_function(std::size_t i) const;
  std::vector<SqlPiece> arguments(std::size_t nBegin, std::size_t nEnd, bool bLift) const;

  std::string_view text_;
  std::span<const SqlToken> tokens_;
  const std::vector<SqlVariable>& variables_;
};

}  // namespace desk

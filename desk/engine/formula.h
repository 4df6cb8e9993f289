#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// A formula that can't be read; the position counts characters of the whole text from 0.
class FormulaError : public std::runtime_error {
 public:
  FormulaError(const std::string& sWhat, std::size_t nPosition) : std::runtime_error(sWhat), position_(nPosition) {}
  std::size_t position() const { return position_; }

 private:
  std::size_t position_;
};

/// An action of a field: "FAmount=FAmountFor*FExchangeRate". Compiled once, evaluated with the values of its operands.
class Formula {
 public:
  /// Answers the number of a field by its key, without regard to case.
  using FindField = std::function<std::optional<std::size_t>(std::string_view)>;

  /// Raises FormulaError.
  Formula(std::string sText, const FindField& find);
  ~Formula();
  Formula(Formula&&) noexcept;
  Formula& operator=(Formula&&) noexcept;

  const std::string& text() const { return text_; }
  std::size_t target() const { return target_; }
  /// The fields whose values the formula needs, in the order in which evaluate takes them.
  const std::vector<std::size_t>& operands() const { return operands_; }
  /// Nothing when the formula divides by zero or leaves the range of numbers.
  std::optional<double> evaluate(std::span<const double> aValues) const;

 private:
  struct Expression;

  std::string text_;
  std::size_t target_ = 0;
  std::vector<std::size_t> operands_;
  std::unique_ptr<Expression> expression_;
};

/// Rounds half away from zero; a value that differs from the half by less than a double can tell counts as the half.
double round_half_away(double dValue, int nDecimals);

}  // namespace desk

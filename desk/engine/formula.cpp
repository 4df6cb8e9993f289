#include "engine/formula.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>

namespace desk {

/// The compiled expression; its variables are the slots, in the order of the operands.
struct Formula::Expression {
  mu::Parser parser;
  std::vector<double> slots;
};

namespace {

std::string_view trimmed(std::string_view sText) {
  const auto nFirst = sText.find_first_not_of(' ');
  if (nFirst == std::string_view::npos) return {};
  return sText.substr(nFirst, sText.find_last_not_of(' ') - nFirst + 1);
}

std::size_t required_field(const Formula::FindField& find, std::string_view sName, std::size_t nPosition) {
  const auto nField = find(sName);
  if (!nField) throw FormulaError("no field named \"" + std::string(sName) + "\"", nPosition);
  return *nField;
}

}  // namespace

Formula::Formula(std::string sText, const FindField& find)
    : text_(std::move(sText)), expression_(std::make_unique<Expression>()) {
  const std::size_t nEquals = text_.find('=');
  if (nEquals == std::string::npos) throw FormulaError("a formula is written \"target=expression\"", text_.size());
  target_ = required_field(find, trimmed(std::string_view(text_).substr(0, nEquals)), 0);
  const std::size_t nStart = nEquals + 1;
  mu::Parser& parser = expression_->parser;
  try {
    parser.SetExpr(text_.substr(nStart));
    std::vector<std::string> aNames;
    for (const auto& [sName, unused] : parser.GetUsedVar()) aNames.push_back(sName);
    expression_->slots.assign(aNames.size(), 1.0);
    for (std::size_t i = 0; i < aNames.size(); ++i) {
      operands_.push_back(required_field(find, aNames[i], text_.find(aNames[i], nStart)));
      parser.DefineVar(aNames[i], &expression_->slots[i]);
    }
    parser.Eval();
  } catch (const mu::ParserError& error) {
    // The parser counts from the start of the expression, and not at all at its end.
    const auto nPosition = static_cast<std::size_t>(std::max<std::ptrdiff_t>(error.GetPos(), 0));
    throw FormulaError(error.GetMsg(), std::min(nStart + nPosition, text_.size()));
  }
}

Formula::~Formula() = default;
Formula::Formula(Formula&&) noexcept = default;
Formula& Formula::operator=(Formula&&) noexcept = default;

std::optional<double> Formula::evaluate(std::span<const double> aValues) const {
  std::copy(aValues.begin(), aValues.end(), expression_->slots.begin());
  double dResult = 0;
  try {
    dResult = expression_->parser.Eval();
  } catch (const mu::ParserError&) {
    return std::nullopt;
  }
  if (!std::isfinite(dResult)) return std::nullopt;
  return dResult;
}

double round_half_away(double dValue, int nDecimals) {
  const long double dScale = std::pow(10.0L, nDecimals);
  const long double dScaled = std::fabs(static_cast<long double>(dValue)) * dScale;
  // 15 digits are sure in a double: the nudge lets 1.005 count as the half that it was written as.
  const long double dRounded = std::floor(dScaled * (1.0L + 4e-16L) + 0.5L) / dScale;
  return static_cast<double>(dValue < 0 ? -dRounded : dRounded);
}

}  // namespace desk

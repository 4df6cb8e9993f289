#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>

#include "frame/conversions.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

/// The largest whole amount of the currency type.
constexpr double kLargestAmount = 922337203685478;
/// Below this a text is written with an exponent, whose characters count as digits behind the point.
constexpr double kSmallestPlainText = 1e-4;
constexpr int kFastDigits = 12;
constexpr std::array<double, kFastDigits + 2> kPowersOfTen{1e0, 1e1, 1e2, 1e3,  1e4,  1e5,  1e6,
                                                           1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13};

/// Decides on the binary value where that can't differ from the digits; nothing where it could.
std::optional<double> rounded_fast(double dValue, int nDigits) {
  const double dAbsolute = std::abs(dValue);
  if (nDigits < 0 || nDigits > kFastDigits || dAbsolute < kSmallestPlainText) return std::nullopt;
  const double dScale = kPowersOfTen[static_cast<std::size_t>(nDigits)];
  const double dFinerScale = kPowersOfTen[static_cast<std::size_t>(nDigits) + 1];
  // One decimal more than wanted: fourteen digits are the value's exact text, and the nudge is the fifteenth.
  if (const double dFiner = dAbsolute * dFinerScale; dFiner < 1e14) {
    // Neither negative nor large, so that half of one and the cut round it; llround would be a call.
    const double dBeforeCut = dFiner + 0.5;
    const auto nFiner = static_cast<std::int64_t>(dBeforeCut);
    if (static_cast<double>(nFiner) / dFinerScale == dAbsolute) {
      const std::int64_t nWanted = (nFiner + 5) / 10;
      return std::copysign(static_cast<double>(nWanted) / dScale, dValue) + 0.0;
    }
  }
  // Any other value: the digits move it by less than 1E-4 of the last place here, so only the half is in doubt.
  const double dScaled = dAbsolute * dScale;
  if (!(dScaled < 1e10)) return std::nullopt;
  const auto nBelow = static_cast<std::int64_t>(dScaled);
  const double dFromHalf = dScaled - static_cast<double>(nBelow) - 0.5;
  if (std::abs(dFromHalf) < 1e-4) return std::nullopt;
  return std::copysign(static_cast<double>(dFromHalf > 0 ? nBelow + 1 : nBelow) / dScale, dValue) + 0.0;
}

/// The text of a value decides how many digits stand behind its point.
double rounded_by_text(double dValue, std::string_view sText, int nDigits) {
  const std::size_t nPoint = sText.find('.');
  const bool bShort =
      nPoint != std::string_view::npos && static_cast<int>(sText.size() - nPoint - 1) < nDigits + 2 && nDigits >= 0;
  if (!bShort) return Round(dValue, nDigits);
  const std::string sMask = "#0." + std::string(static_cast<std::size_t>(nDigits) + 1, '0') + "1";
  return Round(Val(Format(dValue, sMask)), nDigits);
}

bool is_no_amount(double dValue) { return dValue == 0 || !(std::abs(dValue) <= kLargestAmount); }

/// The value as the rule tests it. Fifteen digits make a difference only near the largest amount.
double tested_value(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Double && std::abs(vValue.as<double>()) < 9e14) return vValue.as<double>();
  return NumberOf(vValue);
}

}  // namespace

double RoundAmountOf(const Variant& vValue, int nDigits) {
  const double dValue = tested_value(vValue);
  if (is_no_amount(dValue)) return 0;
  // The text of a text is itself, with the zeros at its end.
  if (vValue.is_text()) return rounded_by_text(dValue, vValue.text(), nDigits) + 0.0;
  if (const auto fast = rounded_fast(dValue, nDigits)) return *fast;
  return rounded_by_text(dValue, TextOf(dValue), nDigits) + 0.0;
}

Variant RoundAmount(const Variant& vValue, int nDigits) {
  if (is_no_amount(tested_value(vValue))) return std::int16_t{0};
  const bool bWhole = vValue.type() == Variant::Type::Integer || vValue.type() == Variant::Type::Long;
  if (bWhole && nDigits >= 0) return vValue;  // the runtime's Round keeps the type of a whole number
  return RoundAmountOf(vValue, nDigits);
}

}  // namespace arap

#pragma once

#include <string>

/// The decimal digits of a double, for the conversions that round and print by digits instead of by binary value.
namespace arap {

/// Digits of a text of a double: what the runtime keeps of it.
inline constexpr int kTextDigits = 15;

/// 0.d1d2d3... times ten to the power of nPoint; zero has no digits. No zeros at the end.
struct DecimalDigits {
  bool bNegative = false;
  std::string sDigits;
  int nPoint = 0;
};

/// The value in nPrecision significant digits.
DecimalDigits DigitsOf(double dValue, int nPrecision = kTextDigits);
/// The value in the fewest digits that read back as the same double.
DecimalDigits ShortestDigitsOf(double dValue);

enum class Half { ToEven, AwayFromZero };
/// Rounds to nDecimals places behind the point.
DecimalDigits RoundDigits(DecimalDigits digits, int nDecimals, Half half);

double ValueOf(const DecimalDigits& digits);

}  // namespace arap

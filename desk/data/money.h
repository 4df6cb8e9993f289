#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/variant.h"

namespace desk {

/// An amount in ten-thousandths of its currency's unit, the way the books store it. Sums are exact; a result outside
/// the range (about 922 337 203 685 477) raises DeskError.
struct Money {
  static constexpr std::int64_t kScale = 10'000;

  std::int64_t units = 0;

  /// Rounds half away from zero at the fourth decimal, on the 15-digit decimal text of the value.
  static Money from_double(double dValue);
  /// "1234.5", "-0.07": an optional sign, digits, one point. Raises DeskError for anything else and for a non-zero
  /// digit after the fourth decimal.
  static Money parse(std::string_view sText);
  /// A stored amount (the scaled integer as the database gives it), not an amount in units of the currency.
  static Money from_stored(const arap::Variant& vStored);

  double to_double() const { return static_cast<double>(units) / static_cast<double>(kScale); }
  /// All four decimals without trailing zeros, at least `nDecimals` of them.
  std::string text(int nDecimals = 2) const;
  /// This amount times a rate, rounded half away from zero to `nDecimals` (0 to 4).
  Money times(double dRate, int nDecimals = 2) const;
  bool is_zero() const { return units == 0; }

  friend Money operator+(Money a, Money b);
  friend Money operator-(Money a, Money b);
  friend Money operator-(Money a);
  Money& operator+=(Money other) { return *this = *this + other; }
  Money& operator-=(Money other) { return *this = *this - other; }
  friend auto operator<=>(Money, Money) = default;  // NOLINT(modernize-use-nullptr): its own 0 is no pointer
};

}  // namespace desk

#include "data/money.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include "data/desk_error.h"

namespace desk {
namespace {

__extension__ typedef __int128 Wide;

constexpr int kDigits = 15;  // what a double holds of any decimal
constexpr int kMaxPower = 37;
constexpr double kLargestUnits = 9223372036854774784.0;  // the largest double below 2^63

[[noreturn]] void out_of_range(const std::string& sText) {
  throw DeskError(ErrorKind::BadValue, "The amount is out of range", sText,
                  "An amount has at most 14 digits before the point");
}

[[noreturn]] void not_an_amount(std::string_view sText) {
  throw DeskError(ErrorKind::BadValue, "This is no amount", std::string(sText),
                  "Write digits with a decimal point, at most four decimals");
}

Wide power_of_ten(int nPower) {
  Wide nResult = 1;
  for (int i = 0; i < nPower; ++i) nResult *= 10;
  return nResult;
}

Wide divide_half_away(Wide nValue, int nPower) {
  if (nPower > kMaxPower) return 0;
  const Wide nDivisor = power_of_ten(nPower);
  const Wide nHalf = nDivisor / 2;
  return (nValue < 0 ? nValue - nHalf : nValue + nHalf) / nDivisor;
}

/// A double as decimal: value = digits * 10^exponent.
struct Decimal {
  std::int64_t nDigits;
  int nExponent;
};

Decimal decimal_of(double dValue) {
  if (!std::isfinite(dValue)) out_of_range("not a finite number");
  char aText[40];
  std::snprintf(aText, sizeof aText, "%.*e", kDigits - 1, dValue);
  std::int64_t nDigits = 0;
  const char* p = aText;
  const bool bNegative = *p == '-';
  if (bNegative) ++p;
  for (; *p != '\0' && *p != 'e'; ++p)
    if (*p >= '0' && *p <= '9') nDigits = nDigits * 10 + (*p - '0');
  const int nExponent = *p == 'e' ? std::atoi(p + 1) : 0;
  return {bNegative ? -nDigits : nDigits, nExponent - (kDigits - 1)};
}

/// The units of a value that is a whole number of them: fourteen digits at most, so the 15-digit text is the same
/// value.
std::optional<std::int64_t> exact_units(double dValue) {
  const double dScaled = dValue * static_cast<double>(Money::kScale);
  if (!(std::fabs(dScaled) < 1e14)) return std::nullopt;
  const auto nUnits = static_cast<std::int64_t>(std::llround(dScaled));
  if (static_cast<double>(nUnits) / static_cast<double>(Money::kScale) != dValue) return std::nullopt;
  return nUnits;
}

/// nValue * 10^nPower, rounded half away from zero where digits are lost.
Wide scaled(Wide nValue, int nPower) {
  if (nValue == 0 || nPower == 0) return nValue;
  if (nPower < 0) return divide_half_away(nValue, -nPower);
  const Wide nLimit = std::numeric_limits<std::int64_t>::max();
  for (int i = 0; i < nPower; ++i) {
    nValue *= 10;
    if (nValue > nLimit || nValue < -nLimit) out_of_range("more than " + std::to_string(nPower) + " digits");
  }
  return nValue;
}

Money checked(Wide nUnits) {
  if (nUnits > std::numeric_limits<std::int64_t>::max() || nUnits < std::numeric_limits<std::int64_t>::min())
    out_of_range("the result of a calculation");
  return Money{static_cast<std::int64_t>(nUnits)};
}

}  // namespace

Money Money::from_double(double dValue) {
  if (const auto nUnits = exact_units(dValue)) return Money{*nUnits};
  const Decimal decimal = decimal_of(dValue);
  return checked(scaled(decimal.nDigits, decimal.nExponent + 4));
}

Money Money::parse(std::string_view sText) {
  std::string_view sRest = sText;
  const bool bNegative = sRest.starts_with('-');
  if (bNegative || sRest.starts_with('+')) sRest.remove_prefix(1);
  const std::size_t nPoint = sRest.find('.');
  const std::string_view sWhole = sRest.substr(0, nPoint);
  std::string_view sDecimals = nPoint == std::string_view::npos ? std::string_view{} : sRest.substr(nPoint + 1);
  while (sDecimals.size() > 4 && sDecimals.ends_with('0')) sDecimals.remove_suffix(1);
  if (sWhole.empty() && sDecimals.empty()) not_an_amount(sText);
  if (sDecimals.size() > 4) not_an_amount(sText);
  Wide nUnits = 0;
  for (const std::string_view sDigits : {sWhole, sDecimals}) {
    for (const char c : sDigits) {
      if (c < '0' || c > '9') not_an_amount(sText);
      nUnits = nUnits * 10 + (c - '0');
      if (nUnits > std::numeric_limits<std::int64_t>::max()) out_of_range(std::string(sText));
    }
  }
  nUnits = scaled(nUnits, 4 - static_cast<int>(sDecimals.size()));
  return checked(bNegative ? -nUnits : nUnits);
}

Money Money::from_stored(const arap::Variant& vStored) {
  using Type = arap::Variant::Type;
  switch (vStored.type()) {
    case Type::Empty:
    case Type::Null:
    case Type::Missing: return {};
    case Type::Boolean: return Money{vStored.as<bool>() ? -1 : 0};
    case Type::Integer: return Money{vStored.as<std::int16_t>()};
    case Type::Long: return Money{vStored.as<std::int32_t>()};
    case Type::Double: {
      const double dUnits = vStored.as<double>();
      if (!(std::fabs(dUnits) < kLargestUnits)) out_of_range("a stored amount");
      return Money{static_cast<std::int64_t>(std::llround(dUnits))};
    }
    case Type::Text: {
      const std::string_view sText = vStored.text();
      std::int64_t nUnits = 0;
      const auto [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), nUnits);
      if (error != std::errc() || pEnd != sText.data() + sText.size()) not_an_amount(sText);
      return Money{nUnits};
    }
    case Type::Date:
    case Type::Object: break;
  }
  not_an_amount("a date or an object");
}

std::string Money::text(int nDecimals) const {
  const std::uint64_t nAbsolute = units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
  char aDecimals[8];
  std::snprintf(aDecimals, sizeof aDecimals, "%04u", static_cast<unsigned>(nAbsolute % kScale));
  std::string sDecimals = aDecimals;
  while (static_cast<int>(sDecimals.size()) > nDecimals && sDecimals.ends_with('0')) sDecimals.pop_back();
  std::string sText = units < 0 ? "-" : "";
  sText += std::to_string(nAbsolute / kScale);
  return sDecimals.empty() ? sText : sText + "." + sDecimals;
}

Money Money::times(double dRate, int nDecimals) const {
  const Decimal rate = decimal_of(dRate);
  const int nDropped = 4 - nDecimals;
  const Wide nProduct = static_cast<Wide>(units) * rate.nDigits;
  const int nPower = -rate.nExponent + nDropped;
  const Wide nRounded = nPower >= 0 ? divide_half_away(nProduct, nPower) : scaled(nProduct, -nPower);
  return checked(scaled(nRounded, nDropped));
}

Money operator+(Money a, Money b) { return checked(static_cast<Wide>(a.units) + b.units); }
Money operator-(Money a, Money b) { return checked(static_cast<Wide>(a.units) - b.units); }
Money operator-(Money a) { return checked(-static_cast<Wide>(a.units)); }

}  // namespace desk

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

#include "frame/calendar.h"
#include "frame/conversions.h"
#include "frame/decimal_digits.h"
#include "frame/number_text.h"

namespace arap {

namespace {

constexpr bool is_place(char c) { return c == '0' || c == '#'; }

bool is_number_mask(std::string_view sMask) { return sMask.find_first_of("0#") != std::string_view::npos; }

/// The digit with the weight ten to the power of nPower.
char digit_at(const DecimalDigits& digits, int nPower) {
  const int nIndex = digits.nPoint - 1 - nPower;
  if (nIndex < 0 || nIndex >= static_cast<int>(digits.sDigits.size())) return '0';
  return digits.sDigits[static_cast<std::size_t>(nIndex)];
}

/// A mask of a number, taken apart at its point.
struct NumberMask {
  explicit NumberMask(std::string_view sMask) {
    const std::size_t nPoint = sMask.find('.');
    sWhole = sMask.substr(0, nPoint);
    bPoint = nPoint != std::string_view::npos;
    if (bPoint) sDecimals = sMask.substr(nPoint + 1);
    for (const char c : sDecimals) nDecimals += is_place(c) ? 1 : 0;
  }
  std::string_view sWhole;
  std::string_view sDecimals;
  bool bPoint = false;
  int nDecimals = 0;
};

/// The part before the point, from its last place to its first; the first one takes all digits that are left.
std::string whole_part(const DecimalDigits& digits, const NumberMask& mask) {
  const bool bGroups = mask.sWhole.find(',') != std::string_view::npos;
  const std::size_t nFirstPlace = mask.sWhole.find_first_of("0#");
  std::string sReversed;
  int nPower = 0;
  const auto put_digit = [&] {
    if (bGroups && nPower > 0 && nPower % 3 == 0) sReversed.push_back(',');
    sReversed.push_back(digit_at(digits, nPower++));
  };
  for (std::size_t n = mask.sWhole.size(); n-- > 0;) {
    const char c = mask.sWhole[n];
    if (!is_place(c)) {
      if (c != ',') sReversed.push_back(c);
      continue;
    }
    if (c == '0' || nPower < digits.nPoint) put_digit();
    if (n == nFirstPlace) {
      while (nPower < digits.nPoint) put_digit();
    }
  }
  return {sReversed.rbegin(), sReversed.rend()};
}

/// The part behind the point. A "#" prints no zero at the end; every other character prints itself.
std::string decimal_part(const DecimalDigits& digits, const NumberMask& mask) {
  const int nHeld = static_cast<int>(digits.sDigits.size()) - digits.nPoint;
  std::string sText;
  int nPlace = 0;
  for (const char c : mask.sDecimals) {
    if (!is_place(c)) {
      sText.push_back(c);
    } else if (++nPlace <= nHeld || c == '0') {
      sText.push_back(digit_at(digits, -nPlace));
    }
  }
  return sText;
}

std::string format_number(double dValue, std::string_view sMask) {
  const NumberMask mask(sMask);
  const DecimalDigits digits = RoundDigits(DigitsOf(dValue), mask.nDecimals, Half::AwayFromZero);
  std::string sText = digits.bNegative ? "-" : "";
  sText += whole_part(digits, mask);
  if (mask.bPoint) sText.append(".").append(decimal_part(digits, mask));
  return sText;
}

std::string padded(int nNumber, std::size_t nWidth) {
  std::array<char, 16> aBuffer{};
  std::snprintf(aBuffer.data(), aBuffer.size(), "%0*d", static_cast<int>(nWidth), nNumber);
  return aBuffer.data();
}

/// One run of the same letter: yyyy or yy, m or mm, and so on. Nothing for a letter that stands for itself.
std::optional<std::string> date_piece(const DateParts& parts, char cLetter, std::size_t nRun, bool bMinutes) {
  const std::size_t nWidth = nRun == 1 ? 1 : 2;
  switch (cLetter) {
    case 'y': return nRun > 2 ? padded(parts.day.nYear, 4) : padded(parts.day.nYear % 100, 2);
    case 'm': return padded(bMinutes ? parts.nSecond / 60 % 60 : parts.day.nMonth, nWidth);
    case 'd': return padded(parts.day.nDay, nWidth);
    case 'h': return padded(parts.nSecond / 3600, nWidth);
    case 'n': return padded(parts.nSecond / 60 % 60, nWidth);
    case 's': return padded(parts.nSecond % 60, nWidth);
    default: return std::nullopt;
  }
}

std::string format_date(Date date, std::string_view sMask) {
  const DateParts parts = PartsOf(date);
  const std::string sLower = LowerCase(sMask);
  std::string sText;
  bool bAfterHour = false;
  for (std::size_t n = 0; n < sLower.size();) {
    const char c = sLower[n];
    const std::size_t nEnd = std::min(sLower.find_first_not_of(c, n), sLower.size());
    const auto piece = date_piece(parts, c, nEnd - n, bAfterHour);
    sText += piece ? *piece : std::string(sMask.substr(n, nEnd - n));
    if (piece) bAfterHour = c == 'h';
    n = nEnd;
  }
  return sText;
}

std::optional<double> number_for_mask(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Date) return vValue.as<Date>().days;
  if (!IsNumeric(vValue)) return std::nullopt;
  const double dValue = ToDouble(vValue);
  if (!std::isfinite(dValue)) return std::nullopt;
  return dValue;
}

std::optional<Date> date_for_mask(const Variant& vValue) {
  std::optional<Date> date;
  if (IsDate(vValue)) {
    date = ToDate(vValue);
  } else if (!vValue.is_text() && !vValue.is_empty() && IsNumeric(vValue)) {
    date = Date{ToDouble(vValue)};
  }
  if (date && !IsInCalendar(*date)) date.reset();
  return date;
}

}  // namespace

std::string Format(const Variant& vValue, std::string_view sMask) {
  if (sMask.empty()) return Concat(vValue);
  if (is_number_mask(sMask)) {
    const auto number = number_for_mask(vValue);
    if (number) return format_number(*number, sMask);
  } else if (const auto date = date_for_mask(vValue)) {
    return format_date(*date, sMask);
  }
  return Concat(vValue);
}

}  // namespace arap

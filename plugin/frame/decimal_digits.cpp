#include "frame/decimal_digits.h"

#include <charconv>
#include <string_view>

namespace arap {

namespace {

/// Reads "-d.ddde+xx" as std::to_chars writes it.
DecimalDigits read_scientific(std::string_view sText) {
  DecimalDigits digits;
  digits.bNegative = sText.front() == '-';
  const std::size_t nE = sText.find('e');
  if (nE == std::string_view::npos) return digits;  // not a number, or infinite
  for (const char c : sText.substr(0, nE)) {
    if (c >= '0' && c <= '9') digits.sDigits.push_back(c);
  }
  std::string_view sExponent = sText.substr(nE + 1);
  if (sExponent.front() == '+') sExponent.remove_prefix(1);
  std::from_chars(sExponent.data(), sExponent.data() + sExponent.size(), digits.nPoint);
  ++digits.nPoint;
  digits.sDigits.erase(digits.sDigits.find_last_not_of('0') + 1);
  if (digits.sDigits.empty()) return {};
  return digits;
}

}  // namespace

DecimalDigits DigitsOf(double dValue, int nPrecision) {
  char aBuffer[64];
  const auto end =
      std::to_chars(aBuffer, aBuffer + sizeof aBuffer, dValue, std::chars_format::scientific, nPrecision - 1).ptr;
  return read_scientific({aBuffer, end});
}

DecimalDigits ShortestDigitsOf(double dValue) {
  char aBuffer[64];
  const auto end = std::to_chars(aBuffer, aBuffer + sizeof aBuffer, dValue, std::chars_format::scientific).ptr;
  return read_scientific({aBuffer, end});
}

DecimalDigits RoundDigits(DecimalDigits digits, int nDecimals, Half half) {
  const int nKeep = digits.nPoint + nDecimals;
  if (nKeep >= static_cast<int>(digits.sDigits.size())) return digits;
  if (nKeep < 0) return {};
  std::string& sDigits = digits.sDigits;
  const char cNext = sDigits[static_cast<std::size_t>(nKeep)];
  const bool bTie = cNext == '5' && sDigits.size() == static_cast<std::size_t>(nKeep) + 1;
  const bool bOdd = nKeep > 0 && (sDigits[static_cast<std::size_t>(nKeep) - 1] - '0') % 2 == 1;
  const bool bUp = bTie && half == Half::ToEven ? bOdd : cNext >= '5';
  sDigits.resize(static_cast<std::size_t>(nKeep));
  if (bUp) {
    while (!sDigits.empty() && sDigits.back() == '9') sDigits.pop_back();
    if (sDigits.empty()) {
      sDigits = "1";
      ++digits.nPoint;
    } else {
      ++sDigits.back();
    }
  }
  sDigits.erase(sDigits.find_last_not_of('0') + 1);
  if (sDigits.empty()) return {};
  return digits;
}

double ValueOf(const DecimalDigits& digits) {
  if (digits.sDigits.empty()) return 0;
  std::string sText = digits.bNegative ? "-." : ".";
  sText.append(digits.sDigits).append("e").append(std::to_string(digits.nPoint));
  double dValue = 0;
  std::from_chars(sText.data(), sText.data() + sText.size(), dValue);
  return dValue;
}

}  // namespace arap

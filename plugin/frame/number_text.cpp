#include "frame/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace arap {

namespace {

void skip_white(std::string_view& sRest) {
  while (!sRest.empty() && IsWhite(sRest.front())) sRest.remove_prefix(1);
}

void cut_white(std::string_view& sRest) {
  skip_white(sRest);
  while (!sRest.empty() && IsWhite(sRest.back())) sRest.remove_suffix(1);
}

/// A sign before or behind the number; false when there are two.
bool take_sign(std::string_view& sRest, bool& bNegative) {
  const auto is_sign = [](char c) { return c == '-' || c == '+'; };
  if (sRest.empty()) return true;
  if (is_sign(sRest.front())) {
    bNegative = sRest.front() == '-';
    sRest.remove_prefix(1);
  } else if (is_sign(sRest.back())) {
    bNegative = sRest.back() == '-';
    sRest.remove_suffix(1);
  }
  cut_white(sRest);
  return sRest.empty() || (!is_sign(sRest.front()) && !is_sign(sRest.back()));
}

std::optional<ParsedNumber> parse_literal(std::string_view sRest) {
  if (sRest.size() < 3) return std::nullopt;
  const unsigned nBase = sRest[1] == 'H' || sRest[1] == 'h' ? 16 : sRest[1] == 'O' || sRest[1] == 'o' ? 8 : 0;
  std::uint64_t nBits = 0;
  for (const char c : sRest.substr(2)) {
    const int nDigit = DigitValue(c);
    if (nDigit < 0 || static_cast<unsigned>(nDigit) >= nBase) return std::nullopt;
    if (nBits >> 60 != 0) return std::nullopt;
    nBits = nBits * nBase + static_cast<unsigned>(nDigit);
  }
  return ParsedNumber{static_cast<double>(nBits), nBits};
}

/// Moves digits to `sNumber`, dropping thousands separators behind the first one; answers how many there were.
int take_digits(std::string_view& sRest, std::string& sNumber, bool bSeparators) {
  int nDigits = 0;
  while (!sRest.empty() && (IsDigit(sRest.front()) || (bSeparators && nDigits > 0 && sRest.front() == ','))) {
    if (sRest.front() != ',') {
      sNumber.push_back(sRest.front());
      ++nDigits;
    }
    sRest.remove_prefix(1);
  }
  return nDigits;
}

/// True unless an exponent is begun and not finished.
bool take_exponent(std::string_view& sRest, std::string& sNumber) {
  if (sRest.empty() || std::string_view("eEdD").find(sRest.front()) == std::string_view::npos) return true;
  sRest.remove_prefix(1);
  sNumber.push_back('e');
  if (!sRest.empty() && (sRest.front() == '-' || sRest.front() == '+')) {
    sNumber.push_back(sRest.front());
    sRest.remove_prefix(1);
  }
  return take_digits(sRest, sNumber, false) > 0;
}

}  // namespace

int DigitValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

double ReadPlainNumber(const std::string& sNumber) {
  double dValue = 0;
  const auto result = std::from_chars(sNumber.data(), sNumber.data() + sNumber.size(), dValue);
  if (result.ec != std::errc::result_out_of_range) return dValue;
  const std::size_t nE = sNumber.find('e');
  const bool bTiny = nE != std::string::npos ? sNumber[nE + 1] == '-' : sNumber[0] == '0' || sNumber[0] == '.';
  return bTiny ? 0 : std::numeric_limits<double>::infinity();
}

std::optional<ParsedNumber> ParseNumber(std::string_view sText) {
  cut_white(sText);
  if (!sText.empty() && sText.front() == '&') return parse_literal(sText);
  bool bNegative = false;
  if (!take_sign(sText, bNegative)) return std::nullopt;
  std::string sNumber;
  int nDigits = take_digits(sText, sNumber, true);
  if (!sText.empty() && sText.front() == '.') {
    sNumber.push_back('.');
    sText.remove_prefix(1);
    nDigits += take_digits(sText, sNumber, false);
  }
  if (nDigits == 0 || !take_exponent(sText, sNumber) || !sText.empty()) return std::nullopt;
  const double dValue = ReadPlainNumber(sNumber);
  if (!std::isfinite(dValue)) return std::nullopt;
  return ParsedNumber{bNegative ? -dValue : dValue, std::nullopt};
}

}  // namespace arap

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Reading numbers and dates out of text, shared by the conversions.
namespace arap {

/// A text of a number, read. A literal (&H, &O) has its bits, since an integer target takes them with their sign.
struct ParsedNumber {
  double dValue = 0;
  std::optional<std::uint64_t> nBits;
};

/// The text as a whole; nothing when it isn't a number or beyond the range of a double.
std::optional<ParsedNumber> ParseNumber(std::string_view sText);

/// Days of a text that is a date, a time or both; nothing when it isn't.
std::optional<double> ParseDate(std::string_view sText);

/// Blank, tab, line feed and the like, as the runtime cuts them around a number.
constexpr bool IsWhite(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// "[digits][.digits][e[sign]digits]" in plain form. Infinite beyond the range of a double, 0 below it.
double ReadPlainNumber(const std::string& sNumber);

/// The value of a digit to the base 16; -1 for any other character.
int DigitValue(char c);

}  // namespace arap

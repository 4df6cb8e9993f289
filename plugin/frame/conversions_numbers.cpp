#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "frame/calendar.h"
#include "frame/conversions.h"
#include "frame/decimal_digits.h"
#include "frame/number_text.h"

namespace arap {

namespace {

/// The characters of a number in plain form, white ones left out.
class PrefixReader {
 public:
  explicit PrefixReader(std::string_view sRest) : sRest_(sRest) { skip(); }

  char peek() const { return sRest_.empty() ? '\0' : sRest_.front(); }
  void next() {
    sRest_.remove_prefix(1);
    skip();
  }
  int take_digits(std::string& sNumber) {
    int nDigits = 0;
    for (; IsDigit(peek()); next(), ++nDigits) sNumber.push_back(peek());
    return nDigits;
  }

 private:
  void skip() {
    while (!sRest_.empty() && (sRest_.front() == ' ' || sRest_.front() == '\t' || sRest_.front() == '\n')) {
      sRest_.remove_prefix(1);
    }
  }

  std::string_view sRest_;
};

/// &H and &O: up to 16 bits are a 16-bit integer with its sign, up to 32 bits a 32-bit one; a "&" behind makes four
/// digits a 32-bit integer, too.
double literal_prefix(PrefixReader reader) {
  reader.next();
  const char cBase = reader.peek();
  const int nBase = cBase == 'H' || cBase == 'h' ? 16 : cBase == 'O' || cBase == 'o' ? 8 : 0;
  if (nBase == 0) return 0;
  reader.next();
  double dValue = 0;
  for (int nDigit = DigitValue(reader.peek()); nDigit >= 0 && nDigit < nBase; nDigit = DigitValue(reader.peek())) {
    dValue = dValue * nBase + nDigit;
    reader.next();
  }
  if (dValue <= 0xFFFF && reader.peek() != '&') return static_cast<std::int16_t>(static_cast<std::uint16_t>(dValue));
  if (dValue <= 0xFFFFFFFF) return static_cast<std::int32_t>(static_cast<std::uint32_t>(dValue));
  return dValue;
}

void exponent_prefix(PrefixReader reader, std::string& sNumber) {
  reader.next();
  std::string sExponent = "e";
  if (reader.peek() == '-' || reader.peek() == '+') {
    sExponent.push_back(reader.peek());
    reader.next();
  }
  if (reader.take_digits(sExponent) > 0) sNumber += sExponent;
}

/// Four decimals below 1E9 have at most thirteen digits: their 15-digit text reads back as the same double.
constexpr int kShortDecimals = 4;
constexpr std::array<double, kShortDecimals + 1> kPowersOfTen{1e0, 1e1, 1e2, 1e3, 1e4};

/// True for a value below 1E9 that has at most nDecimals (0 to 4) places behind the point.
bool is_short_decimal(double dValue, int nDecimals = kShortDecimals) {
  if (!(std::abs(dValue) < 1e9)) return false;
  const double dScale = kPowersOfTen[static_cast<std::size_t>(nDecimals)];
  const double dScaled = dValue * dScale;
  const auto nScaled = static_cast<std::int64_t>(dScaled + std::copysign(0.5, dScaled));
  return static_cast<double>(nScaled) / dScale == dValue;
}

double round_even_in(double dValue, double dLowest, double dHighest) {
  const double dWhole = std::nearbyint(dValue);
  if (!(dWhole >= dLowest && dWhole <= dHighest)) throw AutomationError(ErrorNumber::Overflow);
  return dWhole;
}

std::int32_t long_of_double(double dValue) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(round_even_in(dValue, Limits::min(), Limits::max()));
}

std::int16_t integer_of_double(double dValue) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(round_even_in(dValue, Limits::min(), Limits::max()));
}

ParsedNumber parsed_text(std::string_view sText) {
  const auto parsed = ParseNumber(sText);
  if (!parsed) throw AutomationError(ErrorNumber::TypeMismatch);
  return *parsed;
}

}  // namespace

double Val(std::string_view sText) {
  PrefixReader reader(sText);
  if (reader.peek() == '&') return literal_prefix(reader);
  const bool bNegative = reader.peek() == '-';
  if (bNegative || reader.peek() == '+') reader.next();
  std::string sNumber;
  int nDigits = reader.take_digits(sNumber);
  if (reader.peek() == '.') {
    reader.next();
    sNumber.push_back('.');
    nDigits += reader.take_digits(sNumber);
  }
  if (nDigits == 0) return 0;
  if (std::string_view("eEdD").find(reader.peek()) != std::string_view::npos) exponent_prefix(reader, sNumber);
  const double dValue = ReadPlainNumber(sNumber);
  return bNegative && dValue != 0 ? -dValue : dValue;
}

double NumberOf(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Double: {
      const double dValue = vValue.as<double>();
      if (is_short_decimal(dValue) || !std::isfinite(dValue)) return dValue;
      return ValueOf(DigitsOf(dValue));
    }
    case Variant::Type::Long: return vValue.as<std::int32_t>();
    case Variant::Type::Integer: return vValue.as<std::int16_t>();
    case Variant::Type::Text: return Val(vValue.text());
    case Variant::Type::Date: return IsInCalendar(vValue.as<Date>()) ? Val(TextOf(vValue)) : 0;
    case Variant::Type::Boolean:  // "True" and "False" have no digits
    case Variant::Type::Empty:
    case Variant::Type::Null:
    case Variant::Type::Object:
    case Variant::Type::Missing: return 0;
  }
  return 0;
}

std::int32_t LongOf(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Long) return vValue.as<std::int32_t>();
  return long_of_double(NumberOf(vValue));
}

std::int16_t IntegerOf(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Integer) return vValue.as<std::int16_t>();
  return integer_of_double(NumberOf(vValue));
}

bool IsNumeric(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Boolean:
    case Variant::Type::Integer:
    case Variant::Type::Long:
    case Variant::Type::Double: return true;
    case Variant::Type::Text: return ParseNumber(vValue.text()).has_value();
    case Variant::Type::Date:
    case Variant::Type::Null:
    case Variant::Type::Object:
    case Variant::Type::Missing: return false;
  }
  return false;
}

double ToDouble(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Empty: return 0;
    case Variant::Type::Boolean: return vValue.as<bool>() ? -1 : 0;
    case Variant::Type::Integer: return vValue.as<std::int16_t>();
    case Variant::Type::Long: return vValue.as<std::int32_t>();
    case Variant::Type::Double: return vValue.as<double>();
    case Variant::Type::Date: return vValue.as<Date>().days;
    case Variant::Type::Text: return parsed_text(vValue.text()).dValue;
    case Variant::Type::Null: throw AutomationError(ErrorNumber::InvalidUseOfNull);
    case Variant::Type::Object:
    case Variant::Type::Missing: break;
  }
  throw AutomationError(ErrorNumber::TypeMismatch);
}

std::int32_t ToLong(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Long) return vValue.as<std::int32_t>();
  if (!vValue.is_text()) return long_of_double(ToDouble(vValue));
  const ParsedNumber number = parsed_text(vValue.text());
  if (number.nBits && *number.nBits <= 0xFFFFFFFF) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(*number.nBits));
  }
  return long_of_double(number.dValue);
}

std::int16_t ToInteger(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Integer) return vValue.as<std::int16_t>();
  if (!vValue.is_text()) return integer_of_double(ToDouble(vValue));
  const ParsedNumber number = parsed_text(vValue.text());
  if (number.nBits && *number.nBits <= 0xFFFF) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(*number.nBits));
  }
  return integer_of_double(number.dValue);
}

bool ToBoolean(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Boolean) return vValue.as<bool>();
  if (vValue.is_text() && EqualsNoCase(vValue.text(), "True")) return true;
  if (vValue.is_text() && EqualsNoCase(vValue.text(), "False")) return false;
  return ToDouble(vValue) != 0;
}

double Divide(double dNumerator, double dDenominator) {
  if (dDenominator == 0) throw AutomationError(dNumerator == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
  const double dQuotient = dNumerator / dDenominator;
  if (!std::isfinite(dQuotient)) throw AutomationError(ErrorNumber::Overflow);
  return dQuotient;
}

double Round(double dValue, int nDigits) {
  if (nDigits < 0 || nDigits > 22) throw AutomationError(ErrorNumber::InvalidProcedureCall);
  if (!std::isfinite(dValue)) return dValue;
  // Nothing to round; the sum takes the sign of a negative zero away.
  if (is_short_decimal(dValue, std::min(nDigits, kShortDecimals))) return dValue + 0.0;
  // The text has no place behind the point from here on.
  if (std::abs(dValue) >= 1e15) return nDigits == 0 ? std::nearbyint(dValue) : dValue;
  DecimalDigits digits = DigitsOf(dValue);
  // A nudge behind the half would be the sixteenth digit here: look at all that the double holds.
  if (digits.nPoint + nDigits == kTextDigits - 1) digits = ShortestDigitsOf(dValue);
  return ValueOf(RoundDigits(std::move(digits), nDigits, Half::ToEven));
}

}  // namespace arap

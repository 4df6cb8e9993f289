#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "frame/calendar.h"
#include "frame/conversions.h"
#include "frame/decimal_digits.h"

namespace arap {

namespace {

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
constexpr char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

template <class T>
std::string whole_text(T nValue) {
  std::array<char, 24> aBuffer{};
  return {aBuffer.data(), std::to_chars(aBuffer.data(), aBuffer.data() + aBuffer.size(), nValue).ptr};
}

std::string date_text(Date date) {
  const DateParts parts = PartsOf(date);
  std::array<char, 32> aBuffer{};
  std::string sText;
  if (parts.nDay != 0) {
    std::snprintf(aBuffer.data(), aBuffer.size(), "%04d-%02d-%02d", parts.day.nYear, parts.day.nMonth, parts.day.nDay);
    sText = aBuffer.data();
  }
  if (parts.nSecond != 0 || parts.nDay == 0) {
    std::snprintf(aBuffer.data(), aBuffer.size(), "%02d:%02d:%02d", parts.nSecond / 3600, parts.nSecond / 60 % 60,
                  parts.nSecond % 60);
    if (!sText.empty()) sText.push_back(' ');
    sText += aBuffer.data();
  }
  return sText;
}

}  // namespace

std::string TextOf(double dValue) {
  if (dValue == 0) return "0";  // without the sign of a negative zero
  // A whole number of at most fifteen digits is its own text.
  if (std::abs(dValue) < 1e15 && dValue == std::trunc(dValue)) return whole_text(static_cast<std::int64_t>(dValue));
  std::array<char, 32> aBuffer{};
  char* const end =
      std::to_chars(aBuffer.data(), aBuffer.data() + aBuffer.size(), dValue, std::chars_format::general, kTextDigits)
          .ptr;
  std::replace(aBuffer.data(), end, 'e', 'E');
  return {aBuffer.data(), end};
}

std::string TextOf(const Variant& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Empty: return {};
    case Variant::Type::Boolean: return vValue.as<bool>() ? "True" : "False";
    case Variant::Type::Integer: return whole_text(vValue.as<std::int16_t>());
    case Variant::Type::Long: return whole_text(vValue.as<std::int32_t>());
    case Variant::Type::Double: return TextOf(vValue.as<double>());
    case Variant::Type::Date: return date_text(vValue.as<Date>());
    case Variant::Type::Text: return std::string(vValue.text());
    case Variant::Type::Null: throw AutomationError(ErrorNumber::InvalidUseOfNull);
    case Variant::Type::Object:
    case Variant::Type::Missing: break;
  }
  throw AutomationError(ErrorNumber::TypeMismatch);
}

std::string Concat(const Variant& vValue) {
  if (vValue.is_null() || vValue.is_nothing() || vValue.is_missing()) return {};
  return TextOf(vValue);
}

std::string NumberText(const Variant& vValue) {
  const double dValue = NumberOf(vValue);
  if (std::abs(dValue) < 9e18 && dValue == std::trunc(dValue)) return whole_text(static_cast<std::int64_t>(dValue));
  return TextOf(dValue);
}

std::string_view Trim(std::string_view sText) {
  const std::size_t nFirst = sText.find_first_not_of(' ');
  if (nFirst == std::string_view::npos) return {};
  return sText.substr(nFirst, sText.find_last_not_of(' ') - nFirst + 1);
}

std::string LowerCase(std::string_view sText) {
  std::string sLower(sText);
  std::transform(sLower.begin(), sLower.end(), sLower.begin(), lower);
  return sLower;
}

std::string UpperCase(std::string_view sText) {
  std::string sUpper(sText);
  std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(), upper);
  return sUpper;
}

bool EqualsNoCase(std::string_view sA, std::string_view sB) {
  return sA.size() == sB.size() &&
         std::equal(sA.begin(), sA.end(), sB.begin(), [](char a, char b) { return lower(a) == lower(b); });
}

bool Equals(const Variant& vA, const Variant& vB) {
  const auto incomparable = [](const Variant& vValue) { return vValue.is_object() || vValue.is_missing(); };
  if (incomparable(vA) || incomparable(vB)) throw AutomationError(ErrorNumber::TypeMismatch);
  if (vA.is_null() || vB.is_null()) return false;
  if (vA.is_text() && vB.is_text()) return vA.text() == vB.text();
  if (vA.is_text()) return vB.is_empty() && vA.text().empty();
  if (vB.is_text()) return vA.is_empty() && vB.text().empty();
  return ToDouble(vA) == ToDouble(vB);
}

}  // namespace arap

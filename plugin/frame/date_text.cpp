#include <array>
#include <charconv>

#include "frame/calendar.h"
#include "frame/number_text.h"

namespace arap {

namespace {

/// Reads the pieces of a date text from its start on.
class DateReader {
 public:
  explicit DateReader(std::string_view sRest) : sRest_(sRest) { skip_white(); }

  bool at_end() const { return sRest_.empty(); }
  bool at_digit() const { return !sRest_.empty() && IsDigit(sRest_.front()); }
  void skip_white() {
    while (!sRest_.empty() && IsWhite(sRest_.front())) sRest_.remove_prefix(1);
  }
  bool take(std::string_view sPiece) {
    if (!EqualsNoCase(sRest_.substr(0, sPiece.size()), sPiece)) return false;
    sRest_.remove_prefix(sPiece.size());
    return true;
  }
  /// One to four digits; nothing for none or more.
  std::optional<int> take_number() {
    std::size_t nDigits = 0;
    while (nDigits < sRest_.size() && IsDigit(sRest_[nDigits])) ++nDigits;
    if (nDigits == 0 || nDigits > 4) return std::nullopt;
    int nNumber = 0;
    std::from_chars(sRest_.data(), sRest_.data() + nDigits, nNumber);
    nDigits_ = static_cast<int>(nDigits);
    sRest_.remove_prefix(nDigits);
    return nNumber;
  }
  /// Digits of the last number.
  int digits() const { return nDigits_; }
  /// True when the next number is followed by the colon of a time.
  bool at_time() const {
    const std::size_t nEnd = sRest_.find_first_not_of("0123456789");
    return nEnd != std::string_view::npos && nEnd > 0 && sRest_[nEnd] == ':';
  }

 private:
  std::string_view sRest_;
  int nDigits_ = 0;
};

/// A year of two digits lies between 1930 and 2029.
int full_year(int nYear, int nDigits) {
  if (nDigits > 2) return nYear;
  return nYear < 30 ? nYear + 2000 : nYear + 1900;
}

std::optional<double> read_day(DateReader& reader) {
  std::array<int, 3> aNumbers{};
  std::array<int, 3> aDigits{};
  constexpr std::array<std::string_view, 3> kUnits{"年", "月", "日"};
  std::string_view sSeparator;
  for (std::size_t n = 0; n < 3; ++n) {
    const auto number = reader.take_number();
    if (!number) return std::nullopt;
    aNumbers[n] = *number;
    aDigits[n] = reader.digits();
    if (n == 0) sSeparator = reader.take("-") ? "-" : reader.take("/") ? "/" : reader.take(".") ? "." : "";
    if (sSeparator.empty() && !reader.take(kUnits[n])) return std::nullopt;
    if (n == 1 && !sSeparator.empty() && !reader.take(sSeparator)) return std::nullopt;
  }
  if (aDigits[0] <= 2 && aDigits[2] > 2) {  // the year stands last: month, day, year
    aNumbers = {aNumbers[2], aNumbers[0], aNumbers[1]};
    aDigits[0] = aDigits[2];
  }
  const int nYear = full_year(aNumbers[0], aDigits[0]);
  if (!IsCalendarDay(nYear, aNumbers[1], aNumbers[2])) return std::nullopt;
  return DateSerial(nYear, aNumbers[1], aNumbers[2]).days;
}

/// h:mm, h:mm:ss, with AM or PM behind; as the fraction of a day.
std::optional<double> read_time(DateReader& reader) {
  const auto hour = reader.take_number();
  if (!hour || !reader.take(":")) return std::nullopt;
  const auto minute = reader.take_number();
  if (!minute) return std::nullopt;
  std::optional<int> second = 0;
  if (reader.take(":")) second = reader.take_number();
  if (!second || *minute > 59 || *second > 59) return std::nullopt;
  reader.skip_white();
  int nHour = *hour;
  const bool bAfternoon = reader.take("PM");
  if (bAfternoon || reader.take("AM")) {
    if (nHour < 1 || nHour > 12) return std::nullopt;
    nHour = nHour % 12 + (bAfternoon ? 12 : 0);
  }
  if (nHour > 23) return std::nullopt;
  return (nHour * 3600 + *minute * 60 + *second) / 86400.0;
}

}  // namespace

std::optional<double> ParseDate(std::string_view sText) {
  DateReader reader(sText);
  double dDay = 0;
  if (!reader.at_time()) {
    const auto day = read_day(reader);
    if (!day) return std::nullopt;
    dDay = *day;
    reader.skip_white();
  }
  double dTime = 0;
  if (reader.at_digit()) {
    const auto time = read_time(reader);
    if (!time) return std::nullopt;
    dTime = *time;
    reader.skip_white();
  }
  if (!reader.at_end()) return std::nullopt;
  return DateOf(static_cast<std::int64_t>(dDay), dTime).days;
}

}  // namespace arap

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>

#include "frame/calendar.h"
#include "frame/conversions.h"
#include "frame/number_text.h"

namespace arap {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days{year{1899} / 12 / 30};
constexpr std::int64_t kFirstDay = (sys_days{year{100} / 1 / 1} - kDayZero).count();
constexpr std::int64_t kLastDay = (sys_days{year{9999} / 12 / 31} - kDayZero).count();
constexpr int kSecondsOfDay = 86400;

CalendarDay calendar_day(std::int64_t nDay) {
  const year_month_day ymd{kDayZero + days{nDay}};
  return {static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

std::int64_t serial_of(int nYear, int nMonth, int nDay) {
  const year_month_day ymd{year{nYear}, month{static_cast<unsigned>(nMonth)}, day{static_cast<unsigned>(nDay)}};
  return (sys_days{ymd} - kDayZero).count();
}

std::int64_t checked_day(std::int64_t nDay) {
  if (nDay < kFirstDay || nDay > kLastDay) throw AutomationError(ErrorNumber::InvalidProcedureCall);
  return nDay;
}

/// Year and month, with months beyond 1 to 12 carried. The years are kept where the calendar's types hold them.
struct CarriedMonth {
  CarriedMonth(std::int64_t nFromYear, std::int64_t nFromMonth) {
    const std::int64_t nMonths = nFromYear * 12 + nFromMonth - 1;
    const std::int64_t nCarriedYear = nMonths >= 0 ? nMonths / 12 : (nMonths - 11) / 12;
    if (std::abs(nCarriedYear) > 32000) throw AutomationError(ErrorNumber::InvalidProcedureCall);
    nYear = static_cast<int>(nCarriedYear);
    nMonth = static_cast<int>(nMonths - nCarriedYear * 12) + 1;
  }
  int nYear;
  int nMonth;
};

int last_day_of(CarriedMonth carried) {
  const auto last = year{carried.nYear} / month{static_cast<unsigned>(carried.nMonth)} / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

}  // namespace

bool IsInCalendar(Date date) {
  return date.days > static_cast<double>(kFirstDay - 1) && date.days < static_cast<double>(kLastDay + 1);
}

DateParts PartsOf(Date date) {
  if (!IsInCalendar(date)) throw AutomationError(ErrorNumber::InvalidProcedureCall);
  const double dDay = std::trunc(date.days);
  auto nDay = static_cast<std::int64_t>(dDay);
  auto nSecond = static_cast<int>(std::lround(std::abs(date.days - dDay) * kSecondsOfDay));
  if (nSecond == kSecondsOfDay) {
    nSecond = 0;
    ++nDay;
  }
  return {nDay, calendar_day(checked_day(nDay)), nSecond};
}

Date DateOf(std::int64_t nDay, double dTime) {
  const auto dDay = static_cast<double>(nDay);
  return Date{nDay < 0 ? dDay - dTime : dDay + dTime};
}

bool IsCalendarDay(int nYear, int nMonth, int nDay) {
  if (nYear < 100 || nYear > 9999 || nMonth < 1 || nMonth > 12 || nDay < 1) return false;
  return nDay <= last_day_of(CarriedMonth(nYear, nMonth));
}

Date DateSerial(int nYear, int nMonth, int nDay) {
  const CarriedMonth carried(nYear, nMonth);
  return DateOf(checked_day(serial_of(carried.nYear, carried.nMonth, 1) + nDay - 1), 0);
}

CalendarDay DayOf(Date date) {
  if (!IsInCalendar(date)) throw AutomationError(ErrorNumber::InvalidProcedureCall);
  return calendar_day(static_cast<std::int64_t>(std::trunc(date.days)));
}

Date DateAdd(std::string_view sInterval, int nNumber, Date date) {
  const CalendarDay day = DayOf(date);
  const double dDay = std::trunc(date.days);
  const double dTime = std::abs(date.days - dDay);
  if (EqualsNoCase(sInterval, "d")) return DateOf(checked_day(static_cast<std::int64_t>(dDay) + nNumber), dTime);
  std::int64_t nMonths = nNumber;
  if (EqualsNoCase(sInterval, "yyyy")) {
    nMonths *= 12;
  } else if (!EqualsNoCase(sInterval, "m")) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall);
  }
  const CarriedMonth carried(day.nYear, day.nMonth + nMonths);
  const int nDay = std::min(day.nDay, last_day_of(carried));
  return DateOf(checked_day(serial_of(carried.nYear, carried.nMonth, nDay)), dTime);
}

bool IsDate(const Variant& vValue) {
  return vValue.type() == Variant::Type::Date || (vValue.is_text() && ParseDate(vValue.text()).has_value());
}

Date ToDate(const Variant& vValue) {
  if (vValue.type() == Variant::Type::Date) return vValue.as<Date>();
  if (vValue.is_text()) {
    const auto parsed = ParseDate(vValue.text());
    if (!parsed) throw AutomationError(ErrorNumber::TypeMismatch);
    return Date{*parsed};
  }
  const Date date{ToDouble(vValue)};
  if (!IsInCalendar(date)) throw AutomationError(ErrorNumber::Overflow);
  return date;
}

}  // namespace arap

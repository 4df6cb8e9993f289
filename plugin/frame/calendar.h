#pragma once

#include <cstdint>

#include "frame/conversions.h"

/// Days and seconds inside a Date, for the conversions.
namespace arap {

/// True for the years 100 to 9999.
bool IsInCalendar(Date date);

/// A Date taken apart, rounded to the second. A negative Date counts its time forward from its day, as the others do.
struct DateParts {
  std::int64_t nDay;  // days since 1899-12-30
  CalendarDay day;
  int nSecond;  // of the day
};
/// Raises 5 outside the calendar.
DateParts PartsOf(Date date);

/// A day with a time of day, 0 up to but not including 1.
Date DateOf(std::int64_t nDay, double dTime);

bool IsCalendarDay(int nYear, int nMonth, int nDay);

}  // namespace arap

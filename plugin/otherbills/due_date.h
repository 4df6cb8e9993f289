#pragma once

#include <cstdint>
#include <span>

#include "frame/variant.h"

namespace arap {

/// The first pay day of a month on or after the date, nBeforeDays (negative: earlier) added to it first. A day that the
/// month lacks becomes its last day, 28 in every February. What can't be made a date answers the date with its days
/// added. Raises nothing.
Date GetMonthlyPayDate(Date dDate, std::int16_t nPayDay, std::int16_t nBeforeDays);

/// True when vMonth equals an element of aMonths.
bool MonthInList(const Variant& vMonth, std::span<const Variant> aMonths);

}  // namespace arap

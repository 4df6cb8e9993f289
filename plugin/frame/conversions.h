#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/variant.h"

/// The conversions and comparisons of the Basic runtime that the rules were defined on, in one place.
namespace arap {

// --- numbers from values ------------------------------------------------------------------------------------------

/// The numeric prefix of a text: blanks, tabs and line feeds anywhere in the number are skipped, one sign, digits with
/// one point, an exponent after E or D, &H and &O literals; ends at the first foreign character. No digits give 0;
/// a number beyond the range of a double is infinite, so that it overflows as an integer.
double Val(std::string_view sText);

/// How a rule reads a number: Val of the value's text, so Empty, Null, Nothing, Missing and foreign text read as 0.
/// A double goes through its 15-digit text. Never raises.
double NumberOf(const Variant& vValue);
/// NumberOf, converted to a 32-bit integer as ToLong does (half to even, error 6 outside the range).
std::int32_t LongOf(const Variant& vValue);
/// The same for 16 bits.
std::int16_t IntegerOf(const Variant& vValue);

/// True for Empty, numbers and booleans, and for a text that is a number as a whole (blanks around it, one sign,
/// thousands separators, an exponent, &H literals). False for dates, Null, Missing and objects.
bool IsNumeric(const Variant& vValue);

/// CDbl, CLng, CInt, CBool, CDate. A text must be a number (a date) as a whole. Raise 13 for what can't be converted,
/// 94 for Null, 6 outside the range. Integers round half to even. Text "True" and "False" convert to boolean.
double ToDouble(const Variant& vValue);
std::int32_t ToLong(const Variant& vValue);
std::int16_t ToInteger(const Variant& vValue);
bool ToBoolean(const Variant& vValue);
Date ToDate(const Variant& vValue);

// --- text ---------------------------------------------------------------------------------------------------------

/// Text of a double: 15 significant digits, no trailing zeros, "1E+15" from 1E15 on, "1E-05" style below 0.0001 as the
/// runtime writes it.
std::string TextOf(double dValue);
/// CStr. Empty is "", a boolean "True" or "False", a date yyyy-mm-dd with the time behind it when it has one (time
/// alone for day 0). Raises 94 for Null, 13 for objects and Missing.
std::string TextOf(const Variant& vValue);
/// The value & "": as TextOf, but Null is "". Nothing and Missing are "" too: a rule reads them as nothing.
std::string Concat(const Variant& vValue);
/// An id as it is written into SQL: a number without decimals when whole.
std::string NumberText(const Variant& vValue);

/// Cuts blanks (U+0020 only) on both sides.
std::string_view Trim(std::string_view sText);
/// ASCII letters only; keys and names of the contract have no others.
std::string LowerCase(std::string_view sText);
std::string UpperCase(std::string_view sText);
/// Equal without regard to the case of ASCII letters.
bool EqualsNoCase(std::string_view sA, std::string_view sB);

// --- comparison ---------------------------------------------------------------------------------------------------

/// The = of two Variants: numbers (booleans and dates with them) by value, texts by characters, a number never equals
/// a text, Empty equals 0, False and "". A comparison with Null is Null, which no test takes as true. Objects raise 13.
bool Equals(const Variant& vA, const Variant& vB);

// --- arithmetic ---------------------------------------------------------------------------------------------------

/// Raises 11 for a division by zero, 6 for zero by zero.
double Divide(double dNumerator, double dDenominator);
/// The runtime's Round: half to even at `nDigits` decimals (0 to 22), on the decimal text of the value, so that 2.675
/// counts as the half it was written as. Raises 5 for negative digits.
double Round(double dValue, int nDigits);

// --- dates --------------------------------------------------------------------------------------------------------

/// A day of the proleptic Gregorian calendar; month and day may overflow and are carried, as DateSerial does. Raises 5
/// outside the years 100 to 9999.
Date DateSerial(int nYear, int nMonth, int nDay);
struct CalendarDay {
  int nYear;
  int nMonth;
  int nDay;
};
CalendarDay DayOf(Date date);
/// The last day of the month counts: 31 January plus one month is 28 or 29 February. Interval is "yyyy", "m" or "d".
Date DateAdd(std::string_view sInterval, int nNumber, Date date);
bool IsDate(const Variant& vValue);

// --- Format -------------------------------------------------------------------------------------------------------

/// Format for the masks in use: numbers with "0", "#", ".", "," and literal digits behind them as the runtime reads
/// them ("#0.0001" prints the digit 1 after the last position), dates with yyyy, mm, dd, hh, nn, ss in either case
/// (mm after hh are minutes). Numbers round half away from zero. A value that doesn't fit the kind of the mask is
/// returned as its text. An empty mask gives TextOf.
std::string Format(const Variant& vValue, std::string_view sMask);

}  // namespace arap

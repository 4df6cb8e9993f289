#pragma once

#include "bridge/handles.h"
#include "frame/automation.h"

/// VARIANT to Variant and back. Currency, decimal, single and 64-bit numbers become double (whole numbers that fit a
/// 32-bit integer become one), bytes become 16-bit integers, an omitted argument stays one. A reference is looked
/// through to its value.
namespace arap::com {

/// The texts of numbers in automatic conversions have a decimal point, whatever the user's settings.
inline constexpr LCID kNeutralLocale = 0x0409;

/// Raises 13 for arrays, records and error values, which no rule takes.
Variant to_variant(const VARIANT& value);
/// Fills an empty VARIANT. Objects are handed out by their COM object.
void to_com(const Variant& vValue, VARIANT& out);
/// The same, converted to `type` (VT_VARIANT leaves it as it is). Answers DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, ... and
/// leaves `out` empty when that can't be done.
HRESULT to_com_as(const Variant& vValue, VARTYPE type, VARIANT& out);
/// Converts a VARIANT in place; `type` VT_VARIANT leaves it as it is. An object or Nothing counts as VT_DISPATCH and
/// VT_UNKNOWN both.
HRESULT convert(VARIANT& value, VARTYPE type);

/// Looks through VT_BYREF | VT_VARIANT, however deep.
const VARIANT& target_of(const VARIANT& value);
/// Stores the value where a by-reference VARIANT points to, as the type that its owner has there.
HRESULT store_by_reference(const VARIANT& reference, const Variant& vValue);

/// Same type and same content; objects by identity.
bool is_same(const Variant& vA, const Variant& vB);

}  // namespace arap::com

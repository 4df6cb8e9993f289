#include "bridge/variant_conversion.h"

#include <limits>
#include <string>

#include "bridge/bridge.h"
#include "bridge/dispatch_object.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "frame/conversions.h"

namespace arap::com {

namespace {

constexpr double kCurrencyScale = 10000.0;

Variant whole_number(double dValue) {
  if (dValue >= std::numeric_limits<std::int32_t>::min() && dValue <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(dValue);
  }
  return dValue;
}

double decimal_number(DECIMAL decimal) {
  double dValue = 0;
  check(VarR8FromDec(&decimal, &dValue));
  return dValue;
}

[[noreturn]] void no_such_type(VARTYPE type) {
  throw AutomationError(ErrorNumber::TypeMismatch, "VARIANT type " + std::to_string(type));
}

Variant error_value(SCODE code) {
  if (code == DISP_E_PARAMNOTFOUND) return Missing{};
  no_such_type(VT_ERROR);
}

bool is_object_type(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

/// The value of a type, at `data`: in a VARIANT or where a reference points to.
Variant value_at(VARTYPE type, const void* data) {
  switch (type) {
    case VT_I1: return static_cast<std::int16_t>(*static_cast<const signed char*>(data));
    case VT_UI1: return static_cast<std::int16_t>(*static_cast<const unsigned char*>(data));
    case VT_I2: return *static_cast<const std::int16_t*>(data);
    case VT_UI2: return static_cast<std::int32_t>(*static_cast<const std::uint16_t*>(data));
    case VT_I4:
    case VT_INT: return *static_cast<const std::int32_t*>(data);
    case VT_UI4:
    case VT_UINT: return whole_number(*static_cast<const std::uint32_t*>(data));
    case VT_I8: return whole_number(static_cast<double>(*static_cast<const std::int64_t*>(data)));
    case VT_UI8: return whole_number(static_cast<double>(*static_cast<const std::uint64_t*>(data)));
    case VT_R4: return static_cast<double>(*static_cast<const float*>(data));
    case VT_R8: return *static_cast<const double*>(data);
    case VT_CY: return static_cast<double>(static_cast<const CY*>(data)->int64) / kCurrencyScale;
    case VT_DECIMAL: return decimal_number(*static_cast<const DECIMAL*>(data));
    case VT_DATE: return Date{*static_cast<const DATE*>(data)};
    case VT_BSTR: return text_variant(*static_cast<const BSTR*>(data));
    case VT_BOOL: return *static_cast<const VARIANT_BOOL*>(data) != VARIANT_FALSE;
    case VT_ERROR: return error_value(*static_cast<const SCODE*>(data));
    case VT_DISPATCH:
    case VT_UNKNOWN: return Variant(object_of(*static_cast<IUnknown* const*>(data)));
    default: no_such_type(type);
  }
}

void put_object(const Ref<Object>& object, VARIANT& out) {
  const DispatchObject* const foreign = object ? as_dispatch_object(*object) : nullptr;
  if (foreign != nullptr && !foreign->dispatch()) {
    out.punkVal = ComPtr<IUnknown>(foreign->identity()).detach();
    out.vt = VT_UNKNOWN;
  } else {
    out.pdispVal = dispatch_of(object).detach();
    out.vt = VT_DISPATCH;
  }
}

/// Moves a converted value to where the reference of that type points to, and frees what was there.
HRESULT store(VARTYPE type, void* place, OwnedVariant& value) {
  switch (type) {
    case VT_BSTR: std::swap(*static_cast<BSTR*>(place), value->bstrVal); return S_OK;
    case VT_DISPATCH:
    case VT_UNKNOWN: std::swap(*static_cast<IUnknown**>(place), value->punkVal); return S_OK;
    case VT_VARIANT: std::swap(*static_cast<VARIANT*>(place), *value); return S_OK;
    case VT_DECIMAL: {
      const USHORT reserved = static_cast<DECIMAL*>(place)->wReserved;
      *static_cast<DECIMAL*>(place) = value->decVal;
      static_cast<DECIMAL*>(place)->wReserved = reserved;
      return S_OK;
    }
    case VT_I1:
    case VT_UI1: *static_cast<BYTE*>(place) = value->bVal; return S_OK;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: *static_cast<SHORT*>(place) = value->iVal; return S_OK;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4: *static_cast<LONG*>(place) = value->lVal; return S_OK;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE: *static_cast<LONGLONG*>(place) = value->llVal; return S_OK;
    default: return DISP_E_BADVARTYPE;
  }
}

}  // namespace

const VARIANT& target_of(const VARIANT& value) {
  const VARIANT* target = &value;
  while (target->vt == (VT_BYREF | VT_VARIANT) && target->pvarVal != nullptr) target = target->pvarVal;
  return *target;
}

Variant to_variant(const VARIANT& value) {
  const VARIANT& target = target_of(value);
  switch (target.vt) {
    case VT_EMPTY: return Empty{};
    case VT_NULL: return Null{};
    case VT_DECIMAL: return decimal_number(target.decVal);
    default: break;
  }
  if ((target.vt & VT_BYREF) != 0) {
    if (target.byref == nullptr) no_such_type(target.vt);
    return value_at(target.vt & ~VT_BYREF, target.byref);
  }
  return value_at(target.vt, &target.bVal);
}

void to_com(const Variant& vValue, VARIANT& out) {
  VariantInit(&out);
  switch (vValue.type()) {
    case Variant::Type::Empty: return;
    case Variant::Type::Null: out.vt = VT_NULL; return;
    case Variant::Type::Boolean:
      out.vt = VT_BOOL;
      out.boolVal = vValue.as<bool>() ? VARIANT_TRUE : VARIANT_FALSE;
      return;
    case Variant::Type::Integer:
      out.vt = VT_I2;
      out.iVal = vValue.as<std::int16_t>();
      return;
    case Variant::Type::Long:
      out.vt = VT_I4;
      out.lVal = vValue.as<std::int32_t>();
      return;
    case Variant::Type::Double:
      out.vt = VT_R8;
      out.dblVal = vValue.as<double>();
      return;
    case Variant::Type::Date:
      out.vt = VT_DATE;
      out.date = vValue.as<Date>().days;
      return;
    case Variant::Type::Text:
      out.bstrVal = to_bstr(vValue.text()).detach();
      out.vt = VT_BSTR;
      return;
    case Variant::Type::Object: return put_object(vValue.object(), out);
    case Variant::Type::Missing:
      out.vt = VT_ERROR;
      out.scode = DISP_E_PARAMNOTFOUND;
      return;
  }
}

HRESULT convert(VARIANT& value, VARTYPE type) {
  if (type == VT_VARIANT || value.vt == type) return S_OK;
  if (is_object_type(type)) {
    if (!is_object_type(value.vt)) return DISP_E_TYPEMISMATCH;
    const bool bNarrows = type == VT_DISPATCH && value.punkVal != nullptr;
    if (bNarrows) return VariantChangeTypeEx(&value, &value, kNeutralLocale, 0, type);
    value.vt = type;
    return S_OK;
  }
  if (value.vt == VT_ERROR || (type & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH;
  return VariantChangeTypeEx(&value, &value, kNeutralLocale, 0, type);
}

HRESULT to_com_as(const Variant& vValue, VARTYPE type, VARIANT& out) {
  // Numbers, dates and booleans have one text in this library, which isn't that of the user's settings.
  const bool bToText = type == VT_BSTR && !vValue.is_object() && !vValue.is_null() && !vValue.is_missing();
  if (bToText && !vValue.is_text()) {
    to_com(Variant(TextOf(vValue)), out);
    return S_OK;
  }
  to_com(vValue, out);
  const HRESULT converted = convert(out, type);
  if (FAILED(converted)) VariantClear(&out);
  return converted;
}

HRESULT store_by_reference(const VARIANT& reference, const Variant& vValue) {
  const VARIANT* holder = &reference;
  while (holder->vt == (VT_BYREF | VT_VARIANT) && holder->pvarVal->vt == (VT_BYREF | VT_VARIANT)) {
    holder = holder->pvarVal;
  }
  // A Variant that itself refers to a typed variable: that variable is meant.
  if (holder->vt == (VT_BYREF | VT_VARIANT) && (holder->pvarVal->vt & VT_BYREF) != 0) holder = holder->pvarVal;
  if ((holder->vt & VT_BYREF) == 0) return S_OK;
  const VARTYPE type = holder->vt & ~VT_BYREF;
  OwnedVariant value;
  const HRESULT converted = to_com_as(vValue, type, *value);
  return FAILED(converted) ? converted : store(type, holder->byref, value);
}

bool is_same(const Variant& vA, const Variant& vB) {
  if (vA.type() != vB.type()) return false;
  switch (vA.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Null:
    case Variant::Type::Missing: return true;
    case Variant::Type::Boolean: return vA.as<bool>() == vB.as<bool>();
    case Variant::Type::Integer: return vA.as<std::int16_t>() == vB.as<std::int16_t>();
    case Variant::Type::Long: return vA.as<std::int32_t>() == vB.as<std::int32_t>();
    case Variant::Type::Double: return vA.as<double>() == vB.as<double>();
    case Variant::Type::Date: return vA.as<Date>() == vB.as<Date>();
    case Variant::Type::Text: return vA.text() == vB.text();
    case Variant::Type::Object: return vA.object() == vB.object();
  }
  return false;
}

}  // namespace arap::com

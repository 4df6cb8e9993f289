#include "server/public_object.h"

#include "frame/conversions.h"

namespace arap::com {

namespace {

/// The elements of an array, locked while they are read.
class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY* array) : array_(array) { check(SafeArrayAccessData(array_, &data_)); }
  ~ArrayAccess() { SafeArrayUnaccessData(array_); }
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;
  const VARIANT* begin() const { return static_cast<const VARIANT*>(data_); }
  const VARIANT* end() const { return begin() + array_->rgsabound[0].cElements; }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

}  // namespace

std::vector<Variant> values_of(SAFEARRAY* array) {
  std::vector<Variant> values;
  if (array == nullptr) return values;
  VARTYPE type = VT_EMPTY;
  if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) || type != VT_VARIANT) {
    throw AutomationError(ErrorNumber::TypeMismatch);
  }
  for (const VARIANT& value : ArrayAccess(array)) values.push_back(to_variant(value));
  return values;
}

void store_integer(const Variant& vValue, SHORT* place) {
  if (place != nullptr) *place = ToInteger(vValue);
}

void store_text(const Variant& vValue, BSTR* place) {
  if (place == nullptr || holds(*place, Concat(vValue))) return;
  Bstr text = to_bstr(Concat(vValue));
  SysFreeString(std::exchange(*place, text.detach()));
}

void store_boolean(const Variant& vValue, VARIANT_BOOL* place) {
  *place = ToBoolean(vValue) ? VARIANT_TRUE : VARIANT_FALSE;
}

}  // namespace arap::com

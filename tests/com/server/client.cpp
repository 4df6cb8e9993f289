#include "com/server/client.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "bridge/wide_text.h"

namespace arap::testing {

std::wstring prog_id(std::string_view sClass) { return L"NUVARAPBillInterface." + com::to_wide(sClass); }

CLSID class_id(std::string_view sClass) {
  CLSID id{};
  EXPECT_EQ(CLSIDFromProgID(prog_id(sClass).c_str(), &id), S_OK) << sClass;
  return id;
}

com::ComPtr<IDispatch> create(std::string_view sClass) {
  com::ComPtr<IDispatch> made;
  const HRESULT done =
      CoCreateInstance(class_id(sClass), nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.put_void());
  EXPECT_EQ(done, S_OK) << sClass;
  return made;
}

DISPID id_of(IDispatch* object, std::wstring_view sName) {
  std::wstring sCopy(sName);
  LPOLESTR name = sCopy.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

void invoke(Outcome& outcome, IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> aArgs) {
  std::reverse(aArgs.begin(), aArgs.end());
  DISPID put = DISPID_PROPERTYPUT;
  const bool bPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS params{aArgs.data(), bPut ? &put : nullptr, static_cast<UINT>(aArgs.size()), bPut ? 1u : 0u};
  com::OwnedExcepInfo info;
  UINT nBad = 0;
  VariantClear(outcome.value.get());
  outcome.code = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, bPut ? nullptr : outcome.value.get(),
                                info.get(), &nBad);
  outcome.scode = info.get()->scode;
  outcome.sSource = com::to_utf8(info.get()->bstrSource);
  outcome.sDescription = com::to_utf8(info.get()->bstrDescription);
}

void invoke(Outcome& outcome, IDispatch* object, std::wstring_view sName, WORD flags, std::vector<VARIANT> aArgs) {
  const DISPID id = id_of(object, sName);
  ASSERT_NE(id, DISPID_UNKNOWN) << com::to_utf8(sName);
  invoke(outcome, object, id, flags, std::move(aArgs));
}

namespace {

VARIANT typed(VARTYPE type) {
  VARIANT value;
  VariantInit(&value);
  value.vt = type;
  return value;
}

VARIANT by_reference(VARTYPE type, void* place) {
  VARIANT value = typed(static_cast<VARTYPE>(VT_BYREF | type));
  value.byref = place;
  return value;
}

}  // namespace

VARIANT number(LONG nValue) {
  VARIANT value = typed(VT_I4);
  value.lVal = nValue;
  return value;
}

VARIANT truth(bool bValue) {
  VARIANT value = typed(VT_BOOL);
  value.boolVal = bValue ? VARIANT_TRUE : VARIANT_FALSE;
  return value;
}

VARIANT object_value(IDispatch* object) {
  VARIANT value = typed(VT_DISPATCH);
  value.pdispVal = object;
  return value;
}

VARIANT text_value(BSTR text) {
  VARIANT value = typed(VT_BSTR);
  value.bstrVal = text;
  return value;
}

VARIANT omitted() {
  VARIANT value = typed(VT_ERROR);
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

VARIANT reference(short* place) { return by_reference(VT_I2, place); }
VARIANT reference(BSTR* place) { return by_reference(VT_BSTR, place); }
VARIANT reference(VARIANT* place) { return by_reference(VT_VARIANT, place); }
VARIANT reference_to_truth(VARIANT_BOOL* place) { return by_reference(VT_BOOL, place); }

}  // namespace arap::testing

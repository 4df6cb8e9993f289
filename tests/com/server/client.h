#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/handles.h"

/// Clients of the server without the bridge: bare COM, as somebody else's program calls it.
namespace arap::testing {

inline constexpr const char* kClassNames[] = {
    "clsReceiveBill", "clsPayBill",         "clsROtherBill", "clsPOtherBill",
    "clsRPInOutType", "clsRPInOutTypeView", "clsInvoice",    "clsRPInitial",
};
inline constexpr const char* kBillClassNames[] = {"clsReceiveBill", "clsPayBill", "clsROtherBill", "clsPOtherBill"};
/// The classes with m_LstInterface.
inline constexpr const char* kListClassNames[] = {"clsReceiveBill", "clsPayBill", "clsROtherBill",
                                                  "clsPOtherBill",  "clsInvoice", "clsRPInitial"};

/// "NUVARAPBillInterface." and the class name.
std::wstring prog_id(std::string_view sClass);
CLSID class_id(std::string_view sClass);
/// An object of a class; an error fails the test and gives nullptr.
com::ComPtr<IDispatch> create(std::string_view sClass);
template <class I>
com::ComPtr<I> create_as(std::string_view sClass) {
  return com::query<I>(create(sClass).get());
}

/// A call's outcome, its texts copied out.
struct Outcome {
  HRESULT code = E_UNEXPECTED;
  com::OwnedVariant value;
  SCODE scode = 0;  // of the exception
  std::string sSource;
  std::string sDescription;
};

/// DISPID of a name; DISPID_UNKNOWN when the object hasn't got it.
DISPID id_of(IDispatch* object, std::wstring_view sName);
/// IDispatch::Invoke with arguments in the order in which they are written; they stay the caller's. A put has the new
/// value last.
void invoke(Outcome& outcome, IDispatch* object, DISPID id, WORD flags, std::vector<VARIANT> aArgs);
void invoke(Outcome& outcome, IDispatch* object, std::wstring_view sName, WORD flags, std::vector<VARIANT> aArgs);

VARIANT number(LONG nValue);
VARIANT truth(bool bValue);
/// Borrows the object.
VARIANT object_value(IDispatch* object);
/// Borrows the text, which must live longer.
VARIANT text_value(BSTR text);
VARIANT omitted();
VARIANT reference(short* place);
VARIANT reference(BSTR* place);
VARIANT reference(VARIANT* place);
VARIANT reference_to_truth(VARIANT_BOOL* place);

}  // namespace arap::testing

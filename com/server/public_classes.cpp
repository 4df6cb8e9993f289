#include "server/public_classes.h"

// The identifiers are defined in this file.
#include <initguid.h>

#include "NUVARAPBillInterface_h.h"
#include "frame/platform.h"
#include "frame/plugin_entry.h"
#include "server/module.h"
#include "server/public_object.h"
#include "server/windows_platform.h"

namespace arap::com {

namespace {

template <class ComObject>
ComPtr<IUnknown> wrap_as(Ref<Object> object, ComPtr<ITypeInfo> info) {
  return ComPtr<IUnknown>::adopt(static_cast<IModuleObject*>(new ComObject(std::move(object), std::move(info))));
}

const std::array<ComClass, 8> kClasses{{
    {"clsReceiveBill", CLSID_clsReceiveBill, IID__clsReceiveBill, wrap_as<BillObject<_clsReceiveBill>>},
    {"clsPayBill", CLSID_clsPayBill, IID__clsPayBill, wrap_as<BillObject<_clsPayBill>>},
    {"clsROtherBill", CLSID_clsROtherBill, IID__clsROtherBill, wrap_as<BillObject<_clsROtherBill>>},
    {"clsPOtherBill", CLSID_clsPOtherBill, IID__clsPOtherBill, wrap_as<BillObject<_clsPOtherBill>>},
    {"clsRPInOutType", CLSID_clsRPInOutType, IID__clsRPInOutType, wrap_as<TypeObject<_clsRPInOutType>>},
    {"clsRPInOutTypeView", CLSID_clsRPInOutTypeView, IID__clsRPInOutTypeView, wrap_as<TypeObject<_clsRPInOutTypeView>>},
    {"clsInvoice", CLSID_clsInvoice, IID__clsInvoice, wrap_as<PlainListObject<_clsInvoice>>},
    {"clsRPInitial", CLSID_clsRPInitial, IID__clsRPInitial, wrap_as<PlainListObject<_clsRPInitial>>},
}};

}  // namespace

std::span<const ComClass> com_classes() { return kClasses; }

const ComClass* find_class(REFCLSID class_id) {
  for (const ComClass& com_class : kClasses) {
    if (com_class.class_id == class_id) return &com_class;
  }
  return nullptr;
}

const GUID& library_id() { return LIBID_NUVARAPBillInterface; }

ComPtr<IUnknown> create(const ComClass& com_class) {
  InstallPlatform(&windows_platform());
  const BridgeUse use;
  // From now on the forms go out with the types that the library declares.
  ComPtr<ITypeLib>& library = bridge_state().library;
  if (!library) library = own_library();
  ComPtr<ITypeInfo> info;
  check(library->GetTypeInfoOfGuid(com_class.interface_id, info.put()));
  const std::string sProgID = std::string(kLibraryName) + "." + std::string(com_class.sName);
  return com_class.wrap(CreatePublicObject(sProgID), std::move(info));
}

}  // namespace arap::com

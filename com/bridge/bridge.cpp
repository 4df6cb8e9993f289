#include "bridge/bridge.h"

#include <typeinfo>

#include "bridge/bridge_state.h"
#include "bridge/dispatch_object.h"
#include "bridge/errors.h"
#include "bridge/object_dispatch.h"
#include "bridge/wide_text.h"
#include "frame/conversions.h"

namespace arap::com {

namespace {

/// The Object behind a COM object of this module; nullptr for one of somebody else.
Ref<Object> own_object(IUnknown& unknown) {
  ComPtr<IModuleObject> own;
  if (FAILED(unknown.QueryInterface(kModuleObjectId, own.put_void()))) return {};
  return own->module_tag() == module_tag() ? Ref<Object>(own->module_object()) : Ref<Object>();
}

ComPtr<ITypeInfo> type_named(ITypeLib& library, TYPEKIND wanted, std::string_view sName) {
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    TYPEKIND kind = TKIND_MAX;
    ComPtr<ITypeInfo> info;
    if (FAILED(library.GetTypeInfoType(i, &kind)) || kind != wanted) continue;
    if (FAILED(library.GetTypeInfo(i, info.put()))) continue;
    if (EqualsNoCase(without_underscore(name_of_type(info.get())), without_underscore(sName))) return info;
  }
  return {};
}

std::shared_ptr<const ExposedType> exposed_type(ITypeLib& library, std::string_view sClass) {
  BridgeState& state = bridge_state();
  ExposedType type;
  type.coclass = type_named(library, TKIND_COCLASS, sClass);
  type.info = type.coclass ? interface_of_class(type.coclass.get(), Implemented::Default)
                           : type_named(library, TKIND_DISPATCH, sClass);
  if (!type.info) return nullptr;
  type.shape = state.shape_of(type.info.get());
  const ComPtr<ITypeInfo> events =
      type.coclass ? interface_of_class(type.coclass.get(), Implemented::DefaultSource) : ComPtr<ITypeInfo>();
  if (events) type.events = state.shape_of(events.get());
  return std::make_shared<const ExposedType>(std::move(type));
}

/// The class of the library in use that an object belongs to; nullptr when it has none.
std::shared_ptr<const ExposedType> type_in_use(const Object& object) {
  BridgeState& state = bridge_state();
  if (!state.library) return nullptr;
  const std::string sName = object.type_name();
  const auto known = state.exposed_types.find(sName);
  if (known != state.exposed_types.end()) return known->second;
  std::shared_ptr<const ExposedType> type = exposed_type(*state.library.get(), sName);
  // TypeName answers the spelling of the library: an object that calls itself otherwise is none of its classes.
  if (type && name_of_type(type->coclass ? type->coclass.get() : type->info.get()) != sName) type = nullptr;
  return state.exposed_types[sName] = std::move(type);
}

ComPtr<IDispatch> already_exposed(const Ref<Object>& object) {
  const auto found = bridge_state().exposed.find(object.get());
  return found == bridge_state().exposed.end() ? ComPtr<IDispatch>() : ComPtr<IDispatch>(found->second);
}

}  // namespace

Ref<Object> object_of(IUnknown* unknown) {
  if (unknown == nullptr) return {};
  ComPtr<IUnknown> identity = query<IUnknown>(unknown);
  const BridgeUse use;
  const auto known = bridge_state().wrappers.find(identity.get());
  if (known != bridge_state().wrappers.end()) return Ref<Object>(known->second);
  if (Ref<Object> own = own_object(*identity.get())) return own;
  ComPtr<IDispatch> dispatch = query<IDispatch>(identity.get());
  return make_object<DispatchObject>(std::move(identity), std::move(dispatch));
}

ComPtr<IDispatch> dispatch_of(const Ref<Object>& object) {
  if (!object) return {};
  if (const DispatchObject* const foreign = as_dispatch_object(*object)) return foreign->dispatch();
  const BridgeUse use;
  if (ComPtr<IDispatch> known = already_exposed(object)) return known;
  return ComPtr<IDispatch>::adopt(new ObjectDispatch(object, type_in_use(*object)));
}

ComPtr<IDispatch> expose(const Ref<Object>& object, ITypeLib* library, std::string_view sClass) {
  if (!object) return {};
  const BridgeUse use;
  if (ComPtr<IDispatch> known = already_exposed(object)) return known;
  std::shared_ptr<const ExposedType> type = exposed_type(*library, sClass);
  if (!type) throw AutomationError(ErrorNumber::NoSuchMember, sClass);
  return ComPtr<IDispatch>::adopt(new ObjectDispatch(object, std::move(type)));
}

TypeLibraryUse::TypeLibraryUse(ITypeLib* library) : former_(library) {
  std::swap(former_, bridge_state().library);
  bridge_state().exposed_types.clear();
}

TypeLibraryUse::~TypeLibraryUse() {
  bridge_state().library = std::move(former_);
  bridge_state().exposed_types.clear();
}

}  // namespace arap::com

#pragma once

#include <string_view>

#include "bridge/handles.h"
#include "frame/automation.h"

/// COM objects as Objects, and Objects as COM objects. Both ways keep identity on their thread: while one is held, the
/// same COM object gives the same Object and the same Object the same COM object, and what went out comes back as
/// itself.
namespace arap::com {

/// The Object for a COM object; an empty reference for nullptr. An object without IDispatch can be held and handed on,
/// but not called.
Ref<Object> object_of(IUnknown* unknown);

/// The COM object for an Object; empty for Nothing. An Object of this module is exposed late-bound by the names of
/// names.h, or with type information where a TypeLibraryUse or the module's own library knows its type name.
ComPtr<IDispatch> dispatch_of(const Ref<Object>& object);

/// Exposes an Object as the class of a type library: its default interface gives the names, types and by-reference
/// arguments, its default source interface the events of the Object's event source. The COM object answers
/// IProvideClassInfo2 and IConnectionPointContainer. Raises 438 for a name that is neither a class nor a dispatch
/// interface of the library; an interface alone (for objects without a class) has no events.
ComPtr<IDispatch> expose(const Ref<Object>& object, ITypeLib* library, std::string_view sClass);

/// Keeps the thread's bridge state alive; the last one gives it back, so that nothing is left to do when a thread ends.
class BridgeUse {
 public:
  BridgeUse();
  ~BridgeUse();
  BridgeUse(const BridgeUse&) = delete;
  BridgeUse& operator=(const BridgeUse&) = delete;
};

/// While one lives, Objects of this thread whose type_name() is a class or interface (with or without a leading
/// underscore) of the library are exposed as that when they are handed out. For hosts written against this bridge.
class TypeLibraryUse {
 public:
  explicit TypeLibraryUse(ITypeLib* library);
  ~TypeLibraryUse();
  TypeLibraryUse(const TypeLibraryUse&) = delete;
  TypeLibraryUse& operator=(const TypeLibraryUse&) = delete;

 private:
  BridgeUse use_;
  ComPtr<ITypeLib> former_;
};

}  // namespace arap::com

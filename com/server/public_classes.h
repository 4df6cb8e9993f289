#pragma once

#include <span>
#include <string_view>

#include "bridge/bridge.h"

namespace arap::com {

/// A public class of the library as COM knows it.
struct ComClass {
  std::string_view sName;  // clsReceiveBill
  const GUID& class_id;
  const GUID& interface_id;
  /// The COM object around a new object of the class.
  ComPtr<IUnknown> (*wrap)(Ref<Object> object, ComPtr<ITypeInfo> info);
};

/// The eight classes, in the order of the type library.
std::span<const ComClass> com_classes();
/// nullptr for an identifier that isn't a class of this library.
const ComClass* find_class(REFCLSID class_id);

/// A new object of the class. Raises what its initialiser raises.
ComPtr<IUnknown> create(const ComClass& com_class);

}  // namespace arap::com

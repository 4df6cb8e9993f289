#pragma once

#include <string>

#include "bridge/handles.h"

namespace arap::com {

/// The loaded module that this code stands in.
HMODULE own_module();
/// Its full path.
std::wstring module_path(HMODULE module);
/// The folder of a path, without a separator at its end.
std::wstring folder_of(const std::wstring& sPath);
/// The type library inside this module. Needs no registration.
ComPtr<ITypeLib> own_library();
/// The identifier of that library.
const GUID& library_id();

}  // namespace arap::com

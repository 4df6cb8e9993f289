#pragma once

#include "bridge/handles.h"

/// A loaded module as the file that it came from.
namespace arap::testing {

/// What stands at an offset of the module.
template <class T>
T* at(HMODULE module, std::size_t nOffset) {
  return reinterpret_cast<T*>(reinterpret_cast<char*>(module) + nOffset);
}

/// One of the module's tables, IMAGE_DIRECTORY_ENTRY_...
template <class T>
const T* table_of(HMODULE module, int nTable) {
  const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* const headers = at<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
  return at<T>(module, headers->OptionalHeader.DataDirectory[nTable].VirtualAddress);
}

}  // namespace arap::testing

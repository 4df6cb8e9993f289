#pragma once

#include <array>
#include <string>

#include "bridge/handles.h"

namespace arap::testing {

/// The folder of the build that holds the DLL and its manifest, beside the folder of the test programs.
inline std::wstring dll_folder() {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(nullptr, aPath.data(), static_cast<DWORD>(aPath.size()));
  const std::wstring sProgram(aPath.data());
  return sProgram.substr(0, sProgram.rfind(L"\\tests\\")) + L"\\com";
}
inline std::wstring dll_path() { return dll_folder() + L"\\NUVARAPBillInterface.dll"; }

}  // namespace arap::testing

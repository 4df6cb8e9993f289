#include "com/scenarios/import_patch.h"

#include <cstring>

namespace arap::testing {

namespace {

template <class T>
T* at(HMODULE module, std::size_t nOffset) {
  return reinterpret_cast<T*>(reinterpret_cast<char*>(module) + nOffset);
}

const IMAGE_IMPORT_DESCRIPTOR* imports_of(HMODULE module) {
  const auto* const dos = at<IMAGE_DOS_HEADER>(module, 0);
  const auto* const headers = at<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
  const IMAGE_DATA_DIRECTORY& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  return at<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
}

/// Where the module keeps the address of the imported function; nullptr when it doesn't import it.
void** slot_of(HMODULE module, const char* sFunction) {
  for (const IMAGE_IMPORT_DESCRIPTOR* library = imports_of(module); library->Name != 0; ++library) {
    const auto* name = at<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    auto* address = at<IMAGE_THUNK_DATA>(module, library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* const import = at<IMAGE_IMPORT_BY_NAME>(module, static_cast<std::size_t>(name->u1.AddressOfData));
      const char* const sName = reinterpret_cast<const char*>(import->Name);
      if (std::strcmp(sName, sFunction) == 0) return reinterpret_cast<void**>(&address->u1.Function);
    }
  }
  return nullptr;
}

void* exchange(void** slot, void* value) {
  DWORD former = 0;
  VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &former);
  void* const before = *slot;
  *slot = value;
  VirtualProtect(slot, sizeof *slot, former, &former);
  return before;
}

}  // namespace

ImportPatch::ImportPatch(HMODULE module, const char* sFunction, void* replacement) : slot_(slot_of(module, sFunction)) {
  if (slot_ != nullptr) former_ = exchange(slot_, replacement);
}

ImportPatch::~ImportPatch() {
  if (slot_ != nullptr) exchange(slot_, former_);
}

}  // namespace arap::testing

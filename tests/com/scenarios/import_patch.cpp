#include "com/scenarios/import_patch.h"

#include "com/scenarios/module_image.h"

namespace arap::testing {

namespace {

/// Where the module keeps the address of the imported function, which it may import by name or by number; nullptr when
/// it doesn't import it.
void** slot_of(HMODULE module, const char* sFunction) {
  const auto* library = table_of<IMAGE_IMPORT_DESCRIPTOR>(module, IMAGE_DIRECTORY_ENTRY_IMPORT);
  for (; library->Name != 0; ++library) {
    const auto function =
        reinterpret_cast<ULONG_PTR>(GetProcAddress(GetModuleHandleA(at<char>(module, library->Name)), sFunction));
    if (function == 0) continue;
    for (auto* address = at<IMAGE_THUNK_DATA>(module, library->FirstThunk); address->u1.Function != 0; ++address) {
      if (address->u1.Function == function) return reinterpret_cast<void**>(&address->u1.Function);
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

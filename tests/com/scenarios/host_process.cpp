#include "com/scenarios/host_process.h"

#include <array>

#include "bridge/errors.h"
#include "com/scenarios/server_under_test.h"

namespace arap::testing {

namespace {

com::ComPtr<ITypeLib> own_type_library() {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(nullptr, aPath.data(), static_cast<DWORD>(aPath.size()));
  com::ComPtr<ITypeLib> library;
  com::check(LoadTypeLibEx(aPath.data(), REGKIND_NONE, library.put()));
  return library;
}

}  // namespace

void HostProcess::SetUp() {
  com::check(OleInitialize(nullptr));
  bridge_.emplace();
  types_.emplace(own_type_library().get());
  servers_.emplace();
  boxes_.emplace();
  // Loads the DLL; a class without an initialiser needs no session.
  ServerUnderTest::create("NUVARAPBillInterface.clsInvoice");
  machine_.emplace(ServerUnderTest::module());
}

void HostProcess::TearDown() {
  machine_.reset();
  boxes_.reset();
  servers_.reset();
  types_.reset();
  bridge_.reset();
  OleUninitialize();
}

}  // namespace arap::testing

#pragma once

#include <string_view>

#include "bridge/handles.h"
#include "frame/automation.h"

namespace arap::testing {

/// The DLL, as this process has loaded it: its module and the exports that the tests call themselves.
class ServerUnderTest {
 public:
  /// Makes a class of the server through COM, by ProgID, and answers it through the bridge. The first one loads the
  /// DLL. Raises 429 for an unknown ProgID, and what the creation failed with.
  static Ref<Object> create(std::string_view sProgID);

  /// nullptr before the first creation.
  static HMODULE module();
  /// True when nothing holds the server.
  static bool can_unload();
};

}  // namespace arap::testing

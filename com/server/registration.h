#pragma once

#include "bridge/handles.h"

namespace arap::com {

/// For whom the classes are registered: all users (needs an administrator), or the user alone.
enum class Audience { Machine, User };

/// Writes the keys of the classes, of their ProgIDs and of the type library, for the bitness of this module. A failure
/// takes back what was written and answers its code.
HRESULT register_server(Audience audience) noexcept;

/// Removes them. Keys that the module of the other bitness shares stay until that one goes too. Keys that aren't there
/// are no failure.
HRESULT unregister_server(Audience audience) noexcept;

}  // namespace arap::com

#pragma once

#include <optional>

#include "bridge/handles.h"
#include "frame/automation.h"

/// The one translator between errors of this library and those of COM. Runtime errors (1 to 65535) travel as
/// 0x800A0000 + number, all others as they are; source and description go with them in both directions.
namespace arap::com {

HRESULT code_of(const AutomationError& error);

/// What a failed call means. The runtime's own number where the code stands for one (DISP_E_TYPEMISMATCH is 13), the
/// code itself otherwise. `info` counts for DISP_E_EXCEPTION and is emptied.
AutomationError error_of(HRESULT code, EXCEPINFO* info = nullptr);

/// Raises error_of(code) when it failed.
void check(HRESULT code);

/// The error that a failed method left with the thread, under the number of its code; nothing when it left none. The
/// caller empties the thread's error object before the call.
std::optional<AutomationError> error_left_by(HRESULT code);

/// For a `catch (...)`: the exception under way as the answer of IDispatch::Invoke. Without `info` the error goes to
/// the thread's error object.
HRESULT report_to_invoke(EXCEPINFO* info) noexcept;
/// The same as the answer of a method of the interface `id`, with the thread's error object set.
HRESULT report_to_method(REFIID id) noexcept;

}  // namespace arap::com

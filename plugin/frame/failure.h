#pragma once

#include <utility>

#include "frame/automation.h"
#include "frame/messages.h"
#include "frame/text_utils.h"

/// The three ways in which an unexpected error leaves a procedure. A handler without one of them lets the error pass to
/// the host as it is.
namespace arap {

/// Trap and pass on: Cancel becomes true, and the error goes to the host with its number, its source and its
/// description, which passes through LoadText. An error with the number 0 ends here.
template <class Body>
void TrapAndPassOn(Variant& vCancel, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const AutomationError& error) {
    vCancel = true;
    if (error.number() != 0) throw AutomationError(error.number(), error.source(), LoadText(error.description()));
  }
}

/// Trap and show: the error's description in a notice, then the procedure ends. Answers false after an error.
template <class Body>
bool TrapAndShow(Body&& body) {
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const AutomationError& error) {
    ShowInfo(error.description());
    return false;
  }
}

/// Resume next: one statement, skipped when it fails. A procedure under this pattern wraps each of its statements.
template <class Statement>
void ResumeNext(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
  } catch (const AutomationError&) {
  }
}

}  // namespace arap

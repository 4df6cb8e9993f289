#pragma once

#include "services/desk_platform.h"

class QWidget;

namespace desk {

/// Shows the box of a rule over the active window and answers the pressed button's number. Focus, caret and selection
/// are as before when it is gone.
int show_message_box(const ShownMessage& message, QWidget* pParent);

}  // namespace desk

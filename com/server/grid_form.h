#pragma once

#include "frame/platform.h"

namespace arap::com {

/// Shows a form around a control of that ProgID, modal to the window in front, with an OK and a Cancel button below it,
/// until one of them was pressed. Raises 429 when there is no such control, and what the form's rules raise.
void show_grid_form(GridForm& form, std::string_view sProgID);

}  // namespace arap::com

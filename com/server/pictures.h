#pragma once

#include <string_view>

#include "frame/automation.h"

namespace arap::com {

/// The toolbar picture of that name among this module's resources (BLUE, CHECK, CONVERT, PART, RED, SUM, VIEW,
/// VOUCHER), as an IPictureDisp; Empty when there is none.
Variant load_picture(std::string_view sName);

}  // namespace arap::com

#pragma once

#include <cstdint>
#include <string>

#include "frame/automation.h"

namespace arap {

/// The partner's credit as the status bar tells it; "" for another class type than those of the four bills.
std::string GetCreditText(const Variant& vPartner, std::int32_t nClassType);

}  // namespace arap

#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"

namespace desk {

/// What stands in relation to a bill, as lines of text: the settlement bills that draw an other bill, the sources of a
/// settlement bill, and the voucher of either. "" for a bill without any, and for a class without bills.
std::string related_bills(Database& database, std::int32_t nClassType, std::int32_t nBillID);

}  // namespace desk

#pragma once

#include <string>

#include "engine/bill_window.h"
#include "services/session.h"
#include "services/settlement_tables.h"

namespace desk {

/// The surroundings of a bill window at this seat: its database, its user, and edit locks taken from its task mutex.
Host seat_host(Session& session, const std::string& sToday);

/// A window of the side, with the plug-in behind it.
OpenBillWindow open_settlement_window(Session& session, const SettlementTables& tables, const std::string& sToday);

/// The system's date as yyyy-mm-dd.
std::string system_date();

/// The first user of the book. Raises DeskError when the book has none.
std::string first_user(Database& database);

}  // namespace desk

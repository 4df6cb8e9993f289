#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"

namespace desk {

/// What tells one life of a seat from the next, so that a task counts no longer than its owner: the same process id
/// comes back for another program one day, and a connection that broke is gone though its program still runs.
///
/// In a book of a file it is the start of the process; only processes of this machine can be asked for. In a book of a
/// server it is a lock that the seat's connection holds and that ends with it.

/// The life of a process of this machine, or of this connection. "" for a process that doesn't run, and where the
/// system doesn't tell.
std::string seat_life(Database& database, std::int32_t nProcess);

/// Deletes the tasks that ended seats left behind: of a file those of programs of this machine, of a server all.
void clear_ended_seats(Database& database, const std::string& sMachine);

}  // namespace desk

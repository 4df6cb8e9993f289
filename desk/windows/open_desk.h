#pragma once

#include <string>

#include "data/database.h"

namespace desk {

/// Shows the desk's windows on a book until the user quits; answers the program's exit code. Needs a QApplication.
int open_desk(Database& database, const std::string& sUser, const std::string& sToday);

}  // namespace desk

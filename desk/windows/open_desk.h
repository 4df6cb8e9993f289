#pragma once

#include <string>

#include "data/database.h"

namespace desk {

/// What every program with the desk's windows does once it has a QApplication: texts of both scripts in one font, so
/// that they stand on one line.
void prepare_application();

/// Shows the desk's windows on a book until the user quits; answers the program's exit code. Needs a QApplication.
int open_desk(Database& database, const std::string& sUser, const std::string& sToday);

/// Draws the desk's main window, the last bill of the template open in it, into a PNG file. Raises DeskError when the
/// book has no such bill or the file can't be written. Needs a QApplication.
void draw_last_bill(Database& database, const std::string& sUser, const std::string& sTemplate,
                    const std::string& sFile);

}  // namespace desk

#pragma once

#include <string>

namespace desk {

/// The path of a help file as this machine writes it: the library parts the folder with "\".
std::string native_path(const std::string& sPath);

/// Opens a help file with the viewer of this machine, or the program that DESK_HELP_VIEWER names, and doesn't wait for
/// it. A file that isn't there is the viewer's to report. False when there is no such viewer.
bool open_help_file(const std::string& sPath);

}  // namespace desk

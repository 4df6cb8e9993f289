#pragma once

#include <string>
#include <string_view>

namespace desk {

/// A statement of the desk, or of the plug-in as the dialect layer carried it over, as PostgreSQL spells it:
/// LIKE without regard to case, instr, quoted names in the case in which the server keeps them, a text that stands in
/// for a number that is NULL, and in CREATE TABLE texts that sort by their bytes and keys that count on by themselves.
std::string postgres_sql(std::string_view sSql);

/// A name that the server keeps in lower case, as the tables and views of a book spell it; other names as they are.
std::string name_in_tables(const std::string& sName);

}  // namespace desk

#pragma once

#include <string_view>

#include "data/database.h"

namespace desk {

/// The number a book carries; a book of another number isn't opened.
inline constexpr int kSchemaVersion = 3;

/// Tables, indexes and views of a book, as statements separated by ";". schema_sql.cpp tells what each table holds.
std::string_view table_script();
std::string_view view_script();

/// Makes everything in an empty database, in one transaction.
void create_schema(Database& database);

}  // namespace desk

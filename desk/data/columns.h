#pragma once

#include <span>
#include <string_view>

namespace desk {

/// Whether a column of that name (without regard to case) holds an amount, that is, an integer in ten-thousandths.
/// One name means the same in every table and view of a book. A money column is declared BIGINT there, and a Recordset
/// gives its values as doubles in units of the currency.
bool is_money_column(std::string_view sColumn);

/// The catalogue itself, in lower case and sorted.
std::span<const std::string_view> money_columns();

}  // namespace desk

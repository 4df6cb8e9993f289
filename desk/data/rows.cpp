#include "data/database.h"
#include "frame/conversions.h"

namespace desk {

using arap::Variant;

Bind::Bind(const Value& vValue) {
  switch (vValue.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Null:
    case Variant::Type::Missing: return;
    case Variant::Type::Boolean: *this = Bind(vValue.as<bool>() ? 1 : 0); return;
    case Variant::Type::Integer: *this = Bind(std::int32_t{vValue.as<std::int16_t>()}); return;
    case Variant::Type::Long: *this = Bind(vValue.as<std::int32_t>()); return;
    case Variant::Type::Double: *this = Bind(vValue.as<double>()); return;
    case Variant::Type::Date:
    case Variant::Type::Text: *this = Bind(arap::TextOf(vValue)); return;
    case Variant::Type::Object: break;
  }
  throw DeskError(ErrorKind::BadValue, "An object can't be stored in the database", {});
}

int Rows::find_column(std::string_view sColumn) const {
  for (std::size_t i = 0; i < column_count(); ++i)
    if (arap::EqualsNoCase((*columns_)[i], sColumn)) return static_cast<int>(i);
  return -1;
}

const Value& Rows::at(std::size_t nRow, std::size_t nColumn) const {
  if (nColumn >= column_count() || nRow >= size()) {
    throw DeskError(ErrorKind::BadValue, "The result has no such row or column",
                    "row " + std::to_string(nRow) + ", column " + std::to_string(nColumn));
  }
  return cells_[nRow * column_count() + nColumn];
}

const Value& Rows::at(std::size_t nRow, std::string_view sColumn) const {
  const int nColumn = find_column(sColumn);
  if (nColumn < 0) throw DeskError(ErrorKind::BadValue, "The result has no such column", std::string(sColumn));
  return at(nRow, static_cast<std::size_t>(nColumn));
}

Money Rows::money(std::size_t nRow, std::string_view sColumn) const { return Money::from_stored(at(nRow, sColumn)); }
std::int32_t Rows::integer(std::size_t nRow, std::string_view sColumn) const { return arap::LongOf(at(nRow, sColumn)); }
double Rows::real(std::size_t nRow, std::string_view sColumn) const { return arap::NumberOf(at(nRow, sColumn)); }
std::string Rows::text(std::size_t nRow, std::string_view sColumn) const { return arap::Concat(at(nRow, sColumn)); }

}  // namespace desk

#include "inouttypes/type_numbers.h"

#include <array>

namespace arap {

std::string GetParentNumber(std::string_view sNumber, std::string& sParent) {
  const std::size_t nPoint = sNumber.rfind('.');
  if (nPoint == std::string_view::npos) {
    sParent.clear();
    return std::string(sNumber);
  }
  std::string sShort(sNumber.substr(nPoint + 1));
  sParent = sNumber.substr(0, nPoint);
  return sShort;
}

std::string GetNextNumber(std::string_view sNumber) {
  struct CharacterRow {
    char cFirst;
    char cLast;
  };
  static constexpr std::array<CharacterRow, 3> kRows{{{'0', '9'}, {'A', 'Z'}, {'a', 'z'}}};
  std::string sNext(sNumber);
  if (sNext.empty()) return sNext;
  char& cLast = sNext.back();
  for (const CharacterRow& row : kRows) {
    if (cLast < row.cFirst || cLast > row.cLast) continue;
    cLast = cLast == row.cLast ? row.cFirst : static_cast<char>(cLast + 1);
    break;
  }
  return sNext;
}

}  // namespace arap

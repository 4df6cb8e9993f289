#include "support/line_differences.h"

#include <algorithm>
#include <sstream>

namespace arap::testing {

Lines lines_of(const std::string& sText) {
  Lines aLines;
  std::istringstream text(sText);
  for (std::string sLine; std::getline(text, sLine);) aLines.push_back(sLine);
  return aLines;
}

std::string in_other_names(std::string sText, const std::vector<std::pair<const char*, const char*>>& aNames) {
  for (const auto& [sName, sOther] : aNames) {
    const std::string sOld = sName;
    const std::string sNew = sOther;
    for (auto n = sText.find(sOld); n != std::string::npos; n = sText.find(sOld, n + sNew.size())) {
      sText.replace(n, sOld.size(), sNew);
    }
  }
  return sText;
}

Lines line_differences(const Lines& aFirst, const Lines& aSecond) {
  const std::size_t nFirst = aFirst.size();
  const std::size_t nSecond = aSecond.size();
  std::vector<std::vector<int>> common(nFirst + 1, std::vector<int>(nSecond + 1, 0));
  for (std::size_t i = nFirst; i-- > 0;) {
    for (std::size_t j = nSecond; j-- > 0;) {
      common[i][j] = aFirst[i] == aSecond[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  Lines aDifferences;
  for (std::size_t i = 0, j = 0; i < nFirst || j < nSecond;) {
    if (i < nFirst && j < nSecond && aFirst[i] == aSecond[j]) {
      ++i, ++j;
    } else if (j == nSecond || (i < nFirst && common[i + 1][j] >= common[i][j + 1])) {
      aDifferences.push_back("- " + aFirst[i++]);
    } else {
      aDifferences.push_back("+ " + aSecond[j++]);
    }
  }
  return aDifferences;
}

}  // namespace arap::testing

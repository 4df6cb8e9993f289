#pragma once

#include <QString>

#include <string>
#include <string_view>

/// Between the desk's UTF-8 and Qt's texts.
namespace desk {

inline QString qt(std::string_view sText) {
  return QString::fromUtf8(sText.data(), static_cast<qsizetype>(sText.size()));
}
inline std::string utf8(const QString& sText) { return sText.toStdString(); }

}  // namespace desk

#include "services/help_viewer.h"

#include <QProcess>

#include <algorithm>

namespace desk {

namespace {

#ifdef Q_OS_WIN
constexpr const char* kViewer = "hh.exe";
#else
constexpr const char* kViewer = "xdg-open";
#endif

}  // namespace

std::string native_path(const std::string& sPath) {
  std::string sNative = sPath;
#ifndef Q_OS_WIN
  std::ranges::replace(sNative, '\\', '/');
#endif
  return sNative;
}

bool open_help_file(const std::string& sPath) {
  const QString sViewer = qEnvironmentVariable("DESK_HELP_VIEWER", QString::fromLatin1(kViewer));
  return QProcess::startDetached(sViewer, {QString::fromStdString(native_path(sPath))});
}

}  // namespace desk

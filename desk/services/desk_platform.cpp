#include "services/desk_platform.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#include "data/qt_text.h"
#include "data/trace.h"
#include "frame/messages.h"

namespace desk {

namespace {

// The buttons among the bits of a box's style, and those of a question.
constexpr int kButtonMask = 15;
constexpr int kYesNo = 4;
constexpr int kReadOnly = 1;
constexpr int kArchive = 32;
constexpr int kFileNotFound = 53;

QFileInfo existing_file(std::string_view sPath) {
  QFileInfo info(qt(sPath));
  if (!info.exists()) throw arap::AutomationError(kFileNotFound, "desk", "File not found: " + std::string(sPath));
  return info;
}

}  // namespace

DeskPlatform::DeskPlatform(ObjectRegistry& registry)
    : registry_(registry), process_id_(static_cast<std::int32_t>(QCoreApplication::applicationPid())) {}

bool is_question(const ShownMessage& message) { return (message.nButtons & kButtonMask) == kYesNo; }

int DeskPlatform::MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) {
  trace(TraceObserver::Kind::Message, sText);
  if (before_box_) before_box_();
  ShownMessage message{std::string(sText), nButtons, std::string(sTitle)};
  message.nAnswer = answer(message);
  messages_.push_back(message);
  return message.nAnswer;
}

int DeskPlatform::answer(const ShownMessage& message) {
  const bool bQuestion = is_question(message);
  if (bQuestion && !answers_.empty()) {
    const int nAnswer = answers_.front();
    answers_.pop_front();
    return nAnswer;
  }
  if (ask_user_) return ask_user_(message);
  return bQuestion ? kButtonNo : kButtonOk;
}

std::optional<std::string> DeskPlatform::ComputerName() {
  if (!computer_name_.empty()) return computer_name_;
  const std::string sName = QSysInfo::machineHostName().toStdString();
  if (sName.empty()) return std::nullopt;
  return sName;
}

std::string DeskPlatform::ApplicationPath() {
  // Without a running application object the folder is unknown.
  if (QCoreApplication::instance() == nullptr) return ".";
  return QCoreApplication::applicationDirPath().toStdString();
}

void DeskPlatform::StartHelpViewer(std::string_view sPath) {
  help_files_.emplace_back(sPath);
  if (help_viewer_) help_viewer_(help_files_.back());
}

bool DeskPlatform::FileExists(std::string_view sPath) { return QFileInfo(qt(sPath)).isFile(); }

int DeskPlatform::FileAttributes(std::string_view sPath) {
  return existing_file(sPath).isWritable() ? kArchive : kReadOnly;
}

void DeskPlatform::SetFileAttributes(std::string_view sPath, int nAttributes) {
  const QFileInfo info = existing_file(sPath);
  QFile::Permissions permissions = info.permissions();
  permissions.setFlag(QFile::WriteOwner, (nAttributes & kReadOnly) == 0);
  QFile::setPermissions(info.filePath(), permissions);
}

}  // namespace desk

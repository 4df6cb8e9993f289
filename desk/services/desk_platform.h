#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/platform.h"
#include "services/object_registry.h"

namespace desk {

/// A box that the program showed, with the answer that it got.
struct ShownMessage {
  std::string sText;
  int nButtons = 0;
  std::string sTitle;
  int nAnswer = 0;
};

/// Whether a box asks for yes or no; a notice has one button.
bool is_question(const ShownMessage& message);

/// Numbers of the buttons of a message box.
inline constexpr int kButtonOk = 1;
inline constexpr int kButtonYes = 6;
inline constexpr int kButtonNo = 7;

/// The machine as the desk shows it to the library: boxes go to a callback or to answers given beforehand and are kept
/// in order, objects are made by the registry, files are those of the machine.
class DeskPlatform final : public arap::Platform {
 public:
  using AskUser = std::function<int(const ShownMessage&)>;

  explicit DeskPlatform(ObjectRegistry& registry);

  /// Who answers a box when no answer is queued. Without one a question is answered No and a notice OK.
  void set_ask_user(AskUser ask) { ask_user_ = std::move(ask); }
  /// Runs before each box, for a user may look at it for long.
  void set_before_box(std::function<void()> work) { before_box_ = std::move(work); }
  /// The next question gets this answer. Notices use up no answer.
  void queue_answer(int nButton) { answers_.push_back(nButton); }
  const std::vector<ShownMessage>& messages() const { return messages_; }
  void clear_messages() { messages_.clear(); }
  /// The machine under which this seat takes its tasks; that of the system by default.
  void set_computer_name(std::string sName) { computer_name_ = std::move(sName); }
  /// The help viewer of this machine. Without one the files are only kept.
  void set_help_viewer(std::function<void(const std::string& sPath)> viewer) { help_viewer_ = std::move(viewer); }
  /// The help files that were opened, by the path as the library wrote it.
  const std::vector<std::string>& help_files() const { return help_files_; }

  int MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) override;
  /// The views show by themselves that a command runs.
  void SetMousePointer(int) override {}
  arap::Ref<arap::Object> CreateObject(std::string_view sProgID) override { return registry_.create(sProgID); }
  std::optional<std::string> ComputerName() override;
  std::int32_t ProcessId() override { return process_id_; }
  std::string ApplicationPath() override;
  std::string LibraryPath() override { return ApplicationPath(); }
  void StartHelpViewer(std::string_view sPath) override;
  bool FileExists(std::string_view sPath) override;
  int FileAttributes(std::string_view sPath) override;
  void SetFileAttributes(std::string_view sPath, int nAttributes) override;
  arap::Variant Picture(std::string_view) override { return {}; }

 private:
  int answer(const ShownMessage& message);

  ObjectRegistry& registry_;
  std::int32_t process_id_;
  AskUser ask_user_;
  std::function<void()> before_box_;
  std::deque<int> answers_;
  std::vector<ShownMessage> messages_;
  std::string computer_name_;
  std::function<void(const std::string&)> help_viewer_;
  std::vector<std::string> help_files_;
};

}  // namespace desk

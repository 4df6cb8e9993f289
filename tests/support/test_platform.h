#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/platform.h"
#include "support/test_grid.h"
#include "support/trace.h"

namespace arap::testing {

/// A scripted machine; it is this thread's platform while it lives.
class TestPlatform final : public Platform {
 public:
  using Factory = std::function<Ref<Object>()>;
  struct Message {
    std::string sText;
    int nButtons;
    std::string sTitle;
  };

  TestPlatform() { InstallPlatform(this); }
  ~TestPlatform() override { InstallPlatform(nullptr); }
  TestPlatform(const TestPlatform&) = delete;
  TestPlatform& operator=(const TestPlatform&) = delete;

  /// Answers of the coming boxes, in order. Without one a question is answered Yes (6), any other box OK (1).
  void answer(int nAnswer) { answers_.push_back(nAnswer); }
  /// The boxes that were shown.
  std::vector<Message> messages;
  /// The text of the last box; "" when there was none.
  std::string last_message() const { return messages.empty() ? "" : messages.back().sText; }
  /// Runs while a box is open, before its answer.
  std::function<void(const Message&)> while_open;

  /// What CreateObject makes; ProgIDs without regard to case. A quiet one leaves no line in the trace.
  void add_object(std::string_view sProgID, Factory factory, bool bQuiet = false);
  void remove_object(std::string_view sProgID);

  std::vector<int> pointers;  // every value that the mouse pointer was set to
  std::optional<std::string> computer_name = "SEAT-1";
  std::int32_t process_id = 4711;
  std::string application_path = "C:\\Program";
  std::string library_path = "C:\\Plugin";
  std::vector<std::string> help_files;            // what the help viewer was started on
  std::map<std::string, int, std::less<>> files;  // path to attribute bits
  std::map<std::string, Variant, std::less<>> pictures;

  int MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) override;
  void SetMousePointer(int nPointer) override;
  Ref<Object> CreateObject(std::string_view sProgID) override;
  std::optional<std::string> ComputerName() override { return computer_name; }
  std::int32_t ProcessId() override { return process_id; }
  std::string ApplicationPath() override { return application_path; }
  std::string LibraryPath() override { return library_path; }
  void StartHelpViewer(std::string_view sPath) override;
  bool FileExists(std::string_view sPath) override { return files.find(sPath) != files.end(); }
  int FileAttributes(std::string_view sPath) override;
  void SetFileAttributes(std::string_view sPath, int nAttributes) override;
  /// The picture's name as text, unless `pictures` has one.
  Variant Picture(std::string_view sName) override;
  /// What the user does in a grid form, between its load and its end. Without it the control isn't installed.
  std::function<void(TestGrid&, GridForm&)> use_grid_form;
  void ShowGridForm(GridForm& form) override;

 private:
  struct Maker {
    std::string sProgID;
    Factory factory;
    bool bQuiet;
  };
  std::deque<int> answers_;
  std::vector<Maker> makers_;
};

}  // namespace arap::testing

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/automation.h"

namespace arap {

/// The rules of a form that is one grid control with an OK and a Cancel button.
class GridForm {
 public:
  /// The form is made and not yet seen; oGrid is its grid control.
  virtual void Form_Load(const Ref<Object>& oGrid) = 0;
  virtual void CmdOk_Click() = 0;
  /// Also the form's close box.
  virtual void CmdCancel_Click() = 0;

 protected:
  ~GridForm() = default;
};

/// The second, smaller door: what the library asks of the machine it runs on. com/ answers with Windows calls, desk/
/// with its own, tests with a script. All texts are UTF-8.
class Platform {
 public:
  virtual ~Platform() = default;

  /// A modal box. `nButtons` and the answer are those of the Windows message box (answer 6 is Yes, 7 No, 1 OK).
  virtual int MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) = 0;
  /// The screen's mouse pointer: 0 default, 11 hourglass.
  virtual void SetMousePointer(int nPointer) = 0;
  /// Plain creation by ProgID. Raises 429 when no such object can be made.
  virtual Ref<Object> CreateObject(std::string_view sProgID) = 0;
  /// Nothing when the system can't tell.
  virtual std::optional<std::string> ComputerName() = 0;
  virtual std::int32_t ProcessId() = 0;
  /// The folder of the running application, with or without a separator at its end.
  virtual std::string ApplicationPath() = 0;
  /// The folder of the library's own file, without a separator at its end.
  virtual std::string LibraryPath() = 0;
  /// Starts the viewer of help files on that file's start page, in a normal window, and doesn't wait for it: "hh.exe "
  /// and the path on Windows. A file that isn't there is the viewer's to report.
  virtual void StartHelpViewer(std::string_view sPath) = 0;
  virtual bool FileExists(std::string_view sPath) = 0;
  /// The attribute bits of a file: 1 read-only, 32 archive. Raise 53 for a file that isn't there.
  virtual int FileAttributes(std::string_view sPath) = 0;
  virtual void SetFileAttributes(std::string_view sPath, int nAttributes) = 0;
  /// The picture of that name (SUM, PART, VIEW, ...) as the host's bar takes it; Empty when there is none.
  virtual Variant Picture(std::string_view sName) = 0;
  /// Shows a form around a FarPoint Spread until one of its buttons was pressed; an error of the form's rules closes it
  /// and goes to the caller. A machine without that control raises 429.
  virtual void ShowGridForm(GridForm& form);
};

/// The platform of the calling thread. It is installed once, before the first object is made, and outlives them all.
void InstallPlatform(Platform* platform);
/// Raises 91 when none is installed.
Platform& CurrentPlatform();

}  // namespace arap

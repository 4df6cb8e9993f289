#pragma once

#include <string>

#include "bridge/handles.h"

namespace arap::testing {

/// A box as it stands on the screen.
struct BoxOnScreen {
  std::string sText;
  std::string sTitle;
  int nButtons = 0;  // the style that shows these buttons and this icon
};
BoxOnScreen read_box(HWND box);
/// The box of this thread that the script is just asked about; null when there is none.
HWND open_box();
/// The icon that the next box was asked for: the 32-bit half of Wine 8 has none of the system's icons to show.
void expect_icon(UINT nStyle);

/// While one lives, a message box of this thread is read off the screen, told to the thread's platform as a call of
/// MsgBox, and closed with the platform's answer: real boxes are recorded and answered as the script has it.
class MessageBoxes {
 public:
  MessageBoxes();
  ~MessageBoxes();
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

 private:
  HHOOK hook_;
};

}  // namespace arap::testing

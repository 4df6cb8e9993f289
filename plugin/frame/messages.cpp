#include "frame/messages.h"

#include "frame/platform.h"
#include "frame/text_utils.h"

namespace arap {

int ShowMessage(std::string_view sText, int nButtons, std::string_view sTitle) {
  return CurrentPlatform().MsgBox(sText, nButtons, LoadText(sTitle));
}

void ShowInfo(std::string_view sText) { ShowMessage(sText, kNotice, kTitle); }

}  // namespace arap

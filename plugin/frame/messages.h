#pragma once

#include <string_view>

namespace arap {

/// Button styles of a message box. The two questions offer Yes and No.
enum MessageStyle : int { kNotice = 64, kWarning = 48, kStop = 16, kQuestion = 36, kQuestionAsNotice = 68 };
/// The answers of a question.
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;
/// The title of the program's boxes.
inline constexpr std::string_view kTitle = "青柚提示";

/// Shows a text and answers the number of the button pressed. The title passes through LoadText.
int ShowMessage(std::string_view sText, int nButtons, std::string_view sTitle);
/// The same box with the program's title and the style of a notice.
void ShowInfo(std::string_view sText);

}  // namespace arap

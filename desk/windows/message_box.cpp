#include "windows/message_box.h"

#include <QMessageBox>

#include "windows/focus_keeper.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

/// The parts of a Windows message box number: low four bits the buttons, next four the icon, next four the default.
constexpr int kYesNo = 4;
constexpr int kYesNoCancel = 3;
constexpr int kOkCancel = 1;
constexpr int kButtonCancel = 2;

QMessageBox::Icon icon_of(int nButtons) {
  switch (nButtons & 0xF0) {
    case 16: return QMessageBox::Critical;
    case 32: return QMessageBox::Question;
    case 48: return QMessageBox::Warning;
    case 64: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons buttons_of(int nButtons) {
  switch (nButtons & 0x0F) {
    case kYesNo: return QMessageBox::Yes | QMessageBox::No;
    case kYesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case kOkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    default: return QMessageBox::Ok;
  }
}

int number_of(int nStandardButton) {
  switch (nStandardButton) {
    case QMessageBox::Yes: return kButtonYes;
    case QMessageBox::No: return kButtonNo;
    case QMessageBox::Cancel: return kButtonCancel;
    default: return kButtonOk;
  }
}

}  // namespace

int show_message_box(const ShownMessage& message, QWidget* pParent) {
  const FocusKeeper focus;
  QMessageBox box(icon_of(message.nButtons), qt(message.sTitle), qt(message.sText), buttons_of(message.nButtons),
                  pParent);
  box.setTextFormat(Qt::PlainText);
  return number_of(box.exec());
}

}  // namespace desk

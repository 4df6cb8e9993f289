#pragma once

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>

namespace desk {

/// Puts focus, caret and selection back where they were when a dialog over them is gone.
class FocusKeeper {
 public:
  FocusKeeper() : focus_(QApplication::focusWidget()) {
    if (const auto* pLine = qobject_cast<QLineEdit*>(focus_.data())) {
      cursor_ = pLine->cursorPosition();
      selection_ = pLine->selectionStart();
      length_ = pLine->selectionLength();
    }
  }
  ~FocusKeeper() {
    if (!focus_) return;
    focus_->activateWindow();
    focus_->setFocus(Qt::OtherFocusReason);
    auto* pLine = qobject_cast<QLineEdit*>(focus_.data());
    if (pLine == nullptr) return;
    pLine->setCursorPosition(cursor_);
    if (selection_ >= 0) pLine->setSelection(selection_, length_);
  }
  FocusKeeper(const FocusKeeper&) = delete;
  FocusKeeper& operator=(const FocusKeeper&) = delete;

 private:
  QPointer<QWidget> focus_;
  int cursor_ = 0;
  int selection_ = -1;
  int length_ = 0;
};

}  // namespace desk

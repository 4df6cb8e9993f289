#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <functional>
#include <string>

#include "desk/data/temp_book.h"
#include "windows/main_window.h"
#include "windows/qt_text.h"

namespace desk::testing {

/// A user at the desk with nothing but a keyboard: the demo book, its windows, and keys.
class DeskUser {
 public:
  explicit DeskUser(const std::string& sUser = "")
      : seat(*book.database, sUser.empty() ? first() : sUser, kToday), window(seat) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  static constexpr const char* kToday = "2026-11-15";

  BillView& bill() {
    BillView* pView = window.current_bill();
    if (pView == nullptr) throw std::logic_error("no bill is in front");
    return *pView;
  }
  std::string shown(const std::string& sKey, int nRow = -1) { return bill().window().shown(sKey, nRow); }

  /// Types into a head field and leaves it by Tab.
  void type(const std::string& sKey, const char* sText) {
    FieldEdit* pEdit = bill().head().edit(sKey);
    ASSERT_NE(pEdit, nullptr) << sKey;
    pEdit->setFocus(Qt::TabFocusReason);
    pEdit->selectAll();
    QTest::keyClicks(pEdit, QString::fromUtf8(sText));
    QTest::keyClick(pEdit, Qt::Key_Tab);
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.focusWidget() != nullptr ? window.focusWidget() : &window, key, modifiers);
  }
  void key_text(char c) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.focusWidget(), c);
  }
  /// A command of the bill in front, from its menu.
  void command(const std::string& sTool) {
    QAction* pAction = bill().bars().action(sTool);
    ASSERT_NE(pAction, nullptr) << sTool;
    pAction->trigger();
  }

  /// The next box is answered by this key; its text is kept.
  void answer_next_box(Qt::Key answer = Qt::Key_Return) {
    QTimer::singleShot(0, &window, [this, answer] {
      auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (pBox == nullptr) return answer_next_box(answer);
      boxes.push_back(utf8(pBox->text()));
      QTest::keyClick(pBox, answer);
    });
  }
  /// Does this in the next dialog that opens.
  void in_next_dialog(std::function<void(QDialog&)> work) {
    QTimer::singleShot(0, &window, [this, work = std::move(work)] {
      auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (pDialog == nullptr || !pDialog->isVisible()) return in_next_dialog(work);
      work(*pDialog);
    });
  }

  std::string text_of(const std::string& sSql) { return book.database->query(sSql).text(0, "F"); }

  DemoBook book;
  DeskSeat seat;
  std::vector<std::string> boxes;
  MainWindow window;

 private:
  std::string first() {
    return book.database->query("SELECT FName FROM t_User ORDER BY FUserID LIMIT 1").text(0, "FName");
  }
};

}  // namespace desk::testing

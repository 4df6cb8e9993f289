#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <string>

#include "desk/data/temp_book.h"
#include "desk/sides.h"
#include "services/settlement_tables.h"
#include "windows/bill_list_view.h"
#include "windows/main_window.h"
#include "windows/qt_text.h"
#include "windows/rooms.h"

namespace desk::testing {

/// A user at the desk with nothing but a keyboard: the demo book, its windows, and keys.
class DeskUser {
 public:
  explicit DeskUser(const std::string& sUser = "")
      : seat(*book.database, sUser.empty() ? first() : sUser, kToday), window(seat) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    QObject::connect(&watch_, &QTimer::timeout, &window, [this] { close_what_nobody_answers(); });
    watch_.start(5000);
  }
  ~DeskUser() { EXPECT_EQ(awaited_, 0) << "boxes and dialogs that were to be answered never came"; }

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
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
  void keys(const char* sText) {
    for (const char* p = sText; *p != '\0'; ++p) key_text(*p);
  }
  /// Puts the caret on a cell of the grid; rows from 1.
  void go_to(int nRow, const char* sKey) {
    BodyGrid& grid = bill().body();
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(nRow - 1, static_cast<BodyModel*>(grid.model())->column_of(sKey)));
  }
  /// Types into a cell and enters it.
  void type_cell(int nRow, const char* sKey, const char* sText) {
    go_to(nRow, sKey);
    keys(sText);
    key(Qt::Key_Return);
  }
  /// A command of the bill in front, from its menu.
  void command(const std::string& sTool) {
    QAction* pAction = bill().bars().action(sTool);
    ASSERT_NE(pAction, nullptr) << sTool;
    pAction->trigger();
  }

  /// The next box is answered by this key; its text is kept.
  void answer_next_box(Qt::Key answer = Qt::Key_Return) {
    ++awaited_;
    wait_for_box(answer);
  }
  /// Does this in the next dialog that opens; in the next one of that name, where one is given.
  void in_next_dialog(std::function<void(QDialog&)> work, const QString& sName = {}) {
    ++awaited_;
    wait_for_dialog(std::move(work), sName);
  }
  /// Takes all open bills that the next selection offers.
  void take_all_in_next_selection() {
    in_next_dialog(
        [](QDialog& dialog) {
          auto* pTable = dialog.findChild<QTableView*>();
          QTest::keyClick(pTable, Qt::Key_A, Qt::ControlModifier);
          QTest::keyClick(pTable, Qt::Key_Return);
        },
        QStringLiteral("selection"));
  }
  /// The room of that name in front.
  RoomView& room(std::string_view sCaption) {
    const auto& all = rooms();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Room& each) { return each.sCaption == sCaption; });
    if (found == all.end()) throw std::logic_error("no such room");
    window.show_room(static_cast<int>(found - all.begin()));
    return *window.current_room();
  }
  /// The list of a side in front.
  BillListView& list(const SettlementTables& tables) { return list(money_comes_in(tables) ? "收款单" : "付款单"); }
  BillListView& list(std::string_view sRoom) {
    auto* pList = qobject_cast<BillListView*>(&room(sRoom));
    if (pList == nullptr) throw std::logic_error("no list of bills is in front");
    return *pList;
  }
  /// Lets everything that was put off happen.
  static void settle() {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string text_of(const std::string& sSql) { return book.database->query(sSql).text(0, "F"); }

  DemoBook book;
  DeskSeat seat;
  std::vector<std::string> boxes;
  MainWindow window;

 private:
  void wait_for_box(Qt::Key answer) {
    QTimer::singleShot(0, &window, [this, answer] {
      auto* pBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (pBox == nullptr || pBox == answered_) return wait_for_box(answer);
      --awaited_;
      answered_ = pBox;  // a key for a button takes a moment until the box goes
      boxes.push_back(utf8(pBox->text()));
      QTest::keyClick(pBox, answer);
    });
  }
  void wait_for_dialog(std::function<void(QDialog&)> work, const QString& sName) {
    QTimer::singleShot(0, &window, [this, sName, work = std::move(work)] {
      auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      const bool bMeant =
          pDialog != nullptr && pDialog->isVisible() && (sName.isEmpty() || pDialog->objectName() == sName);
      if (!bMeant) return wait_for_dialog(work, sName);
      --awaited_;
      work(*pDialog);
    });
  }
  /// A box that a test doesn't expect would hold it up for ever.
  void close_what_nobody_answers() {
    QPointer<QWidget> now = QApplication::activeModalWidget();
    if (now != nullptr && now == seen_waiting_) {
      const auto* pBox = qobject_cast<QMessageBox*>(now.data());
      ADD_FAILURE() << "nobody answers: " << utf8(pBox != nullptr ? pBox->text() : now->objectName());
      QTest::keyClick(now, Qt::Key_Escape);
    }
    seen_waiting_ = now;
  }
  std::string first() {
    return book.database->query("SELECT FName FROM t_User ORDER BY FUserID LIMIT 1").text(0, "FName");
  }

  int awaited_ = 0;  // boxes and dialogs that haven't come yet
  QTimer watch_;
  QPointer<QWidget> seen_waiting_;
  QPointer<QMessageBox> answered_;
};

}  // namespace desk::testing

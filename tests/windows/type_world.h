#pragma once

#include <QInputMethodEvent>
#include <QTreeWidget>

#include <string>
#include <vector>

#include "desk_user.h"
#include "services/type_keeper.h"
#include "windows/base_data_view.h"
#include "windows/record_dialog.h"

namespace desk::testing {

/// A user in the room of types, with nothing but keys.
class TypeUser : public DeskUser {
 public:
  BaseDataView& types(std::string_view sRoom = "收支类别") {
    auto* pView = qobject_cast<BaseDataView*>(&room(sRoom));
    if (pView == nullptr) throw std::logic_error("no base data are in front");
    return *pView;
  }
  std::string node() { return utf8(types().tree().currentItem()->text(0)); }
  /// Goes down the tree by arrows, from its root to the node of that number.
  void go_to_node(const std::string& sNumber) {
    types().tree().setFocus();
    key(Qt::Key_Home);
    while (!node().starts_with(sNumber + " ")) {
      const std::string sBefore = node();
      key(Qt::Key_Down);
      ASSERT_NE(node(), sBefore) << "there is no node " << sNumber;
    }
  }
  /// Goes from the tree into its grid and down to the line of that number.
  void go_to_line(const std::string& sNode, const std::string& sNumber) {
    go_to_node(sNode);
    key(Qt::Key_Return);
    key(Qt::Key_Home, Qt::ControlModifier);
    while (cell("FNumber") != sNumber) {
      const std::string sBefore = cell("FNumber");
      key(Qt::Key_Down);
      ASSERT_NE(cell("FNumber"), sBefore) << "there is no line " << sNumber;
    }
  }
  /// A cell of the grid's current line: the number, the state.
  std::string cell(std::string_view sColumn) {
    const int nColumn = sColumn == "FNumber" ? 0 : sColumn == "FName" ? 1 : 4;
    QTableView& grid = types().table();
    return utf8(grid.currentIndex().siblingAtColumn(nColumn).data().toString());
  }
  static FieldEdit& field(QDialog& dialog, const char* sKey) {
    auto* pEdit = dialog.findChild<FieldEdit*>(QString::fromLatin1(sKey));
    if (pEdit == nullptr) throw std::logic_error(sKey);
    return *pEdit;
  }
  static std::string text(QDialog& dialog, const char* sKey) { return utf8(field(dialog, sKey).text()); }
  /// Chinese comes out of an input method, everything else out of the keys themselves.
  static void write(FieldEdit& edit, const QString& sText) {
    if (QString::fromLatin1(sText.toLatin1()) == sText) return QTest::keyClicks(&edit, sText);
    QInputMethodEvent written;
    written.setCommitString(sText);
    QApplication::sendEvent(&edit, &written);
  }
  static void fill(QDialog& dialog, const char* sKey, const char* sText) {
    FieldEdit& edit = field(dialog, sKey);
    activate(dialog);
    edit.setFocus(Qt::TabFocusReason);
    edit.selectAll();
    write(edit, QString::fromUtf8(sText));
    QTest::keyClick(&edit, Qt::Key_Tab);
  }
  static void save(QDialog& dialog) { press(dialog, Qt::Key_S, Qt::ControlModifier); }
  static void next(QDialog& dialog) { press(dialog, Qt::Key_N, Qt::ControlModifier); }
  static void leave(QDialog& dialog) { press(dialog, Qt::Key_Escape); }
  void in_next_record(std::function<void(QDialog&)> work) { in_next_dialog(std::move(work), QStringLiteral("record")); }
  void command_of_types(const std::string& sTool) { types().bars().action(sTool)->trigger(); }

  /// Where the book keeps a type: "101.01 土建 < 101, level 2, leaf".
  std::string in_book(const std::string& sNumber) {
    const Rows rows = book.database->query(
        "SELECT t.FNumber, t.FName, p.FNumber AS FAbove, t.FLevels, t.FIsLeaf, t.FDiscontinued FROM t_RP_InOutType t"
        " LEFT JOIN t_RP_InOutType p ON p.FID = t.FParentID WHERE t.FNumber = ?",
        {Bind(sNumber)});
    if (rows.empty()) return "gone";
    return rows.text(0, "FNumber") + " " + rows.text(0, "FName") + " < " + rows.text(0, "FAbove") + ", level " +
           rows.text(0, "FLevels") + (rows.integer(0, "FIsLeaf") != 0 ? ", leaf" : ", parent") +
           (rows.integer(0, "FDiscontinued") != 0 ? ", disabled" : "");
  }

 private:
  /// A window that has just come, or come back from under a box, takes keys a little later.
  static void activate(QDialog& dialog) {
    dialog.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&dialog] { return QApplication::activeWindow() == &dialog; }));
  }
  static void press(QDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    activate(dialog);
    QTest::keyClick(&dialog, key, modifiers);
  }
};

}  // namespace desk::testing

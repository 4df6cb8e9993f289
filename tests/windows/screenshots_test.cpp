#include <QDir>

#include "desk_user.h"
#include "windows/inspector.h"

namespace desk::testing {
namespace {

/// Pictures of the main windows, left where DESK_SCREENSHOTS says; otherwise they only have to have something in them.
class Screenshots : public ::testing::Test {
 protected:
  void take(QWidget& widget, const std::string& sName) {
    QApplication::processEvents();
    const QImage image = widget.grab().toImage();
    ASSERT_GT(image.width(), 300);
    EXPECT_GT(colours(image), 3) << sName << " is empty";
    const QByteArray folder = qgetenv("DESK_SCREENSHOTS");
    if (folder.isEmpty()) return;
    ASSERT_TRUE(QDir().mkpath(QString::fromLocal8Bit(folder)));
    EXPECT_TRUE(image.save(QString::fromLocal8Bit(folder) + QStringLiteral("/") + qt(sName) + QStringLiteral(".png")));
  }
  static int colours(const QImage& image) {
    QSet<QRgb> seen;
    for (int y = 0; y < image.height(); y += 3)
      for (int x = 0; x < image.width(); x += 3) seen.insert(image.pixel(x, y));
    return static_cast<int>(seen.size());
  }
};

TEST_F(Screenshots, OfTheRoadOfAReceipt) {
  DeskUser user;
  user.window.show_room(2);
  take(user.window, "open_receivables");
  user.window.new_bill("receipt");
  user.type("FCustomerID", "C003");
  user.type("FCurrencyID", "USD");
  user.type("FAcctID", "1002.02");
  user.in_next_dialog([this](QDialog& dialog) {
    QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_A, Qt::ControlModifier);
    take(dialog, "selection");
    QTest::keyClick(dialog.findChild<QTableView*>(), Qt::Key_Return);
  });
  user.command("mnuSelectBill_2000001");
  user.command("mnuDataAutoSumAmt");
  user.command("mnuFileSave");
  take(user.window, "receipt");
  user.window.inspector().show();
  user.answer_next_box();
  user.command("mnuEditCheck");
  take(user.window, "checked_receipt_with_inspector");
}

}  // namespace
}  // namespace desk::testing

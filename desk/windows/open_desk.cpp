#include "windows/open_desk.h"

#include <QApplication>
#include <QFontDatabase>

#include "frame/conversions.h"
#include "windows/main_window.h"
#include "windows/qt_text.h"

namespace desk {

void prepare_application() {
  const QString sFamily = QStringLiteral("Noto Sans CJK SC");
  if (!QFontDatabase::families().contains(sFamily)) return;
  QFont font = QApplication::font();
  font.setFamily(sFamily);
  QApplication::setFont(font);
}

int open_desk(Database& database, const std::string& sUser, const std::string& sToday) {
  DeskSeat seat(database, sUser, sToday);
  MainWindow window(seat);
  window.show();
  return QApplication::exec();
}

void draw_last_bill(Database& database, const std::string& sUser, const std::string& sTemplate,
                    const std::string& sFile) {
  const auto bill = BillTemplate::shipped(sTemplate);
  const std::int32_t nBillID =
      arap::LongOf(database.value("SELECT MAX(FBillID) FROM " + bill->page(1).sTable, {}, std::int32_t{0}));
  DeskSeat seat(database, sUser, system_date());
  MainWindow window(seat);
  window.show();
  if (window.open_bill(sTemplate, nBillID) == nullptr)
    throw DeskError(ErrorKind::BadValue, "the book has no bill of this kind", sTemplate, "play a scenario first");
  QApplication::processEvents();
  if (!window.grab().toImage().save(qt(sFile), "PNG"))
    throw DeskError(ErrorKind::ReadOnly, "can't write the picture", sFile, "check the folder");
}

}  // namespace desk

#include "windows/open_desk.h"

#include <QApplication>

#include "windows/main_window.h"

namespace desk {

int open_desk(Database& database, const std::string& sUser, const std::string& sToday) {
  DeskSeat seat(database, sUser, sToday);
  MainWindow window(seat);
  window.show();
  return QApplication::exec();
}

}  // namespace desk

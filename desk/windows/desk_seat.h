#pragma once

#include <QDate>

#include <string>

#include "services/seat_host.h"
#include "services/session.h"
#include "windows/command_log.h"

namespace desk {

/// The seat behind the windows: one book, one user, and the log of what the commands do.
struct DeskSeat {
  DeskSeat(Database& database, const std::string& sUser, std::string sDay)
      : session(database, sUser), sToday(std::move(sDay)) {}

  Database& database() { return session.database(); }
  QDate today() const { return QDate::fromString(QString::fromStdString(sToday), Qt::ISODate); }

  Session session;
  std::string sToday;  // yyyy-mm-dd of new bills
  CommandLog log;
};

}  // namespace desk

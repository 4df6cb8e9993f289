#include "services/seat_host.h"

#include <QDate>

#include <array>

namespace desk {

Host seat_host(Session& session, const std::string& sToday) {
  Host host(session.database());
  host.sToday = sToday;
  host.sUser = session.user_name();
  host.take_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    const std::array<std::int32_t, 1> aBills{nBillID};
    return session.tasks().take(21, edit_function(nClassType), aBills) > 0;
  };
  host.give_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    for (const std::int32_t nTask : session.tasks().tasks_of(edit_function(nClassType), nBillID))
      session.tasks().commit(nTask);
  };
  host.lost_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    return session.tasks().has_lost(edit_function(nClassType), nBillID);
  };
  return host;
}

OpenBillWindow open_settlement_window(Session& session, const SettlementTables& tables, const std::string& sToday) {
  return open_bill_window(seat_host(session, sToday),
                          BillTemplate::shipped(tables.bMoneyComesIn ? "receipt" : "payment"));
}

std::string system_date() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

std::string first_user(Database& database) {
  const Rows rows = database.query("SELECT FName FROM t_User ORDER BY FUserID LIMIT 1");
  if (rows.empty()) throw DeskError(ErrorKind::BadValue, "the book has no user", database.path(), "make a new book");
  return rows.text(0, "FName");
}

}  // namespace desk

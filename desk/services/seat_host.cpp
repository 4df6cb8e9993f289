#include "services/seat_host.h"

#include <QDate>

#include <array>

#include "frame/messages.h"
#include "services/bill_kinds.h"
#include "services/bill_service.h"

namespace desk {

namespace {

/// Deletes a bill when the user says yes to it.
Outcome delete_bill(Session& session, std::int32_t nClassType, std::int32_t nBillID) {
  const BillKind* pKind = find_bill_kind(nClassType);
  if (pKind == nullptr) return Outcome::refused("这里不能删除单据。");
  const int nAnswer = session.platform().MsgBox("是否删除当前单据?", arap::kQuestion, arap::kTitle);
  if (nAnswer != kButtonYes) return Outcome::refused("单据没有删除。");
  try {
    const PostingResult result =
        make_posting(session.database(), *pKind, lock_lost(session, nClassType))->remove(nBillID);
    return result.bDone ? Outcome::done() : Outcome::refused(result.sRefusal);
  } catch (const DeskError& error) {
    return Outcome::refused(error.problem());
  }
}

}  // namespace

Host seat_host(Session& session, const std::string& sToday) {
  Host host(session.database());
  host.sToday = sToday;
  host.sUser = session.user_name();
  host.take_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    const std::array<std::int32_t, 1> aBills{nBillID};
    return session.tasks().take(kTaskSystem, edit_function(nClassType), aBills) > 0;
  };
  host.give_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    for (const std::int32_t nTask : session.tasks().tasks_of(edit_function(nClassType), nBillID))
      session.tasks().commit(nTask);
  };
  host.lost_edit_lock = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    return session.tasks().has_lost(edit_function(nClassType), nBillID);
  };
  host.delete_bill = [&session](std::int32_t nClassType, std::int32_t nBillID) {
    return delete_bill(session, nClassType, nBillID);
  };
  return host;
}

OpenBillWindow open_settlement_window(Session& session, const SettlementTables& tables, const std::string& sToday) {
  return open_bill_window(seat_host(session, sToday), BillTemplate::shipped(find_bill_kind(tables.nClass)->sTemplate));
}

std::string system_date() { return QDate::currentDate().toString(Qt::ISODate).toStdString(); }

std::string first_user(Database& database) {
  const Rows rows = database.query("SELECT FName FROM t_User ORDER BY FUserID LIMIT 1");
  if (rows.empty()) throw DeskError(ErrorKind::BadValue, "the book has no user", database.path(), "make a new book");
  return rows.text(0, "FName");
}

}  // namespace desk

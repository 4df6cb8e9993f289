#pragma once

#include "services/other_tables.h"
#include "services/posting.h"

namespace desk {

/// Check, uncheck and delete of one side's other bills.
///
/// A checked credit bill is open until settlement bills have written it off; an immediate bill counts as settled by
/// itself. What was settled always lies between 0 and the bill's amount, so a bill that something was settled of stays
/// checked, and one that a settlement bill draws stays in the book.
class OtherPosting final : public BillPosting {
 public:
  OtherPosting(Database& database, const OtherTables& tables, LockLost lock_lost = {})
      : database_(database), tables_(tables), lock_lost_(std::move(lock_lost)) {}

  PostingResult check(std::int32_t nBillID, const std::string& sUser) override;
  /// Refused for a bill with a voucher, and while a checked settlement bill draws the bill.
  PostingResult uncheck(std::int32_t nBillID) override;
  /// Refused while a settlement bill draws the bill, checked or not.
  PostingResult remove(std::int32_t nBillID) override;

 private:
  posting::BillHead open_head(std::int32_t nBillID, std::string_view sAction);
  void refuse_settled_bill(const posting::BillHead& head);
  void refuse_drawn_bill(const posting::BillHead& head);
  std::string sql(std::string_view sTemplate) const { return side_sql(tables_.side, sTemplate); }

  Database& database_;
  const OtherTables& tables_;
  LockLost lock_lost_;
};

}  // namespace desk

#pragma once

#include <string>
#include <utility>

#include "services/posting.h"
#include "services/settlement_tables.h"

namespace desk {

/// The write-off bookkeeping of one side: two seats can't settle the same money twice.
///
/// What a source has received always lies between 0 and its amount; what a row gave back always lies between 0 and what
/// the row settled. An operation that would leave either range is refused.
class SettlementPosting final : public BillPosting {
 public:
  SettlementPosting(Database& database, const SettlementTables& tables, LockLost lock_lost = {})
      : database_(database), tables_(tables), lock_lost_(std::move(lock_lost)) {}

  /// Adds what each row settles to what its source has received, and marks the bill as checked. A refund row acts on
  /// the earlier bill's row and on that row's source.
  PostingResult check(std::int32_t nBillID, const std::string& sUser) override;
  /// Takes back exactly what check added.
  PostingResult uncheck(std::int32_t nBillID) override;
  PostingResult remove(std::int32_t nBillID) override;

  /// The advance of a partner in a currency that nothing has used yet, without the bill itself.
  Money unused_advance(std::int32_t nPartner, std::int32_t nCurrency, std::int32_t nWithoutBill);

 private:
  posting::BillHead open_head(std::int32_t nBillID, std::string_view sAction);
  void refuse_advance_overdraw(const posting::BillHead& head, std::string_view sAction, bool bCheck);
  void refuse_used_bill(const posting::BillHead& head, std::string_view sAction);
  void refuse_over_settling(std::int32_t nBillID, std::string_view sAction, bool bCheck);
  void refuse_bad_source(std::string_view sCheckSql, std::int32_t nBillID, std::string_view sAction);
  void post_sources(std::int32_t nBillID, bool bCheck);
  std::string sql(std::string_view sTemplate) const { return side_sql(tables_, sTemplate); }

  Database& database_;
  const SettlementTables& tables_;
  LockLost lock_lost_;
};

}  // namespace desk

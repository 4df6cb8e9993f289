#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "services/other_tables.h"
#include "services/posting.h"

namespace desk {

/// A kind of bill that the desk can open.
struct BillKind {
  std::string_view sWord;      // as scenarios and lists say it
  std::string_view sTemplate;  // of the shipped templates
  std::int32_t nClass;
  const SettlementTables& side;
  const OtherTables* other;  // nullptr for a settlement bill
};

/// Receipt, payment, other receivable and other payable bill.
std::span<const BillKind> bill_kinds();
/// nullptr when there is none.
const BillKind* find_bill_kind(std::string_view sWord);
const BillKind* find_bill_kind(std::int32_t nClass);

/// Checks, unchecks and deletes the bills of a kind, which is one of bill_kinds(). The database outlives it.
std::unique_ptr<BillPosting> make_posting(Database& database, const BillKind& kind,
                                          BillPosting::LockLost lock_lost = {});

}  // namespace desk

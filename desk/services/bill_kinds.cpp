#include "services/bill_kinds.h"

#include <algorithm>
#include <array>

#include "services/other_posting.h"
#include "services/settlement_posting.h"

namespace desk {

namespace {

constexpr std::array<BillKind, 4> kKinds{{
    {"receipt", "receipt", kReceiptTables.nClass, kReceiptTables, nullptr},
    {"payment", "payment", kPaymentTables.nClass, kPaymentTables, nullptr},
    {"receivable", "other_receivable", kOtherReceivableTables.nClass, kReceiptTables, &kOtherReceivableTables},
    {"payable", "other_payable", kOtherPayableTables.nClass, kPaymentTables, &kOtherPayableTables},
}};

template <class Wanted>
const BillKind* find_kind(Wanted wanted) {
  const auto found = std::find_if(kKinds.begin(), kKinds.end(), wanted);
  return found == kKinds.end() ? nullptr : &*found;
}

}  // namespace

std::span<const BillKind> bill_kinds() { return kKinds; }

const BillKind* find_bill_kind(std::string_view sWord) {
  return find_kind([sWord](const BillKind& kind) { return kind.sWord == sWord; });
}

const BillKind* find_bill_kind(std::int32_t nClass) {
  return find_kind([nClass](const BillKind& kind) { return kind.nClass == nClass; });
}

std::unique_ptr<BillPosting> make_posting(Database& database, const BillKind& kind, BillPosting::LockLost lock_lost) {
  if (kind.other != nullptr) return std::make_unique<OtherPosting>(database, *kind.other, std::move(lock_lost));
  return std::make_unique<SettlementPosting>(database, kind.side, std::move(lock_lost));
}

}  // namespace desk

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "services/settlement_tables.h"

namespace desk {

struct VoucherLine {
  std::int32_t nAccount;
  VoucherSide side;
  Money amountFor;
  Money amount;
};

/// The bill that a voucher is made of.
struct VoucherBill {
  std::int32_t nClass;
  std::int32_t nBillID;
  std::string_view sBillName;
  std::string_view sTable;  // of its head
};

/// Raises DeskError for a bill that isn't there, isn't checked, has a voucher, or lacks its settlement account.
void refuse_voucher(const Rows& head);

/// Stores the voucher, names it in the bill and answers its id. The caller holds the transaction.
std::int32_t store_voucher(Database& database, const VoucherBill& bill, const Rows& head,
                           const std::vector<VoucherLine>& lines);

}  // namespace desk

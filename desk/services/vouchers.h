#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "services/other_tables.h"
#include "services/session.h"

namespace desk {

/// Makes the voucher of a checked settlement bill, in one transaction, and answers its id: the money on the settlement
/// account and the discount on the discount account against the partner's balance. Raises DeskError for a bill that
/// isn't checked, has a voucher, or lacks an account.
std::int32_t make_voucher(Session& session, const SettlementTables& tables, std::int32_t nBillID);

/// The same for an other bill: the settlement account against the account of each row's type. Raises DeskError for a
/// type without an account too.
std::int32_t make_voucher(Session& session, const OtherTables& tables, std::int32_t nBillID);

/// A line of a voucher, its amount in base currency.
struct VoucherEntry {
  std::string sAccount;  // its number; "" with the name when the account has gone
  std::string sAccountName;
  bool bDebit;
  Money amount;
};
/// A voucher as it stands in the book, with the totals of its two sides.
struct Voucher {
  std::int32_t nNumber;
  std::string sDate;
  std::string sExplanation;
  std::vector<VoucherEntry> aEntries;
  Money debit;
  Money credit;
};

/// Empty when there is no such voucher.
std::optional<Voucher> read_voucher(Database& database, std::int32_t nVoucherID);

/// A voucher as lines of text: its head, a line an entry, the totals. "" when there is no such voucher.
std::string voucher_text(Database& database, std::int32_t nVoucherID);

}  // namespace desk

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "data/database.h"

namespace desk {

/// How an operation on a bill ended. A refusal changed nothing and says why.
struct PostingResult {
  bool bDone = false;
  std::string sRefusal;
  std::string sBillNo;
};

/// What can be done to the stored bills of one kind. Every operation is one write transaction and reads what it decides
/// on inside it, so that two seats can't act on the same state.
class BillPosting {
 public:
  /// True when the seat's own lock on a bill is gone. Asked inside the transaction; such a bill is refused.
  using LockLost = std::function<bool(std::int32_t nBillID)>;

  BillPosting() = default;
  virtual ~BillPosting() = default;
  BillPosting(const BillPosting&) = delete;
  BillPosting& operator=(const BillPosting&) = delete;

  virtual PostingResult check(std::int32_t nBillID, const std::string& sUser) = 0;
  virtual PostingResult uncheck(std::int32_t nBillID) = 0;
  /// Deletes a bill that isn't checked, with its rows.
  virtual PostingResult remove(std::int32_t nBillID) = 0;
};

/// What the postings share.
namespace posting {

/// A refusal on its way out of the transaction, which it rolls back.
struct Refusal {
  std::string sText;
};

inline constexpr std::string_view kCheck = "审核";
inline constexpr std::string_view kUncheck = "反审核";
inline constexpr std::string_view kDelete = "删除";

[[noreturn]] inline void refuse(std::string_view sReason, std::string_view sAction) {
  throw Refusal{std::string(sReason) + "," + std::string(sAction) + "失败。"};
}

/// Where the heads of one kind of bill stand, and what the user calls the bill.
struct BillPlace {
  std::string_view sTable;
  std::string_view sBillName;
  std::string sColumns;  // that its posting asks for, as a list of the SELECT
};

/// The head of a bill that an action is about to be done to.
struct BillHead {
  std::int32_t nBillID = 0;
  std::string sBillNo;
  std::int32_t nVoucher = 0;
  Rows row;  // one row, with the columns that were asked for
};

/// Reads the head of a bill. Refuses the action for a bill that isn't there, for one that the seat has lost its lock
/// on, and for one in the wrong state: only a checked bill is unchecked, only one that isn't checked is checked or
/// deleted.
BillHead open_head(Database& database, const BillPlace& place, std::int32_t nBillID, std::string_view sAction,
                   const BillPosting::LockLost& lock_lost);

/// Refuses the action for a bill that has a voucher.
void refuse_with_voucher(const BillHead& head, std::string_view sAction);
/// Refuses the action because something was settled of the bill.
[[noreturn]] void refuse_as_settled(const BillHead& head, std::string_view sAction);

/// The day of a check, yyyy-mm-dd by this machine's clock.
std::string check_date();

template <class Work>
PostingResult in_transaction(Database& database, Work&& work) {
  try {
    Transaction transaction(database);
    PostingResult result = std::forward<Work>(work)();
    transaction.commit();
    return result;
  } catch (const Refusal& refusal) {
    return {false, refusal.sText, {}};
  }
}

}  // namespace posting

}  // namespace desk

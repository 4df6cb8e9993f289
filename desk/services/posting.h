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

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "engine/record_store.h"

namespace desk {

class BillTemplate;

/// Whether something that the user asked for was done, and if not, why, in words for the user. A refusal that the
/// plug-in has told by a box of its own has no reason here.
struct Outcome {
  bool bDone = true;
  std::string sReason;

  static Outcome done() { return {}; }
  static Outcome refused(std::string sWhy) { return {false, std::move(sWhy)}; }
  explicit operator bool() const { return bDone; }
};

/// The source rows that a selection offers, in the order of the list.
class SourceList {
 public:
  SourceList(const Rows& rows, std::int32_t nType) : rows_(rows), type_(nType) {}
  std::size_t size() const { return rows_.size(); }
  std::int32_t type() const { return type_; }
  bool has_column(std::string_view sColumn) const { return rows_.find_column(sColumn) >= 0; }
  /// A value as the user sees it: amounts in units of the currency. Empty for a column that the view lacks.
  Value value(std::size_t nRow, std::string_view sColumn) const;
  std::string text(std::size_t nRow, std::string_view sColumn) const;

 private:
  const Rows& rows_;
  std::int32_t type_;
};

/// Picks rows of a selection (0-based); none closes it without a choice.
using SourceChooser = std::function<std::vector<std::size_t>(const SourceList&)>;
SourceChooser choose_all();
SourceChooser choose_where(std::function<bool(const SourceList&, std::size_t)> wanted);

/// What a bill window needs of its surroundings. The database outlives the window.
struct Host {
  explicit Host(Database& book) : database(book) {}

  Database& database;
  SourceChooser choose_sources;
  /// Takes the edit lock of a bill for this user; without one every bill can be locked.
  std::function<bool(std::int32_t nClassType, std::int32_t nBillID)> take_edit_lock;
  std::function<void(std::int32_t nClassType, std::int32_t nBillID)> give_edit_lock;
  /// True when the edit lock that was taken is gone; asked in the transaction that stores the bill.
  std::function<bool(std::int32_t nClassType, std::int32_t nBillID)> lost_edit_lock;
  /// What keeps the records of the window; without one they are bills, and BillStore keeps them.
  std::function<std::unique_ptr<RecordStore>(const BillTemplate&)> make_store;
  /// Told after each store, until the window closes.
  std::function<void()> stored;
  /// Deletes a stored bill; without one no bill can be deleted from its window.
  std::function<Outcome(std::int32_t nClassType, std::int32_t nBillID)> delete_bill;
  /// yyyy-mm-dd of a new bill, and who makes it.
  std::string sToday;
  std::string sUser;
};

}  // namespace desk

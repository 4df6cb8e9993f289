#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/bill_template.h"
#include "engine/plugin_list.h"

namespace desk {

/// What a list is opened for: the number is the ShowMode that the plug-in reads.
enum class ListMode : std::int32_t { Manage = 0, Selection = 3 };

/// A list of bills without a window: one line an entry, so that a bill of several entries has several lines that follow
/// each other.
class ListWindow final : public PluginList {
 public:
  /// The database outlives the window.
  ListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode);

  /// Selects every line of these bills, in the order of the list.
  void select_bills(const std::vector<std::int32_t>& aBills);

  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 protected:
  Rows read_lines() override;
  std::optional<arap::Variant> data_call(arap::Member member, arap::Arguments args) override;

 private:
  friend class ListFormObject;

  std::string columns_of(std::int32_t nPage, std::initializer_list<std::string_view> aColumns) const;
  std::string from_bills() const;
  /// The entries of one bill with the head's status, date, voucher and settled amount.
  Rows bill_detail(std::int32_t nBillID);

  std::shared_ptr<const BillTemplate> template_;
  ListMode mode_;
};

using OpenListWindow = OpenWindow<ListWindow>;

/// Opens the list of a shipped template's bills with the plug-in's own class behind it.
OpenListWindow open_list_window(Database& database, std::shared_ptr<const BillTemplate> bill,
                                ListMode mode = ListMode::Manage);

}  // namespace desk

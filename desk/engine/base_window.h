#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/base_data.h"
#include "engine/bill_window.h"
#include "engine/plugin_window.h"

namespace desk {

/// What has the focus in a base-data window.
enum class BaseControl : std::uint8_t { None, Tree, Grid };

/// A window of base data without a window: a tree of nodes, and a grid of the records under the selected one. Towards
/// the plug-in it is the "BaseClassEvent" object; views, the command line and tests use the members below. It is opened
/// by its owner, see OpenWindow. A record is edited in a small bill, which belongs to this window and talks to the
/// same plug-in.
class BaseWindow final : public PluginWindow {
 public:
  /// `host` is the surroundings of the small bill.
  BaseWindow(std::shared_ptr<BaseData> data, Host host, std::shared_ptr<const BillTemplate> bill);

  // --- the user ---------------------------------------------------------------------------------------------------

  /// Reads the records anew. The selected node and the current record stay while they are there.
  void refresh() override;
  /// Selects a node of the tree, which gets the focus; no record is current then. False when there is no such node.
  bool select_node(std::int32_t nNode);
  /// Makes a record of the grid the current one; the grid gets the focus. False when the grid doesn't show it.
  bool select_item(std::int32_t nID);
  void focus(BaseControl control) { active_ = control; }
  /// Who is asked before a record is deleted that the plug-in lets go; without one nobody is.
  void ask_before_delete(std::function<bool(const BaseItem&)> ask) { may_delete_ = std::move(ask); }

  // --- what can be seen -------------------------------------------------------------------------------------------

  /// All nodes below the root, in the order of their numbers.
  const std::vector<BaseItem>& nodes() const { return nodes_; }
  /// The records right under the selected node.
  const std::vector<BaseItem>& grid() const { return grid_; }
  std::int32_t root() const { return root_; }
  std::string root_name() const { return data_->root_name(); }
  std::int32_t selected_node() const { return selected_node_; }
  /// 0 when no record is current.
  std::int32_t current_item() const { return current_item_; }
  BaseControl active() const { return active_; }
  /// nullptr for an id that isn't there.
  const BaseItem* find(std::int32_t nID) const;
  const BaseItem* find_number(std::string_view sNumber) const;
  /// The small bill; nullptr when none is open.
  BillWindow* bill() const { return bill_ && !bill_->closed() ? bill_.get() : nullptr; }
  void close_bill() { bill_.reset(); }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  std::string type_name() const override { return "BaseClassEvent"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

 protected:
  Outcome run_host_command(const std::string& sTool) override;
  /// What the plug-in stops, it has told.
  Outcome cancelled() const override { return Outcome::refused({}); }
  void let_go() override { bill_.reset(); }

 private:
  friend class OpenWindow<BaseWindow>;

  void open(const arap::Ref<arap::Object>& oPlugin);
  void read_grid();
  std::int32_t branch_of(std::int32_t nNode) const;
  Outcome run_on_item(std::string_view sTool, const BaseItem& item);
  void open_bill(std::int32_t nBranch);
  Outcome new_item();
  Outcome modify_item(const BaseItem& item);
  arap::Ref<arap::Object> active_control() const;

  std::shared_ptr<BaseData> data_;
  Host host_;
  std::shared_ptr<const BillTemplate> template_;
  OpenBillWindow bill_;
  std::function<bool(const BaseItem&)> may_delete_;
  std::vector<BaseItem> nodes_;
  std::vector<BaseItem> grid_;
  std::int32_t root_ = 0;
  std::int32_t selected_node_ = 0;
  std::int32_t current_item_ = 0;
  BaseControl active_ = BaseControl::None;
};

using OpenBaseWindow = OpenWindow<BaseWindow>;

OpenBaseWindow open_base_window(std::shared_ptr<BaseData> data, Host host, std::shared_ptr<const BillTemplate> bill,
                                const arap::Ref<arap::Object>& oPlugin);

}  // namespace desk

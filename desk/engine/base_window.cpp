#include "engine/base_window.h"

#include <algorithm>
#include <array>

#include "data/automation_names.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;

namespace {

/// A control of the window, as ActiveControl: the rules read its name and nothing else.
class ControlObject final : public arap::Object {
 public:
  explicit ControlObject(std::string_view sName) : name_(sName) {}
  std::string type_name() const override { return "Control"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    if (member != Member::Name) no_such_member(member);
    return name_;
  }

 private:
  std::string name_;
};

/// What the desk serves of the window's commands.
constexpr ShippedTool kBaseTools[] = {
    {"mnuFileNewItem", "新增"}, {"mnuEditModify", "修改"},       {"mnuEditDel", "删除"},    {"mnuEditUse", "反禁用"},
    {"mnuEditUnuse", "禁用"},   {"mnuDataFind", "查找"},         {"mnuDataRefesh", "刷新"}, {"mnuExportData", "引出"},
    {"mnuFilePrint", "打印"},   {"mnuFilePrintPreview", "预览"}, {"mnuHelpDetail", "帮助"}, {"mnuFileExit", "退出"},
};

/// The bar of every base-data window of the desk.
const std::vector<ShippedBand>& base_bands() {
  static const std::vector<ShippedBand> kBands{
      {"BandToolBar",
       "工具栏",
       {"mnuFileNewItem", "mnuFileNewGroup", "mnuEditModify", "mnuEditDel", "mnuEditUnuse", "mnuEditUse", "mnuDataFind",
        "mnuDataRefesh", "mnuFilePrint", "mnuFilePrintPreview", "mnuHelpDetail", "mnuFileExit"}},
      {"mnuFile",
       "文件",
       {"mnuFileNewItem", "mnuFileNewGroup", "mnuFilePageSetup", "mnuPreHeadFoot", "mnuFilePrint",
        "mnuFilePrintPreview", "mnuExportData", "mnuFileExit"}},
      {"mnuEdit", "编辑", {"mnuEditModify", "mnuEditDel", "mnuEditDelGroup", "mnuEditUnuse", "mnuEditUse"}},
      {"mnuData", "数据", {"mnuDataFind", "mnuDataRefesh"}},
      {"mnuView", "查看", {"mnuViewToolBar", "mnuViewToolCaption"}},
      {"mnuCust", "自定义", {"mnuOption", "mnuHelpDetail"}},
  };
  return kBands;
}

}  // namespace

BaseWindow::BaseWindow(std::shared_ptr<BaseData> data, Host host, std::shared_ptr<const BillTemplate> bill)
    : PluginWindow(base_bands(), kBaseTools),
      data_(std::move(data)),
      host_(std::move(host)),
      template_(std::move(bill)),
      root_(data_->root()),
      selected_node_(root_) {}

void BaseWindow::open(const Ref<arap::Object>& oPlugin) {
  nodes_ = data_->items();
  bind(oPlugin);
  select_node(root_);
}

void BaseWindow::refresh() {
  nodes_ = data_->items();
  // A node that went away leaves the selection to the root.
  if (selected_node_ != root_ && find(selected_node_) == nullptr) {
    select_node(root_);
    return;
  }
  read_grid();
  fire(Event::AfterGetData, {});
}

void BaseWindow::read_grid() {
  grid_.clear();
  for (const BaseItem& item : nodes_) {
    if (item.nParent == selected_node_) grid_.push_back(item);
  }
  const bool bShown = std::ranges::any_of(grid_, [this](const BaseItem& item) { return item.nID == current_item_; });
  if (!bShown) current_item_ = 0;
  count_refresh();
}

bool BaseWindow::select_node(std::int32_t nNode) {
  const BaseItem* pNode = find(nNode);
  if (pNode == nullptr && nNode != root_) return false;
  selected_node_ = nNode;
  current_item_ = 0;
  active_ = BaseControl::Tree;
  // The node above, the level, the branch, the node itself and its text.
  std::array<Variant, 5> args{
      pNode == nullptr ? std::int32_t{0} : pNode->nParent, pNode == nullptr ? std::int32_t{0} : pNode->nLevel,
      pNode == nullptr ? std::int32_t{0} : pNode->nBranch, nNode, pNode == nullptr ? data_->root_name() : pNode->sName};
  fire(Event::ClassGroupSelected, args);
  read_grid();
  fire(Event::AfterGetData, {});
  return true;
}

bool BaseWindow::select_item(std::int32_t nID) {
  if (!std::ranges::any_of(grid_, [nID](const BaseItem& item) { return item.nID == nID; })) return false;
  current_item_ = nID;
  active_ = BaseControl::Grid;
  return true;
}

const BaseItem* BaseWindow::find(std::int32_t nID) const {
  const auto found = std::ranges::find_if(nodes_, [nID](const BaseItem& item) { return item.nID == nID; });
  return found == nodes_.end() ? nullptr : &*found;
}

const BaseItem* BaseWindow::find_number(std::string_view sNumber) const {
  const auto found = std::ranges::find_if(nodes_, [sNumber](const BaseItem& item) { return item.sNumber == sNumber; });
  return found == nodes_.end() ? nullptr : &*found;
}

std::int32_t BaseWindow::branch_of(std::int32_t nNode) const {
  const BaseItem* pNode = find(nNode);
  return pNode == nullptr ? 0 : pNode->nBranch;
}

Outcome BaseWindow::run_host_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuFileNewItem")) return new_item();
  for (const std::string_view sOnItem : {"mnuEditModify", "mnuEditDel", "mnuEditUse", "mnuEditUnuse"}) {
    if (!arap::EqualsNoCase(sTool, sOnItem)) continue;
    const BaseItem* pItem = find(current_item_);
    return pItem == nullptr ? Outcome::refused("请先在列表中选择一条资料。") : run_on_item(sOnItem, BaseItem(*pItem));
  }
  return PluginWindow::run_host_command(sTool);
}

Outcome BaseWindow::run_on_item(std::string_view sTool, const BaseItem& item) {
  if (sTool == "mnuEditModify") return modify_item(item);
  if (sTool == "mnuEditDel") {
    if (may_delete_ && !may_delete_(item)) return Outcome::refused({});
    data_->remove(item.nID);
  }
  if (sTool == "mnuEditUse") data_->set_discontinued(item.nID, false);
  if (sTool == "mnuEditUnuse") data_->set_discontinued(item.nID, true);
  refresh();
  return Outcome::done();
}

/// A new small bill for each command: the rules begin anew with it.
void BaseWindow::open_bill(std::int32_t nBranch) {
  bill_.reset();
  Host host = host_;
  host.make_store = [data = data_, nBranch](const BillTemplate& bill) { return data->store(bill, nBranch); };
  host.stored = [this] { refresh(); };
  bill_ = open_bill_window(std::move(host), template_, plugin());
  bill_->set_filter("FilterString", data_->filter(nBranch));
}

Outcome BaseWindow::new_item() {
  open_bill(branch_of(selected_node_));
  bill_->new_bill();
  return Outcome::done();
}

Outcome BaseWindow::modify_item(const BaseItem& item) {
  open_bill(item.nBranch);
  if (bill_->load_bill(item.nID)) return Outcome::done();
  bill_.reset();
  return Outcome::refused("资料已被其他用户删除，请刷新。");
}

Ref<arap::Object> BaseWindow::active_control() const {
  switch (active_) {
    case BaseControl::None: return {};
    case BaseControl::Tree: return arap::make_object<ControlObject>("tree");
    case BaseControl::Grid: return arap::make_object<ControlObject>("grid");
  }
  return {};
}

Variant BaseWindow::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::SetRootNode:
      root_ = arap::LongOf(argument(args, 0));
      selected_node_ = root_;
      return {};
    case Member::SelectedNodeID: return selected_node_;
    case Member::CurrentItemID: return current_item_;
    case Member::ActiveControl: return active_control();
    // Only the grid: the plug-in asks for it when the data have come.
    case Member::RefreshItems: read_grid(); return {};
    case Member::BarControl: return bar_object();
    default: no_such_member(member);
  }
}

OpenBaseWindow open_base_window(std::shared_ptr<BaseData> data, Host host, std::shared_ptr<const BillTemplate> bill,
                                const Ref<arap::Object>& oPlugin) {
  return {arap::make_object<BaseWindow>(std::move(data), std::move(host), std::move(bill)), oPlugin};
}

}  // namespace desk

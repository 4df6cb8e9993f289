#include "engine/bill_window.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;
using arap::Ref;

namespace {
constexpr std::string_view kSelectPrefix = "mnuSelectBill_";
}

Outcome BillWindow::press(std::string_view sTool) {
  const Ref<BarTool> tool(bar_->find_tool(sTool));
  const std::string sName = tool && !tool->sCaption.empty() ? tool->sCaption : std::string(sTool);
  if (!tool) return Outcome::refused("没有命令“" + sName + "”。");
  if (!tool->bVisible) return Outcome::refused("命令“" + sName + "”现在不可见。");
  if (!tool->bEnabled) return Outcome::refused("命令“" + sName + "”现在不可用。");
  save_reason_.clear();
  try {
    const bool bCancel = fire_cancelled(Event::MenuBarClick, {Ref<arap::Object>(tool.get())});
    batch_ = false;  // the plug-in switches the batch on and leaves the end of it to the host
    // Cancel only says that the plug-in has dealt with the command itself.
    return bCancel ? Outcome::done() : run_host_command(*tool);
  } catch (const arap::AutomationError& error) {
    batch_ = false;
    return Outcome::refused(error.description());
  }
}

Outcome BillWindow::run_host_command(BarTool& tool) {
  if (arap::EqualsNoCase(tool.sName, "mnuFileSave")) return save();
  if (arap::EqualsNoCase(tool.sName, "mnuFileNew")) {
    new_bill();
  } else if (arap::EqualsNoCase(tool.sName, "mnuDataPre")) {
    return go_to_neighbour(RecordStore::Direction::Previous);
  } else if (arap::EqualsNoCase(tool.sName, "mnuDataNext")) {
    return go_to_neighbour(RecordStore::Direction::Next);
  } else if (arap::EqualsNoCase(tool.sName, "mnuFileExit")) {
    close();
  } else if (arap::EqualsNoCase(tool.sName, "mnuEditDelete")) {
    return delete_bill();
  } else if (arap::EqualsNoCase(tool.sName, "mnuEditDelRow")) {
    return delete_active_row();
  } else if (arap::EqualsNoCase(tool.sName, "mnuEditAddRow")) {
    body_->add_row();
  } else if (tool.sName.starts_with(kSelectPrefix)) {
    const std::int32_t nType = tool.selection_type();
    return select_sources(nType != 0 ? nType : arap::LongOf(std::string_view(tool.sName).substr(kSelectPrefix.size())));
  }
  return Outcome::done();
}

/// What isn't saved is given up: to ask about it is the view's.
Outcome BillWindow::go_to_neighbour(RecordStore::Direction direction) {
  const std::int32_t nBillID = store_->neighbour(bill_id_, direction);
  if (nBillID == 0) {
    return Outcome::refused(direction == RecordStore::Direction::Previous ? "前面没有单据了。" : "后面没有单据了。");
  }
  return load_bill(nBillID) ? Outcome::done() : Outcome::refused("单据不存在，可能已被删除。");
}

/// A new bill takes the place of the deleted one. One that was never stored just goes away.
Outcome BillWindow::delete_bill() {
  if (mode_ == EditMode::ReadOnly) return Outcome::refused("单据以只读方式打开，不能删除。");
  if (bill_id_ != 0) {
    if (!host_.delete_bill) return Outcome::refused("这里不能删除单据。");
    if (Outcome deleted = host_.delete_bill(template_->nClassType, bill_id_); !deleted) return deleted;
  }
  new_bill();
  return Outcome::done();
}

Outcome BillWindow::delete_active_row() {
  if (body_->row(active_row_) == nullptr) return Outcome::refused("请先选中要删除的行。");
  body_->remove(active_row_);
  active_row_ = std::min(active_row_, static_cast<std::int32_t>(body_->size()));
  if (active_row_ == 0) active_field_ = BillTemplate::kNone;
  return Outcome::done();
}

}  // namespace desk

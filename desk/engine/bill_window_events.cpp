#include <array>

#include "data/trace.h"
#include "engine/bill_window.h"
#include "frame/conversions.h"

namespace desk {

using arap::Event;
using arap::Variant;

void BillWindow::fire(Event event, arap::Arguments args) {
  trace_event(event, args);
  events_.fire(event, args);
}

bool BillWindow::fire_cancelled(Event event, std::vector<Variant> aArgs) {
  aArgs.emplace_back(false);
  fire(event, aArgs);
  return arap::ToBoolean(aArgs.back());
}

Outcome BillWindow::save() {
  save_reason_.clear();
  try {
    if (save_bill()) return Outcome::done();
  } catch (const arap::AutomationError& error) {
    return Outcome::refused(error.description());
  }
  return Outcome::refused(save_reason_);
}

/// The save command: tests, store, reload. An error of the tests passes to whoever saves.
bool BillWindow::save_bill() {
  if (mode_ == EditMode::ReadOnly) {
    save_reason_ = "单据以只读方式打开，不能保存。";
    return false;
  }
  if (refuses_save()) return false;
  // The plug-in has written what there was to write.
  if (std::exchange(not_save_, false)) return true;
  return store_bill();
}

/// The rules ask the book about every row.
bool BillWindow::refuses_save() {
  const ReadView view(host_.database);
  return fire_cancelled(Event::BeforeSave, {});
}

/// Whoever lost the lock has lost the right to write: another seat may be at the bill.
void BillWindow::refuse_lost_lock() const {
  if (bill_id_ == 0 || !host_.lost_edit_lock || !host_.lost_edit_lock(template_->nClassType, bill_id_)) return;
  throw DeskError(ErrorKind::Locked, "单据的锁定已失效，不能保存。", template_->page(1).sTable, "请重新打开单据。");
}

bool BillWindow::store_bill() {
  RecordStore::Stored stored;
  try {
    stored = store_->save(*head_, *body_, bill_id_, [this] { refuse_lost_lock(); });
  } catch (const DeskError& error) {
    save_reason_ = error.problem();
    if (!error.hint().empty()) save_reason_ += " " + error.hint();
    trace(TraceObserver::Kind::Message, save_reason_);
    std::array<Variant, 3> args{arap::make_object<HostDictionary>(), std::int32_t{0}, save_reason_};
    fire(Event::SaveBillFailed, args);
    return false;
  }
  if (bill_id_ == 0) edit_lock_ = false;  // the lock of a new bill was nobody's
  bill_id_ = stored.nBillID;
  // A bill has its id in a field of its own, any other record in FID.
  const std::size_t nIdField = template_->find_key("FBillID");
  head_->put(template_->field(nIdField != BillTemplate::kNone ? nIdField : template_->find_key("FID")).nPosition,
             stored.nBillID);
  Variant aIgnored[] = {stored.nBillID};
  fire(Event::AfterSave, aIgnored);
  if (host_.stored) host_.stored();
  return load_bill(stored.nBillID);
}

}  // namespace desk

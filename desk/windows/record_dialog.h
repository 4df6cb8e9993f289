#pragma once

#include <QDialog>

#include "windows/bill_view.h"

namespace desk {

/// The small window of one record of base data, over a bill window that somebody else owns. It closes with it.
class RecordDialog final : public QDialog {
  Q_OBJECT
 public:
  /// The bill window outlives the dialog.
  RecordDialog(DeskSeat& seat, BillWindow& window, QWidget* pParent);

  BillView& bill() { return *view_; }
  /// Asks about unsaved changes first.
  void reject() override { view_->press("mnuFileExit"); }

 Q_SIGNALS:
  /// The record may have been stored.
  void stored();

 private:
  BillView* view_;
};

}  // namespace desk

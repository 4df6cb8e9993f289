#include "windows/record_dialog.h"

#include <QVBoxLayout>

namespace desk {

RecordDialog::RecordDialog(DeskSeat& seat, BillWindow& window, QWidget* pParent)
    : QDialog(pParent), view_(new BillView(seat, window, this)) {
  setObjectName(QStringLiteral("record"));
  resize(820, 170);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->addWidget(view_);
  connect(view_, &BillView::title_changed, this, &QDialog::setWindowTitle);
  connect(view_, &BillView::stored, this, &RecordDialog::stored);
  connect(view_, &BillView::closed, this, &QDialog::accept);
  view_->retranslate();
  view_->focus_first_field();
}

}  // namespace desk

#pragma once

#include <QDialog>

#include "services/vouchers.h"

namespace desk {

/// A voucher to look at: an entry a line, debit and credit in columns of their own, the totals below.
class VoucherDialog final : public QDialog {
  Q_OBJECT
 public:
  VoucherDialog(const Voucher& voucher, QWidget* pParent);
};

}  // namespace desk

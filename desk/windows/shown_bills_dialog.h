#pragma once

#include <QDialog>

#include "services/session.h"

class QTableWidget;

namespace desk {

/// The bill list window: bills as a command has handed them over, with the names behind their ids.
class ShownBillsDialog final : public QDialog {
  Q_OBJECT
 public:
  ShownBillsDialog(Database& database, const ShownBills& bills, QWidget* pParent);

  QTableWidget& table() { return *table_; }

 private:
  void add_columns(Database& database, const ShownBills& bills);

  QTableWidget* table_;
};

}  // namespace desk

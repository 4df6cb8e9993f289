#pragma once

#include <QDialog>
#include <QStringList>

class QTableWidget;

namespace desk {

/// The result window of a batch: a line a bill, those that didn't succeed in red. It can be left as a file.
class ResultDialog final : public QDialog {
  Q_OBJECT
 public:
  ResultDialog(const QStringList& lines, QWidget* pParent);

  /// The lines as CSV; false when the file can't be written.
  bool export_to(const QString& sPath) const;

 private:
  void add_lines(const QStringList& lines);
  void ask_and_export();

  QTableWidget* table_;
};

}  // namespace desk

#pragma once

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;

namespace desk {

/// How far a batch has come. It can't be given up half-way: while it is there, it takes every key and click, and the
/// windows behind it only repaint.
class BatchProgress final : public QDialog {
  Q_OBJECT
 public:
  BatchProgress(const QString& sCommand, int nBills, QWidget* pParent);

  /// One more bill is done. Lets the windows repaint now and then.
  void step();

  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* pEvent) override;

 private:
  void show_state();

  QString command_;
  int bills_;
  int done_ = 0;
  QLabel* text_;
  QProgressBar* bar_;
  QElapsedTimer since_paint_;
};

}  // namespace desk

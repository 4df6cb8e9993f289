#include "windows/batch_progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "windows/captions.h"

namespace desk {

namespace {
constexpr int kWidth = 360;
constexpr qint64 kMillisecondsBetweenPaints = 50;
}  // namespace

BatchProgress::BatchProgress(const QString& sCommand, int nBills, QWidget* pParent)
    : QDialog(pParent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      command_(sCommand),
      bills_(nBills),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setObjectName(QStringLiteral("progress"));
  setWindowTitle(words("正在执行：%1").arg(sCommand));
  setModal(true);
  setMinimumWidth(kWidth);
  bar_->setRange(0, nBills);
  auto* pLayout = new QVBoxLayout(this);
  pLayout->addWidget(text_);
  pLayout->addWidget(bar_);
  show_state();
  show();
}

void BatchProgress::step() {
  ++done_;
  if (since_paint_.isValid() && since_paint_.elapsed() < kMillisecondsBetweenPaints && done_ < bills_) return;
  show_state();
  QApplication::processEvents();
  since_paint_.start();
}

void BatchProgress::show_state() {
  text_->setText(words("%1：第%2张，共%3张").arg(command_).arg(done_).arg(bills_));
  bar_->setValue(done_);
}

void BatchProgress::closeEvent(QCloseEvent* pEvent) { pEvent->ignore(); }

}  // namespace desk

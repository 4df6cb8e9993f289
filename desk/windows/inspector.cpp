#include "windows/inspector.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "windows/captions.h"

namespace desk {

namespace {

QColor colour_of(TraceObserver::Kind kind) {
  switch (kind) {
    case TraceObserver::Kind::Event: return {0x10, 0x40, 0x90};
    case TraceObserver::Kind::Sql:
    case TraceObserver::Kind::Translation: return {0x20, 0x70, 0x30};
    case TraceObserver::Kind::Message: return {0xB0, 0x30, 0x10};
    default: return {0x40, 0x40, 0x40};
  }
}

QTreeWidgetItem* new_line(const LoggedLine& line) {
  auto* pItem = new QTreeWidgetItem({line.sText, QString::number(line.dMilliseconds, 'f', 2)});
  pItem->setForeground(0, colour_of(line.kind));
  pItem->setTextAlignment(1, Qt::AlignRight);
  return pItem;
}

/// An item stays in view when it or one below it holds the text.
bool narrow_item(QTreeWidgetItem& item, const QString& sText) {
  bool bSeen = item.text(0).contains(sText, Qt::CaseInsensitive);
  for (int i = 0; i < item.childCount(); ++i) bSeen = narrow_item(*item.child(i), sText) || bSeen;
  item.setHidden(!bSeen);
  return bSeen;
}

void append_text(const QTreeWidgetItem& item, int nDepth, QString& sText) {
  if (item.isHidden()) return;
  sText += QString(qsizetype{2} * nDepth, QLatin1Char(' ')) + item.text(0) + QLatin1Char('\n');
  for (int i = 0; i < item.childCount(); ++i) append_text(*item.child(i), nDepth + 1, sText);
}

}  // namespace

Inspector::Inspector(CommandLog& log, QWidget* pParent)
    : QDockWidget(pParent),
      log_(log),
      filter_(new QLineEdit),
      copy_(new QPushButton),
      clear_(new QPushButton),
      tree_(new QTreeWidget) {
  setObjectName(QStringLiteral("inspector"));
  auto* pInside = new QWidget(this);
  auto* pLayout = new QVBoxLayout(pInside);
  auto* pLine = new QHBoxLayout;
  filter_->setClearButtonEnabled(true);
  pLine->addWidget(filter_);
  pLine->addWidget(copy_);
  pLine->addWidget(clear_);
  pLayout->addLayout(pLine);
  pLayout->addWidget(tree_);
  setWidget(pInside);
  retranslate();
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  tree_->setUniformRowHeights(true);
  connect(filter_, &QLineEdit::textChanged, this, &Inspector::narrow);
  connect(copy_, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(text()); });
  connect(clear_, &QPushButton::clicked, &log_, &CommandLog::clear);
  connect(&log_, &CommandLog::changed, this, &Inspector::show_commands);
  // A hidden inspector costs nothing; it catches up when it is shown.
  connect(this, &QDockWidget::visibilityChanged, this, &Inspector::show_commands);
}

void Inspector::retranslate() {
  setWindowTitle(words("检查器"));
  copy_->setText(words("复制"));
  clear_->setText(words("清空"));
  filter_->setPlaceholderText(words("筛选"));
  tree_->setHeaderLabels({words("内容"), words("用时(毫秒)")});
}

void Inspector::show_commands() {
  if (!isVisible()) return;
  tree_->clear();
  std::for_each(log_.commands().rbegin(), log_.commands().rend(),
                [this](const LoggedCommand& command) { add_command(command); });
  if (QTreeWidgetItem* pLast = tree_->topLevelItem(0)) pLast->setExpanded(true);
  narrow();
}

/// What comes behind an event belongs to it, up to the next one.
void Inspector::add_command(const LoggedCommand& command) {
  auto* pCommand = new QTreeWidgetItem({command.sName, QString::number(command.dMilliseconds, 'f', 2)});
  pCommand->setTextAlignment(1, Qt::AlignRight);
  tree_->addTopLevelItem(pCommand);
  QTreeWidgetItem* pEvent = pCommand;
  for (const LoggedLine& line : command.lines) {
    QTreeWidgetItem* pItem = new_line(line);
    const bool bEvent = line.kind == TraceObserver::Kind::Event;
    (bEvent ? pCommand : pEvent)->addChild(pItem);
    if (bEvent) pEvent = pItem;
  }
}

void Inspector::narrow() {
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) narrow_item(*tree_->topLevelItem(i), filter_->text());
}

QString Inspector::text() const {
  QString sText;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) append_text(*tree_->topLevelItem(i), 0, sText);
  return sText;
}

}  // namespace desk

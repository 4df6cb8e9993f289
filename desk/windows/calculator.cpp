#include "windows/calculator.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/captions.h"
#include "windows/qt_text.h"
#include "windows/typed_text.h"

namespace desk {

Calculator::Calculator(bool bCanTake, QWidget* pParent)
    : QDialog(pParent), tape_(new QListWidget(this)), sum_(new QLineEdit(this)), message_(new QLabel(this)) {
  setObjectName(QStringLiteral("calculator"));
  setWindowTitle(words("计算器"));
  resize(320, 300);
  build(bCanTake);
}

void Calculator::build(bool bCanTake) {
  tape_->setFocusPolicy(Qt::ClickFocus);
  sum_->setAlignment(Qt::AlignRight);
  auto* pButtons = new QDialogButtonBox(this);
  QPushButton* pWork = pButtons->addButton(QStringLiteral("="), QDialogButtonBox::ActionRole);
  pWork->setDefault(true);
  connect(pWork, &QPushButton::clicked, this, [this, bCanTake] {
    if (bCanTake && sum_->text().trimmed().isEmpty()) return take();
    work_out();
  });
  if (bCanTake) {
    QPushButton* pTake = pButtons->addButton(words("取用结果"), QDialogButtonBox::ActionRole);
    pTake->setAutoDefault(false);
    connect(pTake, &QPushButton::clicked, this, &Calculator::take);
  }
  pButtons->addButton(words("关闭"), QDialogButtonBox::RejectRole)->setAutoDefault(false);
  connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* pLayout = new QVBoxLayout(this);
  for (QWidget* pPart : {static_cast<QWidget*>(tape_), static_cast<QWidget*>(sum_), static_cast<QWidget*>(message_),
                         static_cast<QWidget*>(pButtons)})
    pLayout->addWidget(pPart);
  sum_->setFocus();
}

bool Calculator::work_out() {
  QString sSum = sum_->text().trimmed();
  if (sSum.isEmpty()) return !result_.isEmpty();
  if (!result_.isEmpty() && QStringLiteral("+-*/").contains(sSum.front())) sSum.prepend(result_);
  const QString sResult = qt(complete_amount(utf8(sSum)));
  bool bNumber = false;
  sResult.toDouble(&bNumber);
  message_->setText(bNumber ? QString() : words("“%1”无法计算。").arg(sSum));
  if (!bNumber) return false;
  result_ = sResult;
  auto* pLine = new QListWidgetItem(sSum + QStringLiteral(" = ") + sResult, tape_);
  pLine->setTextAlignment(Qt::AlignRight);
  tape_->scrollToBottom();
  sum_->clear();
  return true;
}

void Calculator::take() {
  if (work_out()) accept();
}

std::optional<QString> Calculator::run() { return exec() == Accepted ? std::optional(result_) : std::nullopt; }

}  // namespace desk

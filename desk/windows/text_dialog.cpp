#include "windows/text_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/captions.h"

namespace desk {

void show_text(const QString& sTitle, const QString& sText, QWidget* pParent) {
  QDialog dialog(pParent);
  dialog.setObjectName(QStringLiteral("text"));
  dialog.setWindowTitle(sTitle);
  dialog.resize(640, 360);
  auto* pText = new QPlainTextEdit(sText, &dialog);
  pText->setReadOnly(true);
  pText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* pButtons = new QDialogButtonBox(&dialog);
  pButtons->addButton(words("关闭"), QDialogButtonBox::RejectRole);
  QObject::connect(pButtons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* pLayout = new QVBoxLayout(&dialog);
  pLayout->addWidget(pText);
  pLayout->addWidget(pButtons);
  dialog.exec();
}

}  // namespace desk

#include "windows/csv_export.h"

#include <QAbstractItemModel>
#include <QFileDialog>
#include <QMessageBox>
#include <QSaveFile>

#include "windows/captions.h"

namespace desk {

namespace {

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";

QString csv_cell(QString sText) {
  if (!sText.contains(QLatin1Char(',')) && !sText.contains(QLatin1Char('"')) && !sText.contains(QLatin1Char('\n')))
    return sText;
  return QLatin1Char('"') + sText.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

}  // namespace

QString csv_text(const QAbstractItemModel& model) {
  QString sText;
  const auto add_line = [&](auto&& text_of) {
    for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn)
      sText += (nColumn == 0 ? QString() : QStringLiteral(",")) + csv_cell(text_of(nColumn));
    sText += QStringLiteral("\r\n");
  };
  add_line([&](int nColumn) { return model.headerData(nColumn, Qt::Horizontal).toString(); });
  for (int nRow = 0; nRow < model.rowCount(); ++nRow)
    add_line([&](int nColumn) { return model.index(nRow, nColumn).data(Qt::EditRole).toString(); });
  return sText;
}

bool export_csv(const QAbstractItemModel& model, const QString& sPath) {
  QSaveFile file(sPath);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(kUtf8Mark);
  file.write(csv_text(model).toUtf8());
  return file.commit();
}

bool ask_and_export_csv(const QAbstractItemModel& model, const QString& sName, QWidget* pParent) {
  const QString sPath = QFileDialog::getSaveFileName(pParent, words("导出CSV"), sName + QStringLiteral(".csv"),
                                                     QStringLiteral("CSV (*.csv)"));
  if (sPath.isEmpty()) return false;
  if (export_csv(model, sPath)) return true;
  QMessageBox::warning(pParent, words("导出CSV"), words("文件“%1”无法写入。").arg(sPath));
  return false;
}

}  // namespace desk

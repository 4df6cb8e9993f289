#include "windows/printing.h"

#include <QAbstractItemModel>
#include <QFile>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>

#include <vector>

#include "windows/captions.h"

namespace desk {

namespace {

void lay_out(const QString& sHtml, QPagedPaintDevice& device) {
  QTextDocument document;
  document.setHtml(sHtml);
  document.print(&device);
}

void set_page(QPagedPaintDevice& device) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(QPageLayout::Landscape);
}

}  // namespace

void preview_html(const QString& sHtml, QWidget* pParent) {
  QPrinter printer(QPrinter::ScreenResolution);
  set_page(printer);
  QPrintPreviewDialog dialog(&printer, pParent);
  dialog.setObjectName(QStringLiteral("preview"));
  dialog.resize(1000, 720);
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&sHtml](QPrinter* pPrinter) { lay_out(sHtml, *pPrinter); });
  dialog.exec();
}

void print_html(const QString& sHtml, QWidget* pParent) {
  QPrinter printer(QPrinter::HighResolution);
  set_page(printer);
  QPrintDialog dialog(&printer, pParent);
  dialog.setObjectName(QStringLiteral("print"));
  if (dialog.exec() == QDialog::Accepted) lay_out(sHtml, printer);
}

bool export_pdf(const QString& sHtml, const QString& sTitle, const QString& sPath) {
  QFile file(sPath);
  if (!file.open(QIODevice::WriteOnly)) return false;
  QPdfWriter writer(&file);
  set_page(writer);
  writer.setTitle(sTitle);
  lay_out(sHtml, writer);
  return file.error() == QFileDevice::NoError;
}

QString html_cell(const QString& sText, bool bRight, const char* sTag) {
  return QStringLiteral("<%1 align=\"%2\">%3</%1>")
      .arg(QString::fromLatin1(sTag), bRight ? QStringLiteral("right") : QStringLiteral("left"), sText.toHtmlEscaped());
}

QString table_html(const QAbstractItemModel& model, const QStringList& totals) {
  QString sHtml = QStringLiteral("<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\" width=\"100%\"><thead><tr>");
  std::vector<bool> right;
  for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn) {
    const auto header = [&](int nRole) { return model.headerData(nColumn, Qt::Horizontal, nRole); };
    right.push_back((header(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0);
    sHtml += html_cell(header(Qt::DisplayRole).toString(), right.back(), "th");
  }
  sHtml += QStringLiteral("</tr></thead>");
  const auto add_row = [&](auto&& text_of) {
    sHtml += QStringLiteral("<tr>");
    for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn)
      sHtml += html_cell(text_of(nColumn), right[static_cast<std::size_t>(nColumn)]);
    sHtml += QStringLiteral("</tr>");
  };
  for (int nRow = 0; nRow < model.rowCount(); ++nRow)
    add_row([&](int nColumn) { return model.index(nRow, nColumn).data().toString(); });
  if (!totals.isEmpty()) add_row([&](int nColumn) { return totals[nColumn]; });
  return sHtml + QStringLiteral("</table>");
}

QString list_html(const QAbstractItemModel& model, const QString& sTitle) {
  return QStringLiteral("<h2 align=\"center\">%1</h2><p>%2</p>")
             .arg(sTitle.toHtmlEscaped(), words("共%1行").arg(model.rowCount())) +
         table_html(model);
}

}  // namespace desk

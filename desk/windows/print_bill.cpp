#include "windows/print_bill.h"

#include <QFile>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>

#include "windows/body_model.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

constexpr int kFieldsInALine = 3;

QString cell(const QString& sText, bool bRight) {
  return QStringLiteral("<td align=\"%1\">%2</td>")
      .arg(bRight ? QStringLiteral("right") : QStringLiteral("left"), sText.toHtmlEscaped());
}

QString head_html(BillWindow& window) {
  QString sHtml = QStringLiteral("<table width=\"100%\">");
  int nPosition = 0;
  for (const std::size_t nField : window.bill().page(1).aFields) {
    const TemplateField& field = window.bill().field(nField);
    const QString sText = qt(window.shown(field.sKey));
    if (field.sCaption.empty() || !window.state(field.sKey).bVisible || sText.isEmpty()) continue;
    if (nPosition++ % kFieldsInALine == 0) sHtml += QStringLiteral("<tr>");
    sHtml += cell(qt(field.sCaption) + QStringLiteral("："), true) + cell(sText, false);
  }
  return sHtml + QStringLiteral("</table>");
}

QString body_html(BillWindow& window) {
  const BodyModel model(
      window, [](const std::string&, int, const QString&) { return false; }, nullptr);
  QString sHtml = QStringLiteral("<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\" width=\"100%\"><tr>");
  for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn)
    sHtml += QStringLiteral("<th>%1</th>").arg(qt(model.field(nColumn).sCaption).toHtmlEscaped());
  for (int nRow = 0; nRow < model.rowCount(); ++nRow) {
    sHtml += QStringLiteral("</tr><tr>");
    for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn) {
      const TemplateField& field = model.field(nColumn);
      sHtml += cell(model.index(nRow, nColumn).data().toString(), field.is_number() && !field.lookUp);
    }
  }
  sHtml += QStringLiteral("</tr><tr>");
  for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn)
    sHtml += cell(nColumn == 0 ? QStringLiteral("合计") : model.total(nColumn), nColumn != 0);
  return sHtml + QStringLiteral("</tr></table>");
}

void lay_out(BillWindow& window, QPagedPaintDevice& device) {
  QTextDocument document;
  document.setHtml(bill_html(window));
  document.print(&device);
}

void set_page(QPagedPaintDevice& device) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(QPageLayout::Landscape);
}

}  // namespace

QString bill_html(BillWindow& window) {
  return QStringLiteral("<h2 align=\"center\">%1</h2>").arg(qt(window.bill().sCaption).toHtmlEscaped()) +
         head_html(window) + QStringLiteral("<p></p>") + body_html(window);
}

void preview_bill(BillWindow& window, QWidget* pParent) {
  QPrinter printer(QPrinter::ScreenResolution);
  set_page(printer);
  QPrintPreviewDialog dialog(&printer, pParent);
  dialog.setObjectName(QStringLiteral("preview"));
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&window](QPrinter* pPrinter) { lay_out(window, *pPrinter); });
  dialog.exec();
}

void print_bill(BillWindow& window, QWidget* pParent) {
  QPrinter printer(QPrinter::HighResolution);
  set_page(printer);
  QPrintDialog dialog(&printer, pParent);
  if (dialog.exec() == QDialog::Accepted) lay_out(window, printer);
}

bool export_pdf(BillWindow& window, const QString& sPath) {
  QFile file(sPath);
  if (!file.open(QIODevice::WriteOnly)) return false;
  QPdfWriter writer(&file);
  set_page(writer);
  writer.setTitle(qt(window.bill().sCaption) + QStringLiteral(" ") + qt(window.shown("FBillNo")));
  lay_out(window, writer);
  return file.error() == QFileDevice::NoError;
}

}  // namespace desk

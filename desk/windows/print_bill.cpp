#include "windows/print_bill.h"

#include "windows/body_model.h"
#include "windows/captions.h"
#include "windows/printing.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {

constexpr int kFieldsInALine = 3;

QString head_html(BillWindow& window) {
  QString sHtml = QStringLiteral("<table width=\"100%\">");
  int nPosition = 0;
  for (const std::size_t nField : window.bill().page(1).aFields) {
    const TemplateField& field = window.bill().field(nField);
    const QString sText = shown_text(field, window.shown(field.sKey));
    if (field.sCaption.empty() || !window.state(field.sKey).bVisible || sText.isEmpty()) continue;
    if (nPosition++ % kFieldsInALine == 0) sHtml += QStringLiteral("<tr>");
    sHtml += html_cell(qt(field.sCaption) + QStringLiteral("："), true) + html_cell(sText, false);
  }
  return sHtml + QStringLiteral("</table>");
}

QString body_html(BillWindow& window) {
  const BodyModel model(
      window, [](const std::string&, int, const QString&) { return false; }, nullptr);
  QStringList totals;
  for (int nColumn = 0; nColumn < model.columnCount(); ++nColumn)
    totals << (nColumn == 0 ? words("合计") : model.total(nColumn));
  return table_html(model, totals);
}

}  // namespace

QString bill_html(BillWindow& window) {
  return QStringLiteral("<h2 align=\"center\">%1</h2>").arg(qt(window.bill().sCaption).toHtmlEscaped()) +
         head_html(window) + QStringLiteral("<p></p>") + body_html(window);
}

}  // namespace desk

#pragma once

#include <QStringList>

class QAbstractItemModel;
class QWidget;

/// What goes to paper: HTML, laid out on A4 pages across.
namespace desk {

void preview_html(const QString& sHtml, QWidget* pParent);
void print_html(const QString& sHtml, QWidget* pParent);
/// False when the file can't be written.
bool export_pdf(const QString& sHtml, const QString& sTitle, const QString& sPath);

QString html_cell(const QString& sText, bool bRight, const char* sTag = "td");
/// All rows of a model as a table whose captions come again on every page, with a last line of totals, if any.
QString table_html(const QAbstractItemModel& model, const QStringList& totals = {});
/// A list as it is in view.
QString list_html(const QAbstractItemModel& model, const QString& sTitle);

}  // namespace desk

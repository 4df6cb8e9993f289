#pragma once

#include <QString>

#include "engine/bill_window.h"

class QWidget;

/// The printed form of a bill: its head as the window shows it, its rows, their totals.
namespace desk {

QString bill_html(BillWindow& window);

void preview_bill(BillWindow& window, QWidget* pParent);
void print_bill(BillWindow& window, QWidget* pParent);
/// False when the file can't be written.
bool export_pdf(BillWindow& window, const QString& sPath);

}  // namespace desk

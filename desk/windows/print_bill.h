#pragma once

#include <QString>

#include "engine/bill_window.h"

/// The printed form of a bill: its head as the window shows it, its rows, their totals.
namespace desk {

QString bill_html(BillWindow& window);

}  // namespace desk

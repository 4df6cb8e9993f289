#pragma once

#include <QString>

class QAbstractItemModel;
class QWidget;

/// A table as a CSV file: its captions, then its lines as the cells show them. UTF-8 with its mark, so that spreadsheet
/// programs read Chinese right.
namespace desk {

QString csv_text(const QAbstractItemModel& model);

/// False when the file can't be written.
bool export_csv(const QAbstractItemModel& model, const QString& sPath);

/// Asks for a file first; the user hears when it can't be written. False when nothing was written.
bool ask_and_export_csv(const QAbstractItemModel& model, const QString& sName, QWidget* pParent);

}  // namespace desk

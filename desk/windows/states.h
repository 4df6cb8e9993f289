#pragma once

#include <QColor>
#include <QVariant>
#include <QWidget>

#include "engine/bill_template.h"
#include "frame/conversions.h"
#include "windows/qt_text.h"

/// How values and states look, the same in heads, grids and lists.
namespace desk {

inline QColor locked_colour() { return QColor(0xF0, 0xF0, 0xEC); }
inline QColor disabled_colour() { return QColor(0x80, 0x80, 0x80); }
inline QColor negative_colour() { return QColor(0xC0, 0x10, 0x10); }

/// How high the lines of every grid are.
inline int line_height(const QWidget& grid) { return grid.fontMetrics().height() + 8; }

/// Amounts and numbers stand at the right, texts at the left.
inline QVariant text_alignment(const TemplateField& field) {
  const bool bRight = field.is_number() && !field.lookUp;
  return QVariant((bRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// Amounts with their digits in groups; everything else as the bill shows it.
inline QString shown_text(const TemplateField& field, const std::string& sShown) {
  return field.kind == FieldKind::Money ? grouped(qt(sShown)) : qt(sShown);
}

/// Negative amounts are red; nothing for the others.
inline QVariant text_colour(const TemplateField& field, const arap::Variant& vValue) {
  const bool bNegative = field.is_number() && !field.lookUp && arap::NumberOf(vValue) < 0;
  return bNegative ? QVariant(negative_colour()) : QVariant();
}

}  // namespace desk

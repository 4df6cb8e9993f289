#pragma once

#include <QApplication>

namespace desk {

/// Shows this mouse pointer over all windows as long as it lives.
class PointerShape {
 public:
  explicit PointerShape(Qt::CursorShape shape) { QApplication::setOverrideCursor(shape); }
  ~PointerShape() { QApplication::restoreOverrideCursor(); }
  PointerShape(const PointerShape&) = delete;
  PointerShape& operator=(const PointerShape&) = delete;
};

}  // namespace desk

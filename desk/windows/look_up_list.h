#pragma once

#include <QFrame>

#include <optional>
#include <vector>

#include "engine/look_ups.h"

class QTableWidget;

namespace desk {

/// The list under a look-up field: code and name of the entries that go with what is typed. It never takes the focus;
/// the field moves its mark.
class LookUpList final : public QFrame {
  Q_OBJECT
 public:
  explicit LookUpList(QWidget* pField);

  /// Shows these entries under the field, the first one marked when bMark.
  void offer(std::vector<LookUpItem> items, bool bMark);
  void move_mark(int nSteps);
  /// The marked entry; nothing when the user hasn't marked one.
  std::optional<LookUpItem> marked() const;

 Q_SIGNALS:
  void picked();

 private:
  void place();

  QWidget* field_;
  QTableWidget* table_;
  std::vector<LookUpItem> items_;
};

}  // namespace desk

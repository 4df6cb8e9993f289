#pragma once

#include <QWidget>

#include <optional>
#include <vector>

#include "windows/lines_model.h"

class QLineEdit;
class QTableView;

namespace desk {

/// A list on the screen: a line to narrow it down, and under it the lines, of which several can be selected.
class LinesView final : public QWidget {
  Q_OBJECT
 public:
  LinesView(std::vector<ListColumn> columns, QWidget* pParent);

  /// Shows lines that were read anew. The current line stays the one of the same FBillID, where the lines have one.
  void show_lines(const Rows& lines);
  void retranslate();

  LinesModel& model() { return *model_; }
  QTableView& table() { return *table_; }
  QLineEdit& filter() { return *filter_; }
  /// Places among the lines; nothing when no line is current.
  std::optional<std::size_t> current_line() const;
  /// The selected lines in the order in which they were read, whatever the order on the screen.
  std::vector<std::size_t> selected_lines() const;

 Q_SIGNALS:
  /// Enter or a double click on a line.
  void activated();
  void selection_changed();

 private:
  void build();
  std::int32_t bill_of(std::size_t nLine) const;
  void go_back_to(std::int32_t nBill, int nRow);

  bool ends_in_text_;
  LinesModel* model_;
  QTableView* table_;
  QLineEdit* filter_;
  const Rows* lines_ = nullptr;
  std::int32_t current_bill_ = 0;
  bool fitted_ = false;
};

}  // namespace desk

#pragma once

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

#include "windows/lines_model.h"

class QLineEdit;
class QTableView;

namespace desk {

/// A list on the screen: a line to narrow it down, and under it the lines, of which several can be selected.
class LinesView final : public QWidget {
  Q_OBJECT
 public:
  /// The key column tells the lines apart when they are read anew.
  LinesView(std::vector<ListColumn> columns, QWidget* pParent, std::string sKeyColumn = "FBillID");

  /// Shows lines that were read anew. The current line stays the one of the same key, where the lines have one.
  void show_lines(const Rows& lines);
  void retranslate();

  LinesModel& model() { return *model_; }
  QTableView& table() { return *table_; }
  QLineEdit& filter() { return *filter_; }
  /// Places among the lines; nothing when no line is current.
  std::optional<std::size_t> current_line() const;
  /// The selected lines in the order in which they were read, whatever the order on the screen.
  std::vector<std::size_t> selected_lines() const;
  /// Makes the line of that key the current one, where it is in view; else it stays the one that it is.
  void make_current(std::int32_t nKey);
  /// Gives room to columns that lines of now need more of; none gets narrower.
  void widen_columns();
  /// No line is current or selected.
  void forget_current();

 Q_SIGNALS:
  /// Enter or a double click on a line.
  void activated();
  void selection_changed();

 private:
  void build();
  std::int32_t key_of(std::size_t nLine) const;
  int row_of_key(std::int32_t nKey) const;
  int needed_width(int nColumn) const;
  void go_to(int nRow);
  void go_back_to(std::int32_t nKey, int nRow);

  bool ends_in_text_;
  LinesModel* model_;
  QTableView* table_;
  QLineEdit* filter_;
  const Rows* lines_ = nullptr;
  std::string key_column_;
  std::int32_t current_key_ = 0;
  bool fitted_ = false;
};

}  // namespace desk

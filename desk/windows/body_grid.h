#pragma once

#include <QTableView>

#include "windows/body_model.h"

class QWidget;

namespace desk {

/// The grid of a bill's body, made for the keyboard: Enter goes down, Tab to the right, Esc undoes the cell, Ctrl+D
/// takes the cell above, F7 opens a list. The first columns stay in view, the totals stand below.
class BodyGrid final : public QTableView {
  Q_OBJECT
 public:
  using ChoicesOf = std::function<std::vector<LookUpItem>(const std::string& sKey)>;

  BodyGrid(BodyModel& model, ChoicesOf choices, QWidget* pParent);

  /// After the model's refresh: widths, frozen columns and totals.
  void refresh();
  /// The caret goes to the first cell of the last row that can be typed into.
  void go_to_last_row();
  /// The list of the current cell, when it has one and can be typed into.
  void open_list();
  /// Enters what is typed in an open editor and closes it.
  void enter_now();

 Q_SIGNALS:
  void cell_entered(const QString& sKey, int nRow);
  /// What was typed names nothing or several.
  void refused(const QString& sReason);

 protected:
  void keyPressEvent(QKeyEvent* pEvent) override;
  void resizeEvent(QResizeEvent* pEvent) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

 private:
  void freeze_first_columns();
  void fit_columns();
  void place_frozen();
  void place_totals();
  void go_down();
  void copy_from_above();

  BodyModel& model_;
  ChoicesOf choices_;
  QTableView* frozen_;
  QWidget* totals_;
  int fitted_ = -1;  // the number of columns that were given their widths
};

}  // namespace desk

#pragma once

#include <QStyledItemDelegate>

#include "windows/body_model.h"
#include "windows/field_edit.h"

namespace desk {

/// Edits a cell of the body with the same editor as a head field.
class CellDelegate final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using ChoicesOf = std::function<std::vector<LookUpItem>(const std::string& sKey)>;

  CellDelegate(const BodyModel& model, ChoicesOf choices, QObject* pParent)
      : QStyledItemDelegate(pParent), model_(model), choices_(std::move(choices)) {}

  QWidget* createEditor(QWidget* pParent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void setEditorData(QWidget* pEditor, const QModelIndex& index) const override;
  void setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const override;

 Q_SIGNALS:
  /// What was typed names nothing or several; the cell keeps its value.
  void refused(const QString& sReason) const;
  /// Enter was pressed in the editor, which is closed now.
  void entered() const;

 protected:
  bool eventFilter(QObject* pEditor, QEvent* pEvent) override;

 private:
  const BodyModel& model_;
  ChoicesOf choices_;
};

}  // namespace desk

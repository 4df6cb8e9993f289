#include "windows/cell_delegate.h"

#include <QKeyEvent>

namespace desk {

QWidget* CellDelegate::createEditor(QWidget* pParent, const QStyleOptionViewItem&, const QModelIndex& index) const {
  const TemplateField& field = model_.field(index.column());
  auto* pEdit = new FieldEdit(
      field, [this, sKey = field.sKey] { return choices_(sKey); }, pParent);
  pEdit->setFrame(false);
  return pEdit;
}

void CellDelegate::setEditorData(QWidget* pEditor, const QModelIndex& index) const {
  auto* pEdit = static_cast<FieldEdit*>(pEditor);
  if (pEdit->is_changed()) return;  // a refresh doesn't take away what is being typed
  pEdit->set_shown(index.data(Qt::EditRole).toString());
  pEdit->selectAll();
}

void CellDelegate::setModelData(QWidget* pEditor, QAbstractItemModel* pModel, const QModelIndex& index) const {
  auto* pEdit = static_cast<FieldEdit*>(pEditor);
  if (!pEdit->is_changed() && !pEdit->is_list_open()) return;
  QString sEntry;
  QString sReason;
  if (pEdit->take_entry(sEntry, sReason)) {
    pModel->setData(index, sEntry, Qt::EditRole);
  } else {
    Q_EMIT refused(sReason);
  }
}

bool CellDelegate::eventFilter(QObject* pEditor, QEvent* pEvent) {
  if (pEvent->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(pEditor, pEvent);
  auto* pEdit = static_cast<FieldEdit*>(pEditor);
  const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
  if (nKey == Qt::Key_Escape && pEdit->is_list_open()) return false;
  if (nKey != Qt::Key_Return && nKey != Qt::Key_Enter) return QStyledItemDelegate::eventFilter(pEditor, pEvent);
  Q_EMIT commitData(pEdit);
  Q_EMIT closeEditor(pEdit, NoHint);
  Q_EMIT entered();
  return true;
}

}  // namespace desk

#include "windows/field_edit.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>

#include "windows/captions.h"
#include "windows/look_up_list.h"
#include "windows/qt_text.h"
#include "windows/typed_text.h"

namespace desk {

namespace {

/// A small triangle, as a list that can be opened has it.
QIcon arrow_icon(const QPalette& colours) {
  constexpr int kScale = 4;  // sharp on fine screens too
  QPixmap picture(16 * kScale, 16 * kScale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kScale, kScale);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.color(QPalette::Disabled, QPalette::Text));
  painter.drawPolygon(QPolygonF({{4, 6}, {12, 6}, {8, 11}}));
  return QIcon(picture);
}

}  // namespace

FieldEdit::FieldEdit(const TemplateField& field, Choices choices, QWidget* pParent)
    : QLineEdit(pParent), field_(field), choices_(std::move(choices)) {
  setObjectName(qt(field.sKey));
  if (field.is_number() && !field.lookUp) setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (!field.lookUp) return;
  list_ = new LookUpList(this);
  arrow_ = addAction(arrow_icon(palette()), TrailingPosition);
  arrow_->setToolTip(QStringLiteral("F7"));
  connect(arrow_, &QAction::triggered, this, [this] {
    setFocus(Qt::OtherFocusReason);
    open_list(true);
  });
  connect(list_, &LookUpList::picked, this, &FieldEdit::pick);
  connect(this, &QLineEdit::textEdited, this, [this] { open_list(false); });
}

void FieldEdit::set_shown(const QString& sShown) {
  shown_ = sShown;
  if (text() == sShown) return;  // the caret stays
  setText(sShown);
  setCursorPosition(0);
}

bool FieldEdit::is_list_open() const { return list_ != nullptr && list_->isVisible(); }

void FieldEdit::open_list(bool bWhole) {
  if (list_ == nullptr || isReadOnly()) return;
  list_->offer(matching_choices(choices_(), bWhole ? std::string() : utf8(text())), bWhole);
}

void FieldEdit::pick() {
  if (const auto item = list_->marked()) setText(qt(item->sCode));
  list_->hide();
}

bool FieldEdit::take_entry(QString& sEntry, QString& sReason) {
  if (is_list_open()) pick();
  sEntry = text();
  if (list_ == nullptr || sEntry.trimmed().isEmpty()) return true;
  const std::vector<LookUpItem> items = choices_();
  if (const auto item = named_choice(items, utf8(sEntry))) {
    sEntry = qt(item->sCode);
    return true;
  }
  const bool bSeveral = !matching_choices(items, utf8(sEntry)).empty();
  sReason = words(bSeveral ? "找到多个“%1”，请选择其中一个。" : "没有代码或名称为“%1”的资料。").arg(sEntry);
  return false;
}

/// Ctrl+Ins adds a row wherever the caret is; to copy there is Ctrl+C.
bool FieldEdit::event(QEvent* pEvent) {
  if (pEvent->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(pEvent);
    if (key.key() == Qt::Key_Insert && key.modifiers() == Qt::ControlModifier) return false;
  }
  return QLineEdit::event(pEvent);
}

/// A locked field offers nothing.
void FieldEdit::changeEvent(QEvent* pEvent) {
  if (pEvent->type() == QEvent::ReadOnlyChange && arrow_ != nullptr) arrow_->setVisible(!isReadOnly());
  QLineEdit::changeEvent(pEvent);
}

void FieldEdit::keyPressEvent(QKeyEvent* pEvent) {
  switch (pEvent->key()) {
    case Qt::Key_F7: return open_list(true);
    case Qt::Key_Down:
      if (list_ == nullptr) break;
      return is_list_open() ? list_->move_mark(1) : open_list(true);
    case Qt::Key_Up:
      if (!is_list_open()) break;
      return list_->move_mark(-1);
    case Qt::Key_Escape:
      if (is_list_open()) return list_->hide();
      if (!is_changed()) break;  // there is nothing to bring back: it closes a small window
      return set_shown(shown_);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (is_list_open() && list_->marked()) pick();
      enter_now();
      if (!is_changed()) Q_EMIT finished();
      return;
    default: break;
  }
  QLineEdit::keyPressEvent(pEvent);
}

void FieldEdit::focusInEvent(QFocusEvent* pEvent) {
  QLineEdit::focusInEvent(pEvent);
  if (pEvent->reason() != Qt::MouseFocusReason && pEvent->reason() != Qt::PopupFocusReason) selectAll();
}

void FieldEdit::focusOutEvent(QFocusEvent* pEvent) {
  QLineEdit::focusOutEvent(pEvent);
  if (pEvent->reason() == Qt::PopupFocusReason || pEvent->reason() == Qt::ActiveWindowFocusReason) return;
  enter_now();
  if (list_ != nullptr) list_->hide();
}

}  // namespace desk

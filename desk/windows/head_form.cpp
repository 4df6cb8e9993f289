#include "windows/head_form.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

#include "frame/conversions.h"
#include "windows/qt_text.h"
#include "windows/states.h"

namespace desk {

namespace {
constexpr int kFieldsInALine = 4;
}

HeadForm::HeadForm(BillWindow& window, Enter enter, QWidget* pParent)
    : QWidget(pParent), window_(window), enter_(std::move(enter)) {
  auto* pLayout = new QGridLayout(this);
  pLayout->setContentsMargins(8, 6, 8, 6);
  pLayout->setHorizontalSpacing(8);
  pLayout->setVerticalSpacing(3);
  for (int nColumn = 0; nColumn < kFieldsInALine; ++nColumn) pLayout->setColumnStretch(2 * nColumn + 1, 1);
  int nPosition = 0;
  for (const std::size_t nField : window_.bill().page(1).aFields) {
    const TemplateField& field = window_.bill().field(nField);
    if (!field.sCaption.empty() && field.bVisible) add(nField, nPosition++);
  }
  refresh();
}

void HeadForm::add(std::size_t nField, int nPosition) {
  const TemplateField& field = window_.bill().field(nField);
  auto* pEdit = new FieldEdit(
      field, [this, sKey = field.sKey] { return window_.choices(sKey); }, this);
  pEdit->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("0000000000.00")));
  auto* pLabel = new QLabel(qt(field.sCaption), this);
  pLabel->setBuddy(pEdit);
  auto* pLayout = static_cast<QGridLayout*>(layout());
  const int nLine = nPosition / kFieldsInALine;
  const int nColumn = 2 * (nPosition % kFieldsInALine);
  pLayout->addWidget(pLabel, nLine, nColumn, Qt::AlignRight | Qt::AlignVCenter);
  pLayout->addWidget(pEdit, nLine, nColumn + 1);
  const Place place{nField, pLabel, pEdit};
  places_.push_back(place);
  pEdit->installEventFilter(this);
  connect(pEdit, &FieldEdit::entered, this, [this, place] { commit(place); });
  connect(pEdit, &FieldEdit::finished, this, [this, pEdit] { go_on(pEdit); });
}

void HeadForm::commit(const Place& place) {
  QString sEntry;
  QString sReason;
  if (!place.pEdit->take_entry(sEntry, sReason)) {
    Q_EMIT refused(sReason);
    if (place.pEdit->hasFocus()) return place.pEdit->open_list(false);
  } else {
    enter_(window_.bill().field(place.nField).sKey, sEntry);
  }
  refresh(place);  // a refused entry gives way to what the bill holds
}

void HeadForm::go_on(FieldEdit* pFrom) {
  QWidget* pNext = pFrom->nextInFocusChain();
  while (pNext != pFrom) {
    auto* pEdit = qobject_cast<FieldEdit*>(pNext);
    if (pEdit != nullptr && pEdit->parent() == this && !pEdit->isReadOnly() && pEdit->isVisible()) break;
    pNext = pNext->nextInFocusChain();
  }
  const bool bWrapped =
      pNext == pFrom || pNext->y() < pFrom->y() || (pNext->y() == pFrom->y() && pNext->x() < pFrom->x());
  if (bWrapped) {
    Q_EMIT left();
  } else {
    pNext->setFocus(Qt::TabFocusReason);
  }
}

FieldEdit* HeadForm::edit(std::string_view sKey) const {
  for (const Place& place : places_) {
    if (arap::EqualsNoCase(window_.bill().field(place.nField).sKey, sKey)) return place.pEdit;
  }
  return nullptr;
}

FieldEdit* HeadForm::first_free() const {
  for (const Place& place : places_) {
    if (!place.pEdit->isReadOnly()) return place.pEdit;
  }
  return nullptr;
}

void HeadForm::refresh() {
  for (const Place& place : places_) refresh(place);
}

void HeadForm::refresh(const Place& place) {
  const TemplateField& field = window_.bill().field(place.nField);
  const bool bVisible = window_.state(field.sKey).bVisible;
  place.pLabel->setVisible(bVisible);
  place.pEdit->setVisible(bVisible);
  const QString sReason = qt(window_.lock_reason(field.sKey));
  place.pEdit->set_shown(shown_text(field, window_.shown(field.sKey)));
  place.pEdit->setReadOnly(!sReason.isEmpty());
  place.pEdit->setFocusPolicy(sReason.isEmpty() ? Qt::StrongFocus : Qt::ClickFocus);
  place.pEdit->setToolTip(sReason);
  QPalette colours;
  if (!sReason.isEmpty()) colours.setColor(QPalette::Base, locked_colour());
  const QVariant vText = text_colour(field, window_.value(field.sKey));
  if (vText.isValid()) colours.setColor(QPalette::Text, vText.value<QColor>());
  place.pEdit->setPalette(colours);
}

bool HeadForm::eventFilter(QObject* pWatched, QEvent* pEvent) {
  if (pEvent->type() == QEvent::FocusIn) Q_EMIT field_entered(pWatched->objectName());
  return QWidget::eventFilter(pWatched, pEvent);
}

}  // namespace desk

#pragma once

#include <QLineEdit>

#include <functional>
#include <vector>

#include "engine/bill_template.h"
#include "engine/look_ups.h"

namespace desk {

class LookUpList;

/// The editor of a field, in the head and in the grid. A look-up field offers its list while one types, on F7 and by
/// its arrow; Esc brings the former text back.
class FieldEdit final : public QLineEdit {
  Q_OBJECT
 public:
  /// What the field's list offers now; read anew at each use, so that nothing stale is ever taken.
  using Choices = std::function<std::vector<LookUpItem>()>;

  FieldEdit(const TemplateField& field, Choices choices, QWidget* pParent);

  /// The text that the bill shows; what is typed is compared with it.
  void set_shown(const QString& sShown);
  bool is_changed() const { return text() != shown_; }
  bool is_list_open() const;
  /// Takes the list's mark, or what the typed text names: the text to enter. False, with the reason in sReason, when
  /// it names nothing or several.
  bool take_entry(QString& sEntry, QString& sReason);
  void open_list(bool bWhole);
  /// Enters what is typed and not entered yet.
  void enter_now() {
    if (is_changed()) Q_EMIT entered();
  }

 Q_SIGNALS:
  /// Enter, Tab or the loss of the focus, with a changed text.
  void entered();
  /// Enter, once nothing typed is left to be entered.
  void finished();

 protected:
  bool event(QEvent* pEvent) override;
  void changeEvent(QEvent* pEvent) override;
  void keyPressEvent(QKeyEvent* pEvent) override;
  void focusInEvent(QFocusEvent* pEvent) override;
  void focusOutEvent(QFocusEvent* pEvent) override;

 private:
  void pick();

  const TemplateField& field_;
  Choices choices_;
  LookUpList* list_ = nullptr;
  QAction* arrow_ = nullptr;
  QString shown_;
};

}  // namespace desk

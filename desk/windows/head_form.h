#pragma once

#include <QWidget>

#include <map>
#include <string>
#include <vector>

#include "engine/bill_window.h"
#include "windows/field_edit.h"

namespace desk {

/// The head of a bill: its visible fields with captions, in the order of the template.
class HeadForm final : public QWidget {
  Q_OBJECT
 public:
  /// Enters a text into a head field as the user's; false when it was refused.
  using Enter = std::function<bool(const std::string& sKey, const QString& sText)>;

  HeadForm(BillWindow& window, Enter enter, QWidget* pParent);

  /// Texts, locks and visibility as the bill has them now.
  void refresh();
  FieldEdit* edit(std::string_view sKey) const;
  /// nullptr when every field is locked.
  FieldEdit* first_free() const;

 Q_SIGNALS:
  void field_entered(const QString& sKey);
  void refused(const QString& sReason);
  /// Enter in the last field.
  void left();

 protected:
  bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

 private:
  struct Place {
    std::size_t nField;
    QWidget* pLabel;
    FieldEdit* pEdit;
  };
  void add(std::size_t nField, int nPosition);
  void commit(const Place& place);
  void go_on(FieldEdit* pFrom);
  void refresh(const Place& place);

  BillWindow& window_;
  Enter enter_;
  std::vector<Place> places_;
};

}  // namespace desk

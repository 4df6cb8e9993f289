#pragma once

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;
class QListWidget;

namespace desk {

/// A calculator with a tape. It works out what an amount field works out: sums with + - * / and brackets. What begins
/// with a sign goes on from the last result; Enter on an empty line takes the result over.
class Calculator final : public QDialog {
  Q_OBJECT
 public:
  /// Where there is no field for the result, there is nothing to take it over with.
  Calculator(bool bCanTake, QWidget* pParent);

  /// The last result, when it is to be taken over.
  std::optional<QString> run();

 private:
  void build(bool bCanTake);
  /// False for what can't be worked out; it stays where it was typed.
  bool work_out();
  void take();

  QListWidget* tape_;
  QLineEdit* sum_;
  QLabel* message_;
  QString result_;
};

}  // namespace desk

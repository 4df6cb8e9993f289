#pragma once

#include <QDockWidget>

#include "windows/command_log.h"

class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace desk {

/// Shows what the last commands did, as a tree of events, host calls, SQL texts and messages with their times: the way
/// to understand why a bill was refused.
class Inspector final : public QDockWidget {
  Q_OBJECT
 public:
  Inspector(CommandLog& log, QWidget* pParent);

  /// The lines in view as text, indented as the tree is.
  QString text() const;
  /// The desk's own words in the language of now.
  void retranslate();

 private:
  void show_commands();
  void add_command(const LoggedCommand& command);
  void narrow();

  CommandLog& log_;
  QLineEdit* filter_;
  QPushButton* copy_;
  QPushButton* clear_;
  QTreeWidget* tree_;
};

}  // namespace desk

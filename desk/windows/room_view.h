#pragma once

#include <QTableView>

#include <cstdint>
#include <string>

namespace desk {

/// One of the module's rooms: a list of the book in the main window.
class RoomView : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;

  /// Reads the lines anew. Raises DeskError when the book can't be read.
  virtual void refresh() = 0;
  /// The desk's own words in the language of now.
  virtual void retranslate() = 0;
  virtual void open_current() = 0;
  virtual QTableView& table() = 0;
  /// Where the focus goes when the room is entered by keyboard.
  virtual QWidget& first_focus() { return table(); }
  /// How many lines there are and how many are chosen, or what the last command had to say.
  virtual QString status() const = 0;
  /// What is in view, for paper.
  QString html();
  /// Whether the lines may be older than the book.
  bool is_stale() const { return stale_; }
  void set_stale(bool bStale) { stale_ = bStale; }

 Q_SIGNALS:
  /// Somebody wants to see a bill of this template; 0 is a new one.
  void bill_wanted(const std::string& sTemplate, std::int32_t nBillID);
  void status_changed();
  /// A command may have changed the book.
  void stored();
  void closed();

 private:
  bool stale_ = true;
};

}  // namespace desk

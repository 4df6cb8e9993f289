#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

#include "windows/bar_view.h"
#include "windows/body_grid.h"
#include "windows/command_runner.h"
#include "windows/desk_seat.h"
#include "windows/head_form.h"
#include "windows/seat_news.h"

class QLabel;

namespace desk {

/// A bill window: menus and toolbar, head, grid, status. Every rule behind it is the engine's and the plug-in's.
class BillView final : public QWidget {
  Q_OBJECT
 public:
  /// `sTemplate` is one of the shipped templates: "receipt", "payment" ...
  BillView(DeskSeat& seat, const std::string& sTemplate, QWidget* pParent);
  /// Over a bill window that is open already, of a record of base data; it outlives the view.
  BillView(DeskSeat& seat, BillWindow& window, QWidget* pParent);
  ~BillView() override;

  void new_bill();
  /// False when there is no such bill.
  bool open_bill(std::int32_t nBillID);
  /// Runs a command of the bars, once: a press while another command runs is passed over.
  void press(const std::string& sTool);
  /// Reads the bill anew, unless the user wants to keep changes: another seat may have let it go by now.
  void reload();
  /// The desk's own words in the language of now.
  void retranslate() { refresh_status(); }
  /// Asks about unsaved changes. False when the user wants to go on.
  bool may_close();

  bool shows(const std::string& sTemplate, std::int32_t nBillID) const;
  /// The partner, where a new bill begins; the first free field where there is none.
  void focus_first_field();

  BillWindow& window() { return *window_; }
  HeadForm& head() { return *head_; }
  /// Not for records of base data, which have no rows.
  BodyGrid& body() { return *body_; }
  BarView& bars() { return *bars_; }
  /// What the status line says.
  QString status() const;

 Q_SIGNALS:
  void title_changed(const QString& sTitle);
  /// The bill or its state in the book may have changed.
  void stored();
  void closed();

 private:
  void build();
  void build_body();
  QWidget* build_status();
  /// Does the work as one logged command, shows why it was refused, and brings the view up to date.
  bool run(const QString& sName, const std::function<Outcome()>& work);
  bool enter(const std::string& sKey, int nRow, const QString& sText);
  /// The part of a command that is the desk's own: lists, paper, the calculator.
  void run_desk_command(const std::string& sTool);
  FieldEdit* edit_in_focus() const;
  void open_list_in_focus();
  void calculate();
  std::vector<std::size_t> choose_sources(const SourceList& list);
  void refresh();
  void refresh_status();
  QString state_text() const;
  void say(const QString& sText, bool bTrouble);

  DeskSeat& seat_;
  std::string template_;
  OpenBillWindow owned_;
  BillWindow* window_;
  BodyModel* model_ = nullptr;
  HeadForm* head_ = nullptr;
  BodyGrid* body_ = nullptr;
  BarView* bars_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* panels_ = nullptr;
  QLabel* state_ = nullptr;
  CommandRunner runner_;
  SeatNews news_;
};

}  // namespace desk

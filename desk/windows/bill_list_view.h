#pragma once

#include <map>
#include <vector>

#include "engine/list_window.h"
#include "windows/bar_view.h"
#include "windows/command_runner.h"
#include "windows/desk_seat.h"
#include "windows/lines_view.h"
#include "windows/room_view.h"
#include "windows/seat_news.h"

namespace desk {

/// The list of a class of bills with the plug-in behind it: its bars, its commands on one bill or on many, a line an
/// entry.
class BillListView final : public RoomView {
  Q_OBJECT
 public:
  /// `sTemplate` is one of the shipped templates: "receipt", "payment" ...
  BillListView(DeskSeat& seat, const std::string& sTemplate, QWidget* pParent);
  ~BillListView() override;

  /// Runs a command of the bars on the selected lines, once: a press while another command runs is passed over.
  void press(const std::string& sTool);

  void refresh() override;
  void retranslate() override;
  void open_current() override;
  QTableView& table() override { return view_->table(); }
  QString status() const override;

  LinesView& lines() { return *view_; }
  BarView& bars() { return *bars_; }
  ListWindow& window() { return *window_.get(); }

 private:
  void build();
  /// The part of a command that is the desk's own: windows that open, files that are written.
  void run_desk_command(const std::string& sTool);
  int selected_bills() const;
  QString name_of(const std::string& sTool) const;

  DeskSeat& seat_;
  std::string template_;
  CommandRunner runner_;
  SeatNews news_;
  OpenListWindow window_;
  LinesView* view_;
  BarView* bars_ = nullptr;
  QString trouble_;
};

}  // namespace desk

#pragma once

#include <span>
#include <string>

#include "engine/plugin_window.h"
#include "windows/bar_view.h"
#include "windows/command_runner.h"
#include "windows/desk_seat.h"
#include "windows/lines_view.h"
#include "windows/room_view.h"
#include "windows/seat_news.h"

namespace desk {

/// A room with a plug-in behind it: menus and a toolbar as the plug-in sets them, above what the room shows.
class PluginRoom : public RoomView {
  Q_OBJECT
 public:
  /// Runs a command of the bars, once: a press while another command runs is passed over.
  void press(const std::string& sTool);

  void refresh() override;
  BarView& bars() { return *bars_; }

 protected:
  PluginRoom(DeskSeat& seat, std::span<const Shortcut> shortcuts, QWidget* pParent);

  /// Puts menus and toolbar above the content; called once, by the constructor of the room.
  void build(QWidget& content);
  /// Draws the bar of the window of now; again when the room takes another window.
  void show_bars();
  /// Does the work as one logged command; false when another one is running. What it is refused for stands in the
  /// status line.
  bool run(const QString& sName, const std::function<Outcome()>& work);
  QString name_of(const std::string& sTool);

  DeskSeat& seat() const { return seat_; }
  /// Why the last command was refused in the desk's own words; "" when it wasn't.
  const QString& trouble() const { return trouble_; }

  virtual PluginWindow& plugin_window() = 0;
  /// Shows what the window holds now.
  virtual void show_window() = 0;
  /// The engine's part of a command.
  virtual Outcome run_command(const std::string& sTool) { return plugin_window().press(sTool); }
  /// The part of a command that is the desk's own: windows that open, files that are written. Paper and calculator are
  /// the same for all rooms.
  virtual void run_desk_command(const std::string& sTool);
  /// Filter and export of the lines that the room shows, under this name; true when the command is one of the two.
  bool run_lines_command(const std::string& sTool, LinesView& lines, const QString& sName);

 private:
  DeskSeat& seat_;
  std::span<const Shortcut> shortcuts_;
  CommandRunner runner_;
  SeatNews news_;
  QMenuBar* menus_;
  QToolBar* tools_;
  BarView* bars_ = nullptr;
  QString trouble_;
};

}  // namespace desk

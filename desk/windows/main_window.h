#pragma once

#include <QMainWindow>

#include <map>
#include <string>

#include "windows/bill_view.h"
#include "windows/captions.h"
#include "windows/desk_seat.h"
#include "windows/room_view.h"

class QLabel;
class QListWidget;
class QTabWidget;

namespace desk {

class Inspector;

/// The module's rooms on the left, lists and bills as tabs, the inspector on the right.
class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(DeskSeat& seat);
  ~MainWindow() override;

  /// Brings the room's list to the front; it is read when it is first shown, and again after commands.
  void show_room(int nRoom);
  int room_count() const;
  BillView* new_bill(const std::string& sTemplate);
  /// The view of an open bill, or a new one; nullptr when there is no such bill.
  BillView* open_bill(const std::string& sTemplate, std::int32_t nBillID);
  /// What is in front: one of the two, or neither.
  BillView* current_bill() const;
  RoomView* current_room() const;
  Inspector& inspector() { return *inspector_; }
  void change_language(Language language);

 protected:
  void closeEvent(QCloseEvent* pEvent) override;

 private:
  void build();
  void build_menus();
  void add_file_menu();
  BillView* add_bill(const std::string& sTemplate);
  RoomView* add_room(int nRoom);
  void remove_tab(QWidget* pView);
  void close_tab(int nTab);
  /// Lists are read anew when they come to the front.
  void forget_lists();
  void refresh_front();
  void show_front();
  void show_status();
  /// The bill or list in front, for paper; "" where nothing is.
  QString html_of_front() const;
  /// To the preview or the printer.
  void put_out(void (*put)(const QString& sHtml, QWidget* pParent));
  void export_pdf_of_front();
  /// Opens a help file, or tells where it is looked for.
  void show_help(const std::string& sPath);
  template <class View>
  void for_each(const std::function<void(View&)>& work) const;

  DeskSeat& seat_;
  QListWidget* rooms_;
  QTabWidget* tabs_;
  Inspector* inspector_;
  std::map<int, RoomView*> open_rooms_;
};

}  // namespace desk

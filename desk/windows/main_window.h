#pragma once

#include <QMainWindow>

#include <map>
#include <string>

#include "windows/bill_view.h"
#include "windows/book_list.h"
#include "windows/captions.h"
#include "windows/desk_seat.h"

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTableView;

namespace desk {

class Inspector;

/// The module's rooms on the left, the chosen list and the open bills as tabs, the inspector on the right.
class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(DeskSeat& seat);
  ~MainWindow() override;

  void show_room(int nRoom);
  int room_count() const;
  BillView* new_bill(const std::string& sTemplate);
  /// The view of an open bill, or a new one; nullptr when there is no such bill.
  BillView* open_bill(const std::string& sTemplate, std::int32_t nBillID);
  BillView* current_bill() const;
  QTableView& list() { return *list_; }
  Inspector& inspector() { return *inspector_; }

 protected:
  void closeEvent(QCloseEvent* pEvent) override;

 private:
  void build_rooms();
  void build_menus();
  void change_language(Language language);
  BillView* add_bill(const std::string& sTemplate);
  void open_current_line();
  void refresh_list();
  void close_tab(int nTab);

  DeskSeat& seat_;
  QListWidget* rooms_;
  QTabWidget* tabs_;
  QWidget* list_page_;
  QTableView* list_;
  QLineEdit* filter_;
  Inspector* inspector_;
  std::vector<BookListModel*> models_;
};

}  // namespace desk

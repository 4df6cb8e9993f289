#include "windows/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>

#include "services/help_viewer.h"
#include "windows/inspector.h"
#include "windows/message_box.h"
#include "windows/pointer_shape.h"
#include "windows/print_bill.h"
#include "windows/printing.h"
#include "windows/qt_text.h"
#include "windows/rooms.h"

namespace desk {

namespace {

constexpr int kRoomsWidth = 130;
constexpr int kRoomsSpacing = 3;

}  // namespace

MainWindow::MainWindow(DeskSeat& seat)
    : seat_(seat), rooms_(new QListWidget), tabs_(new QTabWidget), inspector_(new Inspector(seat.log, this)) {
  resize(1280, 800);
  seat_.session.platform().set_ask_user([this](const ShownMessage& message) {
    const PointerShape pointer(Qt::ArrowCursor);
    QWidget* pOver = QApplication::activeWindow();
    return show_message_box(message, pOver != nullptr ? pOver : this);
  });
  seat_.session.platform().set_help_viewer([this](const std::string& sPath) { show_help(sPath); });
  build();
  change_language(language());
  show_room(0);
}

MainWindow::~MainWindow() {
  seat_.session.platform().set_ask_user({});
  seat_.session.platform().set_help_viewer({});
  // What the tabs have to say on their way out no longer reaches anybody.
  disconnect(tabs_, nullptr, this, nullptr);
}

void MainWindow::build() {
  auto* pSplitter = new QSplitter;
  rooms_->setObjectName(QStringLiteral("rooms"));
  rooms_->setSpacing(kRoomsSpacing);
  rooms_->setFrameShape(QFrame::NoFrame);
  for (const Room& room : rooms()) rooms_->addItem(words(room.sCaption));
  tabs_->setTabsClosable(true);
  tabs_->setDocumentMode(true);
  tabs_->setMovable(true);
  pSplitter->addWidget(rooms_);
  pSplitter->addWidget(tabs_);
  pSplitter->setStretchFactor(1, 1);
  pSplitter->setSizes({kRoomsWidth, width() - kRoomsWidth});
  setCentralWidget(pSplitter);
  addDockWidget(Qt::RightDockWidgetArea, inspector_);
  inspector_->hide();
  connect(rooms_, &QListWidget::currentRowChanged, this, &MainWindow::show_room);
  connect(rooms_, &QListWidget::itemClicked, this, [this] { show_room(rooms_->currentRow()); });
  connect(rooms_, &QListWidget::itemActivated, this, [this] {
    show_room(rooms_->currentRow());
    if (RoomView* pRoom = current_room()) pRoom->first_focus().setFocus();
  });
  connect(tabs_, &QTabWidget::currentChanged, this, &MainWindow::show_front);
  connect(tabs_, &QTabWidget::tabCloseRequested, this, &MainWindow::close_tab);
}

void MainWindow::build_menus() {
  menuBar()->clear();
  add_file_menu();
  QMenu* pView = menuBar()->addMenu(words("视图"));
  inspector_->toggleViewAction()->setText(words("检查器"));
  inspector_->toggleViewAction()->setShortcut(QKeySequence(QStringLiteral("F12")));
  pView->addAction(inspector_->toggleViewAction());
  QMenu* pLanguage = pView->addMenu(words("语言"));
  for (const auto& [chosen, sCaption] :
       {std::pair(Language::Chinese, "简体中文"), std::pair(Language::English, "English")}) {
    connect(pLanguage->addAction(QString::fromUtf8(sCaption)), &QAction::triggered, this,
            [this, chosen = chosen] { change_language(chosen); });
  }
}

void MainWindow::add_file_menu() {
  QMenu* pFile = menuBar()->addMenu(words("文件"));
  const auto add = [this, pFile](const char* sCaption, const char* sKeys, auto&& work) {
    QAction* pAction = pFile->addAction(words(sCaption));
    pAction->setShortcut(QKeySequence(QString::fromLatin1(sKeys)));
    connect(pAction, &QAction::triggered, this, work);
  };
  add("新增收款单", "Ctrl+Shift+R", [this] { new_bill("receipt"); });
  add("新增付款单", "Ctrl+Shift+P", [this] { new_bill("payment"); });
  add("新增其他收入单", "Ctrl+Shift+I", [this] { new_bill("other_receivable"); });
  add("新增费用支出单", "Ctrl+Shift+X", [this] { new_bill("other_payable"); });
  add("打开", "Ctrl+O", [this] {
    if (RoomView* pRoom = current_room()) pRoom->open_current();
  });
  add("刷新", "F5", [this] { refresh_front(); });
  add("预览", "", [this] { put_out(preview_html); });
  add("打印", "", [this] { put_out(print_html); });
  add("导出PDF", "Ctrl+Shift+E", [this] { export_pdf_of_front(); });
  add("退出", "Ctrl+Q", [this] { close(); });
}

template <class View>
void MainWindow::for_each(const std::function<void(View&)>& work) const {
  for (int nTab = 0; nTab < tabs_->count(); ++nTab) {
    if (auto* pView = qobject_cast<View*>(tabs_->widget(nTab))) work(*pView);
  }
}

void MainWindow::change_language(Language chosen) {
  set_language(chosen);
  build_menus();
  for (int nRoom = 0; nRoom < rooms_->count(); ++nRoom)
    rooms_->item(nRoom)->setText(words(rooms()[static_cast<std::size_t>(nRoom)].sCaption));
  for (const auto& [nRoom, pRoom] : open_rooms_) {
    pRoom->setWindowTitle(rooms_->item(nRoom)->text());
    tabs_->setTabText(tabs_->indexOf(pRoom), pRoom->windowTitle());
    pRoom->retranslate();
  }
  for_each<BillView>([](BillView& bill) { bill.retranslate(); });
  inspector_->retranslate();
  setWindowTitle(words("应收应付") + QStringLiteral(" - ") + qt(seat_.session.user_name()) + QStringLiteral(" - ") +
                 qt(seat_.database().path()));
  show_status();
}

int MainWindow::room_count() const { return rooms_->count(); }

RoomView* MainWindow::add_room(int nRoom) {
  RoomView* pRoom = rooms()[static_cast<std::size_t>(nRoom)].make(seat_, tabs_);
  pRoom->setWindowTitle(rooms_->item(nRoom)->text());
  open_rooms_[nRoom] = pRoom;
  connect(pRoom, &RoomView::bill_wanted, this, [this](const std::string& sTemplate, std::int32_t nBillID) {
    if (nBillID == 0) {
      new_bill(sTemplate);
    } else {
      open_bill(sTemplate, nBillID);
    }
  });
  connect(pRoom, &RoomView::status_changed, this, &MainWindow::show_status);
  connect(pRoom, &RoomView::stored, this, [this, pRoom] {
    forget_lists();
    pRoom->set_stale(false);  // it has just shown what it did
  });
  connect(
      pRoom, &RoomView::closed, this, [this, pRoom] { remove_tab(pRoom); }, Qt::QueuedConnection);
  tabs_->addTab(pRoom, pRoom->windowTitle());
  return pRoom;
}

void MainWindow::show_room(int nRoom) {
  if (nRoom < 0 || nRoom >= room_count()) return;
  {
    const QSignalBlocker quiet(rooms_);
    rooms_->setCurrentRow(nRoom);
  }
  const auto found = open_rooms_.find(nRoom);
  try {
    tabs_->setCurrentWidget(found != open_rooms_.end() ? found->second : add_room(nRoom));
  } catch (const DeskError& error) {
    return statusBar()->showMessage(qt(error.what()));
  } catch (const arap::AutomationError& error) {
    return statusBar()->showMessage(qt(error.description()));
  }
  show_front();
}

void MainWindow::forget_lists() {
  for (const auto& [nRoom, pRoom] : open_rooms_) pRoom->set_stale(true);
}

void MainWindow::show_front() {
  RoomView* pRoom = current_room();
  {
    // A bill belongs to the room that is called as it is.
    const QSignalBlocker quiet(rooms_);
    BillView* pBill = current_bill();
    const QString sBill = pBill == nullptr ? QString() : words(pBill->window().bill().sCaption.c_str());
    for (int nRoom = 0; nRoom < room_count(); ++nRoom) {
      const auto found = open_rooms_.find(nRoom);
      const bool bInFront = found != open_rooms_.end() && found->second == pRoom;
      if (bInFront || rooms_->item(nRoom)->text() == sBill) rooms_->setCurrentRow(nRoom);
    }
  }
  if (pRoom != nullptr && pRoom->is_stale()) return refresh_front();
  show_status();
}

void MainWindow::refresh_front() {
  if (BillView* pBill = current_bill()) return pBill->reload();
  RoomView* pRoom = current_room();
  if (pRoom == nullptr) return;
  try {
    pRoom->refresh();
    pRoom->set_stale(false);
    show_status();
  } catch (const DeskError& error) {
    statusBar()->showMessage(qt(error.what()));
  }
}

void MainWindow::show_status() {
  const RoomView* pRoom = current_room();
  statusBar()->showMessage(pRoom == nullptr ? QString() : pRoom->status());
}

BillView* MainWindow::add_bill(const std::string& sTemplate) {
  auto* pView = new BillView(seat_, sTemplate, tabs_);
  const int nTab = tabs_->addTab(pView, {});
  connect(pView, &BillView::title_changed, this,
          [this, pView](const QString& sTitle) { tabs_->setTabText(tabs_->indexOf(pView), sTitle); });
  connect(pView, &BillView::stored, this, &MainWindow::forget_lists);
  connect(
      pView, &BillView::closed, this, [this, pView] { remove_tab(pView); }, Qt::QueuedConnection);
  tabs_->setCurrentIndex(nTab);
  return pView;
}

BillView* MainWindow::new_bill(const std::string& sTemplate) {
  BillView* pView = add_bill(sTemplate);
  pView->new_bill();
  pView->focus_first_field();
  return pView;
}

BillView* MainWindow::open_bill(const std::string& sTemplate, std::int32_t nBillID) {
  BillView* pOpen = nullptr;
  for_each<BillView>([&](BillView& bill) {
    if (bill.shows(sTemplate, nBillID)) pOpen = &bill;
  });
  if (pOpen != nullptr) {
    tabs_->setCurrentWidget(pOpen);
    return pOpen;
  }
  BillView* pView = add_bill(sTemplate);
  if (pView->open_bill(nBillID)) {
    pView->body().setFocus(Qt::OtherFocusReason);
    return pView;
  }
  const QString sReason = pView->status();
  remove_tab(pView);
  statusBar()->showMessage(sReason);
  return nullptr;
}

BillView* MainWindow::current_bill() const { return qobject_cast<BillView*>(tabs_->currentWidget()); }
RoomView* MainWindow::current_room() const { return qobject_cast<RoomView*>(tabs_->currentWidget()); }

void MainWindow::remove_tab(QWidget* pView) {
  std::erase_if(open_rooms_, [&](const auto& room) { return room.second == pView; });
  tabs_->removeTab(tabs_->indexOf(pView));
  pView->deleteLater();
}

void MainWindow::close_tab(int nTab) {
  QWidget* pView = tabs_->widget(nTab);
  if (auto* pBill = qobject_cast<BillView*>(pView)) return pBill->press("mnuFileExit");
  remove_tab(pView);
}

QString MainWindow::html_of_front() const {
  if (BillView* pBill = current_bill()) return bill_html(pBill->window());
  RoomView* pRoom = current_room();
  return pRoom == nullptr ? QString() : pRoom->html();
}

void MainWindow::show_help(const std::string& sPath) {
  const QString sFile = qt(native_path(sPath));
  if (QFileInfo::exists(sFile) && open_help_file(sPath)) return;
  const PointerShape pointer(Qt::ArrowCursor);
  QMessageBox::information(this, words("帮助"), words("帮助文件“%1”无法打开，请检查它是否存在。").arg(sFile));
}

void MainWindow::put_out(void (*put)(const QString& sHtml, QWidget* pParent)) {
  const QString sHtml = html_of_front();
  if (!sHtml.isEmpty()) put(sHtml, this);
}

void MainWindow::export_pdf_of_front() {
  const QString sHtml = html_of_front();
  if (sHtml.isEmpty()) return;
  const QString sTitle = tabs_->tabText(tabs_->currentIndex());
  const QString sPath = QFileDialog::getSaveFileName(this, words("导出PDF"), sTitle + QStringLiteral(".pdf"),
                                                     QStringLiteral("PDF (*.pdf)"));
  if (sPath.isEmpty() || export_pdf(sHtml, sTitle, sPath)) return;
  QMessageBox::warning(this, words("导出PDF"), words("文件“%1”无法写入。").arg(sPath));
}

void MainWindow::closeEvent(QCloseEvent* pEvent) {
  for (int nTab = 0; nTab < tabs_->count(); ++nTab) {
    auto* pView = qobject_cast<BillView*>(tabs_->widget(nTab));
    if (pView == nullptr || pView->may_close()) continue;
    tabs_->setCurrentIndex(nTab);
    return pEvent->ignore();
  }
  pEvent->accept();
}

}  // namespace desk

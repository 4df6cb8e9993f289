#include "windows/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

#include "windows/captions.h"
#include "windows/inspector.h"
#include "windows/message_box.h"
#include "windows/qt_text.h"

namespace desk {

namespace {
constexpr int kRoomsWidth = 150;
}

MainWindow::MainWindow(DeskSeat& seat)
    : seat_(seat),
      rooms_(new QListWidget),
      tabs_(new QTabWidget),
      list_page_(new QWidget),
      list_(new QTableView),
      filter_(new QLineEdit),
      inspector_(new Inspector(seat.log, this)) {
  resize(1280, 800);
  seat_.session.platform().set_ask_user([this](const ShownMessage& message) {
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    QWidget* pOver = QApplication::activeWindow();
    const int nAnswer = show_message_box(message, pOver != nullptr ? pOver : this);
    QApplication::restoreOverrideCursor();
    return nAnswer;
  });
  for (const BookList& each : book_lists()) models_.push_back(new BookListModel(seat_.database(), each, this));
  build_rooms();
  addDockWidget(Qt::RightDockWidgetArea, inspector_);
  inspector_->hide();
  build_menus();
  change_language(language());
  show_room(0);
}

MainWindow::~MainWindow() { seat_.session.platform().set_ask_user({}); }

void MainWindow::build_rooms() {
  auto* pSplitter = new QSplitter;
  rooms_->setObjectName(QStringLiteral("rooms"));
  rooms_->setMaximumWidth(kRoomsWidth);
  for (const BookListModel* pModel : models_) rooms_->addItem(words(pModel->list().sCaption));
  pSplitter->addWidget(rooms_);
  pSplitter->addWidget(tabs_);
  pSplitter->setStretchFactor(1, 1);
  pSplitter->setSizes({kRoomsWidth, width() - kRoomsWidth});
  setCentralWidget(pSplitter);
  auto* pLayout = new QVBoxLayout(list_page_);
  filter_->setObjectName(QStringLiteral("filter"));
  filter_->setClearButtonEnabled(true);
  list_->setObjectName(QStringLiteral("list"));
  list_->setModel(new QSortFilterProxyModel(this));
  static_cast<QSortFilterProxyModel*>(list_->model())->setFilterKeyColumn(-1);
  static_cast<QSortFilterProxyModel*>(list_->model())->setFilterCaseSensitivity(Qt::CaseInsensitive);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSortingEnabled(true);
  list_->setTabKeyNavigation(false);
  list_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  list_->horizontalHeader()->setStretchLastSection(true);
  pLayout->addWidget(filter_);
  pLayout->addWidget(list_);
  tabs_->addTab(list_page_, {});
  tabs_->setTabsClosable(true);
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setTabButton(0, QTabBar::RightSide, nullptr);
  connect(rooms_, &QListWidget::currentRowChanged, this, &MainWindow::show_room);
  connect(list_, &QTableView::activated, this, &MainWindow::open_current_line);
  connect(filter_, &QLineEdit::textChanged, static_cast<QSortFilterProxyModel*>(list_->model()),
          &QSortFilterProxyModel::setFilterFixedString);
  connect(tabs_, &QTabWidget::tabCloseRequested, this, &MainWindow::close_tab);
}

void MainWindow::build_menus() {
  menuBar()->clear();
  QMenu* pFile = menuBar()->addMenu(words("文件"));
  const auto add = [this](QMenu& menu, const char* sCaption, const char* sKeys, auto&& work) {
    QAction* pAction = menu.addAction(words(sCaption));
    pAction->setShortcut(QKeySequence(QString::fromLatin1(sKeys)));
    connect(pAction, &QAction::triggered, this, work);
    return pAction;
  };
  add(*pFile, "新增收款单", "Ctrl+Shift+R", [this] { new_bill("receipt"); });
  add(*pFile, "新增付款单", "Ctrl+Shift+P", [this] { new_bill("payment"); });
  add(*pFile, "打开", "Ctrl+O", [this] { open_current_line(); });
  add(*pFile, "刷新", "F5", [this] { refresh_list(); });
  add(*pFile, "退出", "Ctrl+Q", [this] { close(); });
  QMenu* pView = menuBar()->addMenu(words("视图"));
  inspector_->toggleViewAction()->setText(words("检查器"));
  inspector_->toggleViewAction()->setShortcut(QKeySequence(QStringLiteral("F12")));
  pView->addAction(inspector_->toggleViewAction());
  QMenu* pLanguage = pView->addMenu(words("语言"));
  add(*pLanguage, "简体中文", "", [this] { change_language(Language::Chinese); });
  add(*pLanguage, "English", "", [this] { change_language(Language::English); });
}

void MainWindow::change_language(Language chosen) {
  set_language(chosen);
  build_menus();
  for (int nRoom = 0; nRoom < rooms_->count(); ++nRoom)
    rooms_->item(nRoom)->setText(words(models_[static_cast<std::size_t>(nRoom)]->list().sCaption));
  filter_->setPlaceholderText(words("筛选"));
  inspector_->setWindowTitle(words("检查器"));
  setWindowTitle(words("应收应付") + QStringLiteral(" - ") + qt(seat_.session.user_name()) + QStringLiteral(" - ") +
                 qt(seat_.database().path()));
  if (rooms_->currentRow() >= 0) tabs_->setTabText(0, rooms_->currentItem()->text());
}

int MainWindow::room_count() const { return rooms_->count(); }

void MainWindow::show_room(int nRoom) {
  if (nRoom < 0) return;
  rooms_->setCurrentRow(nRoom);
  static_cast<QSortFilterProxyModel*>(list_->model())->setSourceModel(models_[static_cast<std::size_t>(nRoom)]);
  list_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  refresh_list();
  list_->resizeColumnsToContents();
  tabs_->setTabText(0, rooms_->item(nRoom)->text());
  tabs_->setCurrentIndex(0);
}

void MainWindow::refresh_list() {
  if (rooms_->currentRow() < 0) return;
  try {
    models_[static_cast<std::size_t>(rooms_->currentRow())]->refresh();
    statusBar()->showMessage(QString::number(list_->model()->rowCount()));
  } catch (const DeskError& error) {
    statusBar()->showMessage(qt(error.what()));
  }
}

BillView* MainWindow::add_bill(const std::string& sTemplate) {
  auto* pView = new BillView(seat_, sTemplate, tabs_);
  const int nTab = tabs_->addTab(pView, {});
  connect(pView, &BillView::title_changed, this,
          [this, pView](const QString& sTitle) { tabs_->setTabText(tabs_->indexOf(pView), sTitle); });
  connect(pView, &BillView::stored, this, &MainWindow::refresh_list);
  connect(
      pView, &BillView::closed, this,
      [this, pView] {
        tabs_->removeTab(tabs_->indexOf(pView));
        pView->deleteLater();
        refresh_list();
      },
      Qt::QueuedConnection);
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
  for (int nTab = 1; nTab < tabs_->count(); ++nTab) {
    auto* pView = qobject_cast<BillView*>(tabs_->widget(nTab));
    if (pView == nullptr || !pView->shows(sTemplate, nBillID)) continue;
    tabs_->setCurrentIndex(nTab);
    return pView;
  }
  BillView* pView = add_bill(sTemplate);
  if (pView->open_bill(nBillID)) return pView;
  statusBar()->showMessage(pView->status());
  tabs_->removeTab(tabs_->indexOf(pView));
  delete pView;
  return nullptr;
}

BillView* MainWindow::current_bill() const { return qobject_cast<BillView*>(tabs_->currentWidget()); }

void MainWindow::open_current_line() {
  const QModelIndex current = list_->currentIndex();
  if (!current.isValid() || rooms_->currentRow() < 0) return;
  const BookListModel& model = *models_[static_cast<std::size_t>(rooms_->currentRow())];
  const int nRow = static_cast<QSortFilterProxyModel*>(list_->model())->mapToSource(current).row();
  if (const std::int32_t nBillID = model.bill_id(nRow); nBillID != 0) open_bill(model.list().sTemplate, nBillID);
}

void MainWindow::close_tab(int nTab) {
  if (auto* pView = qobject_cast<BillView*>(tabs_->widget(nTab))) pView->press("mnuFileExit");
}

void MainWindow::closeEvent(QCloseEvent* pEvent) {
  for (int nTab = 1; nTab < tabs_->count(); ++nTab) {
    auto* pView = qobject_cast<BillView*>(tabs_->widget(nTab));
    if (pView == nullptr || pView->may_close()) continue;
    tabs_->setCurrentIndex(nTab);
    return pEvent->ignore();
  }
  pEvent->accept();
}

}  // namespace desk

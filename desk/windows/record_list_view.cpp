#include "windows/record_list_view.h"

#include <QShortcut>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

#include "services/invoice_lists.h"
#include "windows/captions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

constexpr Shortcut kRecordShortcuts[] = {
    {"mnuFileExit", "Ctrl+W"}, {"mnuDataFilter", "Ctrl+F"}, {"mnuExportData", "F11"}, {"mnuFilePrint", "Ctrl+P"}};

std::vector<ListColumn> balance_columns() {
  using Kind = ListColumn::Kind;
  return {{"FPartner", "代码"},
          {"FPartnerName", "往来单位"},
          {"FDate", "日期"},
          {"FDueDate", "到期日"},
          {"FCurrencyName", "币别"},
          {"FAmountFor", "金额", Kind::Money},
          {"FReceiveAmountFor", "已核销", Kind::Money},
          {"FOpenFor", "未核销", Kind::Money},
          {"FNote", "备注"}};
}

/// The command that shows the bill behind a line: the plug-in's own where it has one.
std::string view_tool(const Bar& bar) {
  const BarTool* pOwn = bar.find_tool("mnuViewOldBill");
  return pOwn == nullptr ? "mnuFileView" : pOwn->sName;
}

}  // namespace

RecordRoom invoice_room() {
  RecordRoom room;
  for (const std::int32_t nClass : kInvoiceClasses) room.lists.push_back(invoice_list(nClass));
  room.columns = balance_columns();
  room.columns.insert(room.columns.begin(), {"FBillNo", "单据编号"});
  return room;
}

RecordRoom opening_room() {
  return {{opening_list(OpeningSide::Receivables), opening_list(OpeningSide::Payables)}, balance_columns()};
}

RecordListView::RecordListView(DeskSeat& seat, RecordRoom room, QWidget* pParent)
    : PluginRoom(seat, kRecordShortcuts, pParent),
      room_(std::move(room)),
      window_(open_record_list(seat.database(), room_.lists.front())),
      lists_(new QTabBar(this)),
      view_(new LinesView(room_.columns, this, "FInterID")) {
  auto* pContent = new QWidget(this);
  auto* pLayout = new QVBoxLayout(pContent);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->setSpacing(0);
  pLayout->addWidget(lists_);
  pLayout->addWidget(view_, 1);
  build_lists();
  build(*pContent);
  connect(view_, &LinesView::activated, this, &RecordListView::open_current);
  connect(view_, &LinesView::selection_changed, this, &RoomView::status_changed);
  show_window();
  set_stale(false);
}

RecordListView::~RecordListView() = default;

void RecordListView::build_lists() {
  lists_->setObjectName(QStringLiteral("lists"));
  lists_->setDrawBase(false);
  lists_->setExpanding(false);
  for (const RecordListContent& list : room_.lists) lists_->addTab(qt(list.sCaption));
  connect(lists_, &QTabBar::currentChanged, this, &RecordListView::show_list);
  const auto step = [this](const char* sKeys, int nStep) {
    auto* pKeys = new QShortcut(QKeySequence(QString::fromLatin1(sKeys)), this);
    connect(pKeys, &QShortcut::activated, this, [this, nStep] {
      lists_->setCurrentIndex((lists_->currentIndex() + nStep + lists_->count()) % lists_->count());
    });
  };
  step("Ctrl+PgDown", 1);
  step("Ctrl+PgUp", -1);
}

void RecordListView::show_list(int nList) {
  const RecordListContent& content = room_.lists[static_cast<std::size_t>(nList)];
  if (content.sCaption == window_->content().sCaption) return;
  OpenRecordList opened;
  run(qt(content.sCaption), [&] {
    opened = open_record_list(seat().database(), content);
    return Outcome::done();
  });
  if (opened) {
    std::swap(window_, opened);
    show_bars();
    show_window();
  }
  lists_->setCurrentIndex(nList);
  Q_EMIT status_changed();
}

Outcome RecordListView::run_command(const std::string& sTool) {
  window_->select_lines(view_->selected_lines());
  return window_->press(sTool);
}

void RecordListView::run_desk_command(const std::string& sTool) {
  if (!run_lines_command(sTool, *view_, lists_->tabText(lists_->currentIndex()))) PluginRoom::run_desk_command(sTool);
}

void RecordListView::open_current() { press(view_tool(window_->bar())); }

void RecordListView::retranslate() { view_->retranslate(); }

QString RecordListView::status() const {
  return trouble().isEmpty() ? words("共%1行").arg(view_->model().rowCount()) : trouble();
}

}  // namespace desk

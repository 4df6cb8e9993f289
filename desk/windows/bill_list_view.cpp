#include "windows/bill_list_view.h"

#include <QTableView>

#include <optional>
#include <set>

#include "frame/conversions.h"
#include "windows/batch_progress.h"
#include "windows/captions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

/// A batch of no more bills is done before anybody could read how far it is.
constexpr int kFewBills = 10;

constexpr Shortcut kListShortcuts[] = {
    {"mnuFileNew", "Ctrl+N"},   {"mnuFileExit", "Ctrl+W"},   {"mnuEditDelete", "Del"}, {"Check", "F4"},
    {"UnCheck", "Shift+F4"},    {"mnuDataFilter", "Ctrl+F"}, {"mnuExportData", "F11"}, {"Voucher", "Ctrl+Shift+V"},
    {"mnuFilePrint", "Ctrl+P"}, {"mnuCaculate", "F9"},
};

/// The head's columns, and what an entry names: a source bill that is settled, or a type of income or expense.
std::vector<ListColumn> bill_columns(const BillTemplate& bill) {
  using Kind = ListColumn::Kind;
  const bool bOfTypes = bill.find_key("FInOutTypeID") != BillTemplate::kNone;
  std::vector<ListColumn> columns{{"FBillNo", "单据编号"},
                                  {"FDate", "日期"},
                                  {"FPartner", "往来单位"},
                                  {"FCurrency", "币别"},
                                  {"FAmountFor", bOfTypes ? "金额" : "核销金额", Kind::Money},
                                  {"FStatus", "状态", Kind::State}};
  const auto add = [&columns](std::initializer_list<ListColumn> more) { columns.insert(columns.end(), more); };
  if (bOfTypes) {
    add({{"FInOutType", "类别"},
         {"FBillAmountFor", "分录金额", Kind::Money},
         {"FBillType", "类型"},
         {"FLimitDate", "到期日"},
         {"FCheckAmountFor", "已核销", Kind::Money}});
  } else {
    add({{"FSourceNo", "源单编号"}, {"FBillSettleAmountFor", "本次核销", Kind::Money}});
  }
  add({{"FChecker", "审核人"}, {"FExplanation", "摘要"}});
  return columns;
}

}  // namespace

BillListView::BillListView(DeskSeat& seat, const std::string& sTemplate, QWidget* pParent)
    : PluginRoom(seat, kListShortcuts, pParent),
      template_(sTemplate),
      window_(open_list_window(seat.database(), BillTemplate::shipped(sTemplate))),
      view_(new LinesView(bill_columns(*BillTemplate::shipped(sTemplate)), this)) {
  build(*view_);
  connect(view_, &LinesView::activated, this, &BillListView::open_current);
  connect(view_, &LinesView::selection_changed, this, &RoomView::status_changed);
  view_->show_lines(window_->lines());
  set_stale(false);
}

BillListView::~BillListView() = default;

Outcome BillListView::run_command(const std::string& sTool) {
  const int nBills = selected_bills();
  std::optional<BatchProgress> progress;
  bool bOperated = false;
  const auto step = [&] {
    bOperated = true;
    if (!progress && nBills > kFewBills) progress.emplace(name_of(sTool), nBills, this);
    if (progress) progress->step();
  };
  // A bill counts once when its lines follow each other, so they go in the list's own order.
  window_->select_lines(view_->selected_lines());
  seat().session.result_line_made = step;
  const Outcome pressed = window_->press(sTool);
  seat().session.result_line_made = {};
  // Whether the plug-in asks for it is an option of the book; the desk never leaves lines that are known to be old.
  if (bOperated && !window_->closed()) window_->refresh();
  return pressed;
}

void BillListView::run_desk_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuFileNew")) {
    Q_EMIT bill_wanted(template_, 0);
  } else if (arap::EqualsNoCase(sTool, "mnuFileView") || arap::EqualsNoCase(sTool, "mnuEditModify")) {
    open_current();
  } else if (!run_lines_command(sTool, *view_, windowTitle())) {
    PluginRoom::run_desk_command(sTool);
  }
}

void BillListView::retranslate() { view_->retranslate(); }

void BillListView::open_current() {
  if (const auto nLine = view_->current_line(); nLine && *nLine < window_->lines().size())
    Q_EMIT bill_wanted(template_, window_->lines().integer(*nLine, "FBillID"));
}

int BillListView::selected_bills() const {
  std::set<std::int32_t> bills;
  for (const std::size_t nLine : view_->selected_lines()) {
    if (nLine < window_->lines().size()) bills.insert(window_->lines().integer(nLine, "FBillID"));
  }
  return static_cast<int>(bills.size());
}

QString BillListView::status() const {
  if (!trouble().isEmpty()) return trouble();
  return words("共%1行，已选%2张单据").arg(view_->model().rowCount()).arg(selected_bills());
}

}  // namespace desk

#include "windows/bill_view.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

#include "frame/contract_bill.h"
#include "frame/conversions.h"
#include "windows/calculator.h"
#include "windows/captions.h"
#include "windows/focus_keeper.h"
#include "windows/pointer_shape.h"
#include "windows/print_bill.h"
#include "windows/printing.h"
#include "windows/qt_text.h"
#include "windows/selection_dialog.h"
#include "windows/states.h"
#include "windows/typed_text.h"

namespace desk {

namespace {

constexpr std::string_view kToolBand = "BandToolBar";
constexpr std::string_view kPopBand = "mnuPop";
constexpr std::array kBillShortcuts{
    Shortcut{"mnuFileNew", "Ctrl+N"},        Shortcut{"mnuFileSave", "Ctrl+S"},
    Shortcut{"mnuFilePrint", "Ctrl+P"},      Shortcut{"mnuFileExit", "Ctrl+W"},
    Shortcut{"mnuEditCheck", "F4"},          Shortcut{"mnuEditUnCheck", "Shift+F4"},
    Shortcut{"mnuDataAutoSumAmt", "F8"},     Shortcut{"mnuDataAutoPartAmt", "Shift+F8"},
    Shortcut{"mnuEditAddRow", "Ctrl+Ins"},   Shortcut{"mnuEditDelRow", "Ctrl+Del"},
    Shortcut{"mnuSelectBill_2000001", "F6"}, Shortcut{"mnuSelectBill_2000002", "F6"},
    Shortcut{"mnuViewVch", "Ctrl+Shift+V"},  Shortcut{"mnuDataPre", "Ctrl+PgUp"},
    Shortcut{"mnuDataNext", "Ctrl+PgDown"},  Shortcut{"mnuCalculate", "F9"},
};
constexpr std::int32_t kFirstPanel = 1;
constexpr std::int32_t kLastPanel = 8;

CurrencyNames currency_names(Database& database) {
  CurrencyNames names;
  const Rows rows = database.query("SELECT FCurrencyID, FName FROM t_Currency");
  for (std::size_t i = 0; i < rows.size(); ++i) names[arap::LongOf(rows.at(i, 0))] = qt(arap::Concat(rows.at(i, 1)));
  return names;
}

/// Whether the command takes the bill out of the window.
bool leaves_bill(std::string_view sTool) {
  constexpr std::array<std::string_view, 4> kLeaving{"mnuFileExit", "mnuFileNew", "mnuDataPre", "mnuDataNext"};
  return std::any_of(kLeaving.begin(), kLeaving.end(),
                     [sTool](std::string_view sOther) { return arap::EqualsNoCase(sTool, sOther); });
}

}  // namespace

BillView::BillView(DeskSeat& seat, const std::string& sTemplate, QWidget* pParent)
    : QWidget(pParent), seat_(seat), template_(sTemplate), runner_(seat.log), news_(seat.session) {
  Host host = seat_host(seat_.session, seat_.sToday);
  host.choose_sources = [this](const SourceList& list) { return choose_sources(list); };
  owned_ = open_bill_window(std::move(host), BillTemplate::shipped(sTemplate));
  window_ = owned_.get();
  window_->new_bill();
  build();
}

BillView::BillView(DeskSeat& seat, BillWindow& window, QWidget* pParent)
    : QWidget(pParent), seat_(seat), window_(&window), runner_(seat.log), news_(seat.session) {
  build();
}

BillView::~BillView() = default;

void BillView::build() {
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->setSpacing(0);
  auto* pMenus = new QMenuBar(this);
  pMenus->setNativeMenuBar(false);
  auto* pTools = new QToolBar(this);
  pTools->setToolButtonStyle(Qt::ToolButtonTextOnly);
  head_ = new HeadForm(
      *window_, [this](const std::string& sKey, const QString& sText) { return enter(sKey, arap::kHead, sText); },
      this);
  bars_ = new BarView(
      window_->bar(), {std::string(kToolBand), std::string(kPopBand), kBillShortcuts}, *pMenus, *pTools,
      [this](const std::string& sTool) { press(sTool); }, this);
  for (QWidget* pPart : {static_cast<QWidget*>(pMenus), static_cast<QWidget*>(pTools), static_cast<QWidget*>(head_)})
    pLayout->addWidget(pPart);
  if (window_->bill().pages().size() > 1) build_body();
  pLayout->addStretch();
  pLayout->addWidget(build_status());
  connect(head_, &HeadForm::field_entered, this,
          [this](const QString& sKey) { window_->focus(utf8(sKey), arap::kHead); });
  connect(head_, &HeadForm::refused, this, [this](const QString& sReason) { say(sReason, true); });
}

void BillView::build_body() {
  model_ = new BodyModel(
      *window_, [this](const std::string& sKey, int nRow, const QString& sText) { return enter(sKey, nRow, sText); },
      this);
  body_ = new BodyGrid(
      *model_, [this](const std::string& sKey) { return window_->choices(sKey); }, this);
  static_cast<QVBoxLayout*>(layout())->addWidget(body_, 1);
  bars_->pop_up_over(*body_);
  connect(head_, &HeadForm::left, this, [this] {
    body_->setFocus(Qt::TabFocusReason);
    // Rows that don't come from a selection begin with an empty one.
    if (model_->rowCount() == 0 && window_->bill().selections().empty()) press("mnuEditAddRow");
  });
  connect(body_, &BodyGrid::cell_entered, this,
          [this](const QString& sKey, int nRow) { window_->focus(utf8(sKey), nRow); });
  connect(body_, &BodyGrid::refused, this, [this](const QString& sReason) { say(sReason, true); });
}

QWidget* BillView::build_status() {
  auto* pStatus = new QWidget(this);
  auto* pStatusLine = new QHBoxLayout(pStatus);
  pStatusLine->setContentsMargins(8, 2, 8, 2);
  message_ = new QLabel(pStatus);
  message_->setObjectName(QStringLiteral("message"));
  panels_ = new QLabel(pStatus);
  state_ = new QLabel(pStatus);
  state_->setObjectName(QStringLiteral("state"));
  pStatusLine->addWidget(message_, 1);
  pStatusLine->addWidget(panels_);
  pStatusLine->addWidget(state_);
  return pStatus;
}

void BillView::new_bill() {
  run(words("新单据"), [this] {
    window_->new_bill();
    return Outcome::done();
  });
}

bool BillView::open_bill(std::int32_t nBillID) {
  return run(words("打开"), [this, nBillID] {
    return window_->load_bill(nBillID) ? Outcome::done() : Outcome::refused("单据不存在，可能已被删除。");
  });
}

void BillView::reload() {
  const std::int32_t nBillID = window_->bill_id();
  if (nBillID != 0 && may_close()) open_bill(nBillID);
}

bool BillView::shows(const std::string& sTemplate, std::int32_t nBillID) const {
  return sTemplate == template_ && window_->bill_id() == nBillID;
}

void BillView::focus_first_field() {
  FieldEdit* pPartner = head_->edit(window_->bill().sPartnerField);
  if (FieldEdit* pEdit = pPartner != nullptr ? pPartner : head_->first_free()) pEdit->setFocus(Qt::TabFocusReason);
}

bool BillView::run(const QString& sName, const std::function<Outcome()>& work) {
  if (window_->closed()) return false;
  const auto outcome = runner_.run(sName, work);
  if (!outcome) return false;
  say(qt(outcome->sReason), !outcome->bDone);
  if (window_->closed()) {
    Q_EMIT closed();
  } else {
    refresh();
  }
  return outcome->bDone;
}

bool BillView::enter(const std::string& sKey, int nRow, const QString& sText) {
  const TemplateField& field = window_->bill().field(window_->bill().find_key(sKey));
  const std::string sEntry = complete_entry(field, utf8(sText), seat_.today());
  return run(qt(field.sCaption) + QStringLiteral(": ") + qt(sEntry),
             [&] { return window_->type_field(sKey, nRow, sEntry); });
}

void BillView::press(const std::string& sTool) {
  // What is still in an editor is entered first.
  if (body_ != nullptr) body_->enter_now();
  if (auto* pEdit = qobject_cast<FieldEdit*>(QApplication::focusWidget()); pEdit != nullptr && isAncestorOf(pEdit))
    pEdit->enter_now();
  if (leaves_bill(sTool) && !may_close()) return;
  const BarTool* pTool = window_->bar().find_tool(sTool);
  const QString sName = pTool != nullptr && !pTool->sCaption.empty() ? qt(pTool->sCaption) : qt(sTool);
  const bool bDone = run(sName, [&] { return window_->press(sTool); });
  news_.show(this);
  if (window_->closed()) return;
  if (bDone) run_desk_command(sTool);
  Q_EMIT stored();
}

void BillView::run_desk_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuEditAddRow")) {
    body_->go_to_last_row();
  } else if (arap::EqualsNoCase(sTool, "mnuFilePreview")) {
    preview_html(bill_html(*window_), this);
  } else if (arap::EqualsNoCase(sTool, "mnuFilePrint")) {
    print_html(bill_html(*window_), this);
  } else if (arap::EqualsNoCase(sTool, "mnuDataLookUp")) {
    open_list_in_focus();
  } else if (arap::EqualsNoCase(sTool, "mnuCalculate")) {
    calculate();
  }
}

FieldEdit* BillView::edit_in_focus() const {
  auto* pEdit = qobject_cast<FieldEdit*>(QApplication::focusWidget());
  return pEdit != nullptr && head_->isAncestorOf(pEdit) ? pEdit : nullptr;
}

void BillView::open_list_in_focus() {
  if (FieldEdit* pEdit = edit_in_focus()) return pEdit->open_list(true);
  if (body_ != nullptr && body_->hasFocus()) body_->open_list();
}

/// The result goes to the amount where the caret was, if there is one that can be typed into.
void BillView::calculate() {
  const FieldEdit* pEdit = edit_in_focus();
  const bool bInBody = body_ != nullptr && body_->hasFocus();
  const QModelIndex cell = bInBody ? body_->currentIndex() : QModelIndex();
  std::string sKey;
  int nRow = arap::kHead;
  if (pEdit != nullptr) {
    sKey = utf8(pEdit->objectName());
  } else if (cell.isValid()) {
    sKey = model_->field(cell.column()).sKey;
    nRow = cell.row() + 1;
  }
  const std::size_t nField = window_->bill().find_key(sKey);
  const bool bCanTake = nField != BillTemplate::kNone && window_->bill().field(nField).is_number() &&
                        !window_->bill().field(nField).lookUp && !window_->locked(sKey, nRow);
  if (const auto sResult = Calculator(bCanTake, this).run()) enter(sKey, nRow, *sResult);
}

bool BillView::may_close() {
  if (window_->closed() || window_->edit_mode() == EditMode::ReadOnly || !window_->has_changes()) return true;
  const auto answer =
      QMessageBox::question(this, window_->bill().sCaption.c_str(), words("单据已修改，保存后再关闭吗？"),
                            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (answer == QMessageBox::Cancel) return false;
  if (answer == QMessageBox::No) return true;
  return run(words("保存"), [this] { return window_->save(); });
}

std::vector<std::size_t> BillView::choose_sources(const SourceList& list) {
  const FocusKeeper focus;
  const PointerShape pointer(Qt::ArrowCursor);
  return SelectionDialog(list, currency_names(seat_.database()), this).choose();
}

void BillView::refresh() {
  bars_->refresh();
  head_->refresh();
  if (body_ != nullptr) {
    model_->refresh();
    body_->refresh();
  }
  refresh_status();
}

void BillView::refresh_status() {
  QStringList panels;
  for (std::int32_t nPanel = kFirstPanel; nPanel <= kLastPanel; ++nPanel) {
    const std::string sText = window_->status_panel(nPanel);
    if (!sText.empty()) panels << with_grouped_amounts(qt(sText));
  }
  panels_->setText(panels.join(QStringLiteral("  ")));
  state_->setText(state_text());
  const bool bRecord = body_ == nullptr;
  const QString sNumber = qt(window_->shown(bRecord ? "FNumber" : "FBillNo"));
  Q_EMIT title_changed(words(window_->bill().sCaption.c_str()) + QStringLiteral(" ") +
                       (sNumber.isEmpty() ? words(bRecord ? "新增" : "新单据") : sNumber));
}

QString BillView::state_text() const {
  if (body_ == nullptr) return words(window_->bill_id() == 0 ? "新增" : "修改");
  if (window_->bill_id() == 0) return words("新单据");
  QString sState = words(arap::LongOf(window_->value("FStatus")) == 1 ? "已审核" : "未审核");
  const std::string sChecker = window_->shown("FChecker");
  if (!sChecker.empty()) sState = words("审核人：%1").arg(qt(sChecker));
  if (window_->edit_mode() != EditMode::ReadOnly) return sState;
  const auto holder = seat_.session.tasks().holder_of(edit_function(window_->bill().nClassType), window_->bill_id());
  sState += QStringLiteral("  ") + words("只读");
  if (holder)
    sState += words("：%1在%2上从%3起正在编辑").arg(qt(holder->sUser), qt(holder->sMachine), qt(holder->sSince));
  return sState;
}

void BillView::say(const QString& sText, bool bTrouble) {
  message_->setText(sText);
  message_->setStyleSheet(bTrouble ? QStringLiteral("color: %1").arg(negative_colour().name()) : QString());
}

QString BillView::status() const { return message_->text(); }

}  // namespace desk

#include "engine/list_window.h"

#include <algorithm>
#include <array>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "data/trace.h"
#include "engine/containers.h"
#include "frame/conversions.h"
#include "frame/plugin_entry.h"

namespace desk {

using arap::Event;

/// The window itself, as ListForm.
class ListFormObject final : public arap::Object {
 public:
  explicit ListFormObject(Ref<ListWindow> window) : window_(std::move(window)) {}
  std::string type_name() const override { return "ListForm"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    switch (member) {
      case Member::RefreshList: window_->refresh(); return {};
      case Member::letmessage: return {};  // what the list has to say stands in its lines
      case Member::ShowMode: return static_cast<std::int32_t>(window_->mode_);
      // The desk checks in one level.
      case Member::IsRun:
      case Member::ExistMultiCheck: return false;
      default: no_such_member(member);
    }
  }

 private:
  Ref<ListWindow> window_;
};

class ListServerObject final : public arap::Object {
 public:
  explicit ListServerObject(Ref<ListWindow> window) : window_(std::move(window)) {}
  std::string type_name() const override { return "ListDataServer"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    switch (member) {
      case Member::ClassTypeId: return window_->template_->nClassType;
      case Member::GetBillDetail: return make_recordset(window_->bill_detail(arap::LongOf(argument(args, 0))));
      default: no_such_member(member);
    }
  }

 private:
  Ref<ListWindow> window_;
};

namespace {

struct ListBand {
  std::string_view sName;
  std::string_view sCaption;
  std::vector<std::string_view> aTools;
};

struct ListTool {
  std::string_view sName;
  std::string_view sCaption;
};

/// What the list's own commands are called. A command without a caption is one that the desk doesn't serve; no view
/// shows it.
constexpr std::array kListTools{
    ListTool{"mnuFileNew", "新增"},    ListTool{"mnuFileView", "查看"},   ListTool{"mnuEditModify", "修改"},
    ListTool{"mnuEditDelete", "删除"}, ListTool{"mnuDataFilter", "筛选"}, ListTool{"mnuDataRefesh", "刷新"},
    ListTool{"mnuExportData", "导出"}, ListTool{"mnuFileExit", "退出"},   ListTool{"mnuDataViewNextBill", "关联单据"},
};

/// The bar of every list of the desk.
const std::vector<ListBand>& list_bands() {
  static const std::vector<ListBand> kBands{
      {"menu", "菜单", {"mnuPushBill"}},
      {"BandToolBar",
       "工具栏",
       {"mnuFileNew", "mnuFileView", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuDataFilter", "mnuDataRefesh",
        "mnuDataAccessory", "mnuFilePreview", "mnuFilePrint", "mnuExportData", "mnuFileExit"}},
      {"mnuFile",
       "文件",
       {"mnuFileNew", "mnuExportData", "mnuFilePreview", "mnuFilePrint", "mnuFileSeriesPrintAll",
        "mnuFileSeriesPrintViewAll", "mnuFileExit"}},
      {"mnuEdit", "编辑", {"mnuFileView", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuEditCopyEntry"}},
      {"mnuData",
       "数据",
       {"mnuDataFilter", "mnuDataRefesh", "mnuDataAccessory", "mnuCaculate", "mnuDataViewPrvBill",
        "mnuDataViewNextBill"}},
      {"mnuView", "查看", {"mnuViewToolBar", "mnuViewToolCaption", "mnuDataViewNextBill"}},
      {"mnuFormat", "格式", {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuPreHeadFoot"}},
      {"mnuPop", "快捷", {"mnuFileView", "mnuEditModify", "mnuEditDelete", "mnuEditCopy", "mnuEditCopyEntry"}},
  };
  return kBands;
}

/// The column of an entry that keeps the number of its source, ready to select; nothing for a body without sources.
std::string source_number_column(const BillTemplate& bill) {
  for (const std::size_t nField : bill.page(2).aFields) {
    if (bill.field(nField).sSource == "FBillNo") return ", e." + bill.field(nField).sColumn + " AS FSourceNo";
  }
  return {};
}

/// How the list's query calls the head and the entries.
std::string_view table_of(std::int32_t nPage) { return nPage == 1 ? "h" : "e"; }

/// The names behind look-up fields: columns to select, and the joins that they need.
struct NamesSql {
  std::string sColumns;
  std::string sJoins;
};

NamesSql names_sql(const BillTemplate& bill) {
  NamesSql sql;
  const std::pair<std::string_view, std::string> aNames[] = {{bill.sPartnerField, "FPartner"},
                                                             {bill.sTypeField, "FBillType"},
                                                             {"FCurrencyID", "FCurrency"},
                                                             {"FInOutTypeID", "FInOutType"}};
  for (const auto& [sKey, sName] : aNames) {
    const std::size_t nField = bill.find_key(sKey);
    if (nField == BillTemplate::kNone) continue;
    const TemplateField& field = bill.field(nField);
    const std::string sTable = "n" + sName;
    sql.sColumns.append(", ").append(sTable).append(".FName AS ").append(sName);
    sql.sJoins.append(" LEFT JOIN ").append(field.lookUp->sTable).append(" ").append(sTable);
    sql.sJoins.append(" ON ").append(sTable).append(".").append(field.lookUp->sKeyColumn).append(" = ");
    sql.sJoins.append(table_of(field.nPage)).append(".").append(field.sColumn);
  }
  return sql;
}

Ref<arap::Object> record_of(const Value& vValue) {
  const auto oRecord = arap::make_object<HostDictionary>();
  oRecord->set("FFLD", vValue);
  oRecord->set("FDSP", vValue);
  return oRecord;
}

}  // namespace

ListWindow::ListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode)
    : database_(database), template_(std::move(bill)), mode_(mode), bar_(arap::make_object<Bar>()) {
  build_bar();
}

void ListWindow::build_bar() {
  for (const ListBand& band : list_bands()) {
    BarBand& added = bar_->add_band(band.sName, band.sCaption);
    for (const std::string_view sTool : band.aTools) {
      bar_->add_tool(sTool);
      bar_->place(added, sTool);
    }
  }
  for (const ListTool& tool : kListTools) {
    bar_->find_tool(tool.sName)->sCaption = tool.sCaption;
    bar_->find_tool(tool.sName)->sDescription = tool.sCaption;
  }
}

void ListWindow::open(const Ref<arap::Object>& oPlugin) {
  refresh();
  plugin_ = oPlugin;
  plugin_->call(Member::Show, Ref<arap::Object>(this));
  Variant aBar[] = {Ref<arap::Object>(bar_.get())};
  fire(Event::BarInitialize, aBar);
  fire(Event::MenuBarInitialize, aBar);
  fire(Event::AfterGetData, {});
}

void ListWindow::close() {
  if (std::exchange(closed_, true)) return;
  plugin_ = nullptr;
}

void ListWindow::fire(Event event, Arguments args) {
  trace_event(event, args);
  events_.fire(event, args);
}

void ListWindow::refresh() {
  const NamesSql names = names_sql(*template_);
  lines_ = database_.query(
      "SELECT h.FBillID, h.FBillNo, h.FDate, h.FStatus, h.FAmountFor, h.FChecker, h.FExplanation, e.FIndex" +
      names.sColumns + columns_of(1, {"FLimitDate", "FCheckAmountFor"}) +
      columns_of(2, {"FInterID", "FBillSettleAmountFor", "FInOutTypeID", "FBillAmountFor"}) +
      source_number_column(*template_) + from_bills() + names.sJoins + " ORDER BY h.FBillNo, h.FBillID, e.FIndex");
  selection_.clear();
  ++refreshes_;
}

/// Those of the columns that this page of the bill has.
std::string ListWindow::columns_of(std::int32_t nPage, std::initializer_list<std::string_view> aColumns) const {
  std::string sColumns;
  for (const std::string_view sColumn : aColumns) {
    const std::size_t nField = template_->find_key(sColumn);
    if (nField != BillTemplate::kNone && template_->field(nField).nPage == nPage)
      sColumns.append(", ").append(table_of(nPage)).append(".").append(sColumn);
  }
  return sColumns;
}

std::string ListWindow::from_bills() const {
  return " FROM " + template_->page(1).sTable + " h LEFT JOIN " + template_->page(2).sTable +
         " e ON e.FBillID = h.FBillID";
}

void ListWindow::select_all() {
  selection_.resize(lines_.size());
  for (std::size_t n = 0; n < selection_.size(); ++n) selection_[n] = n;
}

void ListWindow::select_bills(const std::vector<std::int32_t>& aBills) {
  selection_.clear();
  for (std::size_t n = 0; n < lines_.size(); ++n) {
    if (std::find(aBills.begin(), aBills.end(), lines_.integer(n, "FBillID")) != aBills.end()) selection_.push_back(n);
  }
}

void ListWindow::select_lines(std::vector<std::size_t> aLines) {
  for (const std::size_t nLine : aLines) {
    if (nLine >= lines_.size()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::to_string(nLine));
  }
  selection_ = std::move(aLines);
}

Outcome ListWindow::press(std::string_view sTool) {
  const Ref<BarTool> tool(bar_->find_tool(sTool));
  const std::string sName = tool && !tool->sCaption.empty() ? tool->sCaption : std::string(sTool);
  if (!tool) return Outcome::refused("没有命令“" + sName + "”。");
  if (!tool->usable()) return Outcome::refused("命令“" + sName + "”现在不可用。");
  try {
    std::array<Variant, 2> args{Ref<arap::Object>(tool.get()), false};
    fire(Event::MenuBarClick, args);
    return arap::ToBoolean(args[1]) ? Outcome::done() : run_host_command(*tool);
  } catch (const AutomationError& error) {
    return Outcome::refused(error.description());
  }
}

Outcome ListWindow::run_host_command(const BarTool& tool) {
  if (arap::EqualsNoCase(tool.sName, "mnuDataRefesh")) refresh();
  if (arap::EqualsNoCase(tool.sName, "mnuFileExit")) close();
  return Outcome::done();
}

Ref<arap::Object> ListWindow::selected_rows() const {
  const auto oRows = arap::make_object<HostVector>();
  for (const std::size_t nLine : selection_) {
    const auto oRow = arap::make_object<HostDictionary>();
    for (const char* sColumn : {"FBillID", "FBillNo", "FInterID"}) {
      if (lines_.find_column(sColumn) >= 0) oRow->set(sColumn, record_of(lines_.at(nLine, sColumn)));
    }
    oRow->set("FClassTypeID", record_of(template_->nClassType));
    oRows->add(oRow);
  }
  return oRows;
}

Rows ListWindow::bill_detail(std::int32_t nBillID) {
  return database_.query("SELECT h.FStatus, h.FDate, h.FVoucherID AS FVoucherId, h.FCheckAmountFor" +
                             columns_of(2, {"FClassID_SRC", "FInterID"}) + from_bills() +
                             " WHERE h.FBillID = ? ORDER BY e.FIndex",
                         {Bind(nBillID)});
}

Variant ListWindow::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::ListData: return make_recordset(lines_);
    case Member::ListDataServer: return arap::make_object<ListServerObject>(Ref<ListWindow>(this));
    case Member::SelectedRows: return selected_rows();
    case Member::ListForm: return arap::make_object<ListFormObject>(Ref<ListWindow>(this));
    case Member::BarControl: return bar_;
    default: no_such_member(member);
  }
}

OpenListWindow::OpenListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode,
                               const Ref<arap::Object>& oPlugin)
    : window_(arap::make_object<ListWindow>(database, std::move(bill), mode)) {
  try {
    window_->open(oPlugin);
  } catch (...) {
    reset();
    throw;
  }
}

OpenListWindow& OpenListWindow::operator=(OpenListWindow&& other) noexcept {
  if (this == &other) return *this;
  reset();
  std::swap(window_, other.window_);
  return *this;
}

void OpenListWindow::reset() noexcept {
  if (const Ref<ListWindow> window = std::exchange(window_, {})) window->close();
}

OpenListWindow open_list_window(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode) {
  const std::string sProgID = std::string(arap::kLibraryName) + "." + bill->sPluginClass;
  return OpenListWindow(database, std::move(bill), mode, arap::CreatePublicObject(sProgID));
}

}  // namespace desk

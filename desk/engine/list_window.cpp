#include "engine/list_window.h"

#include <algorithm>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

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

namespace {

/// What the desk serves of the list's own commands.
constexpr ShippedTool kListTools[] = {
    {"mnuFileNew", "新增"},     {"mnuFileView", "查看"},   {"mnuEditModify", "修改"},
    {"mnuEditDelete", "删除"},  {"mnuDataFilter", "筛选"}, {"mnuDataRefesh", "刷新"},
    {"mnuExportData", "导出"},  {"mnuFileExit", "退出"},   {"mnuDataViewNextBill", "关联单据"},
    {"mnuFilePreview", "预览"}, {"mnuFilePrint", "打印"},  {"mnuCaculate", "计算器"},
};

/// The bar of every list of the desk.
const std::vector<ShippedBand>& list_bands() {
  static const std::vector<ShippedBand> kBands{
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

}  // namespace

ListWindow::ListWindow(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode)
    : PluginList(database, bill->nClassType, list_bands(), kListTools), template_(std::move(bill)), mode_(mode) {}

Rows ListWindow::read_lines() {
  const NamesSql names = names_sql(*template_);
  return database().query(
      "SELECT h.FBillID, h.FBillNo, h.FDate, h.FStatus, h.FAmountFor, h.FChecker, h.FExplanation, e.FIndex" +
      names.sColumns + columns_of(1, {"FLimitDate", "FCheckAmountFor"}) +
      columns_of(2, {"FInterID", "FBillSettleAmountFor", "FInOutTypeID", "FBillAmountFor"}) +
      source_number_column(*template_) + from_bills() + names.sJoins + " ORDER BY h.FBillNo, h.FBillID, e.FIndex");
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

void ListWindow::select_bills(const std::vector<std::int32_t>& aBills) {
  std::vector<std::size_t> aLines;
  for (std::size_t n = 0; n < lines().size(); ++n) {
    if (std::find(aBills.begin(), aBills.end(), lines().integer(n, "FBillID")) != aBills.end()) aLines.push_back(n);
  }
  select_lines(std::move(aLines));
}

std::optional<Variant> ListWindow::data_call(Member member, Arguments args) {
  if (member != Member::GetBillDetail) return std::nullopt;
  return make_recordset(bill_detail(arap::LongOf(argument(args, 0))));
}

Rows ListWindow::bill_detail(std::int32_t nBillID) {
  return database().query("SELECT h.FStatus, h.FDate, h.FVoucherID AS FVoucherId, h.FCheckAmountFor" +
                              columns_of(2, {"FClassID_SRC", "FInterID"}) + from_bills() +
                              " WHERE h.FBillID = ? ORDER BY e.FIndex",
                          {Bind(nBillID)});
}

Variant ListWindow::invoke(Member member, Access access, Arguments args) {
  if (member != Member::ListForm) return PluginList::invoke(member, access, args);
  if (tracing()) trace_call(*this, member, access, args);
  return arap::make_object<ListFormObject>(Ref<ListWindow>(this));
}

OpenListWindow open_list_window(Database& database, std::shared_ptr<const BillTemplate> bill, ListMode mode) {
  const auto oPlugin = create_plugin(bill->sPluginClass);
  return {arap::make_object<ListWindow>(database, std::move(bill), mode), oPlugin};
}

}  // namespace desk

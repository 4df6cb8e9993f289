#include "engine/record_list.h"

#include <array>

#include "data/automation_names.h"
#include "data/recordset.h"
#include "data/trace.h"
#include "engine/containers.h"
#include "frame/conversions.h"
#include "frame/plugin_entry.h"

namespace desk {

using arap::Event;

namespace {

/// The data object of a list: its class is all that is asked for.
class RecordListServer final : public arap::Object {
 public:
  explicit RecordListServer(std::int32_t nClassType) : class_type_(nClassType) {}
  std::string type_name() const override { return "ListDataServer"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    if (member != Member::ClassTypeId) no_such_member(member);
    return class_type_;
  }

 private:
  std::int32_t class_type_;
};

struct RecordBand {
  std::string_view sName;
  std::string_view sCaption;
  std::vector<std::string_view> aTools;
};

const std::vector<RecordBand>& record_bands() {
  static const std::vector<RecordBand> kBands{
      {"menu", "菜单", {"mnuPushBill"}},
      {"BandToolBar",
       "工具栏",
       {"mnuFileView", "mnuDataRefesh", "mnuDataAccessory", "mnuFilePreview", "mnuFilePrint", "mnuExportData",
        "mnuFileExit"}},
      {"mnuFile",
       "文件",
       {"mnuNoteSetup", "mnuFilePageSetup", "mnuExportData", "mnuFilePreview", "mnuFilePrint", "mnuFileSeriesPrint",
        "mnuFileSeriesPrintView", "mnuFileSeriesPrintAll", "mnuFileSeriesPrintViewAll", "mnuFileUseEconomizePaper",
        "mnuFileExit"}},
      {"mnuEdit", "编辑", {"mnuFileView", "mnuEditCopy", "mnuEditCopyEntry"}},
      {"mnuData", "数据", {"mnuDataRefesh", "mnuDataAccessory", "mnuDataViewPrvBill", "mnuDataViewNextBill"}},
      {"mnuView", "查看", {"mnuViewToolBar", "mnuViewToolCaption"}},
      {"mnuFormat", "格式", {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuPreHeadFoot"}},
      {"mnuPop", "快捷", {"mnuFileView", "mnuEditCopy", "mnuEditCopyEntry"}},
  };
  return kBands;
}

struct RecordTool {
  std::string_view sName;
  std::string_view sCaption;
};

/// What the desk itself serves; the other commands are there for the plug-in to trim.
constexpr RecordTool kServedTools[] = {{"mnuDataRefesh", "刷新"}, {"mnuFileExit", "退出"}};

Ref<arap::Object> record_of(const Value& vValue) {
  const auto oRecord = arap::make_object<HostDictionary>();
  oRecord->set("FFLD", vValue);
  oRecord->set("FDSP", vValue);
  return oRecord;
}

}  // namespace

RecordList::RecordList(Database& database, RecordListContent content)
    : database_(database), content_(std::move(content)), bar_(arap::make_object<Bar>()) {
  build_bar();
}

void RecordList::build_bar() {
  for (const RecordBand& band : record_bands()) {
    BarBand& added = bar_->add_band(band.sName, band.sCaption);
    for (const std::string_view sTool : band.aTools) {
      bar_->add_tool(sTool);
      bar_->place(added, sTool);
    }
  }
  for (const RecordTool& tool : kServedTools) bar_->find_tool(tool.sName)->sCaption = tool.sCaption;
}

void RecordList::open(const Ref<arap::Object>& oPlugin) {
  refresh();
  plugin_ = oPlugin;
  plugin_->call(Member::Show, Ref<arap::Object>(this));
  Variant aBar[] = {Ref<arap::Object>(bar_.get())};
  fire(Event::BarInitialize, aBar);
  fire(Event::MenuBarInitialize, aBar);
  fire(Event::AfterGetData, {});
}

void RecordList::close() {
  if (std::exchange(closed_, true)) return;
  plugin_ = nullptr;
}

void RecordList::fire(Event event, Arguments args) {
  trace_event(event, args);
  events_.fire(event, args);
}

void RecordList::refresh() {
  lines_ = database_.query(content_.sSql, content_.binds);
  selection_.clear();
}

void RecordList::select_lines(std::vector<std::size_t> aLines) {
  for (const std::size_t nLine : aLines) {
    if (nLine >= lines_.size()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::to_string(nLine));
  }
  selection_ = std::move(aLines);
}

Outcome RecordList::press(std::string_view sTool) {
  const Ref<BarTool> tool(bar_->find_tool(sTool));
  const std::string sName = tool && !tool->sCaption.empty() ? tool->sCaption : std::string(sTool);
  if (!tool) return Outcome::refused("没有命令“" + sName + "”。");
  if (!tool->usable()) return Outcome::refused("命令“" + sName + "”现在不可用。");
  try {
    std::array<Variant, 2> args{Ref<arap::Object>(tool.get()), false};
    fire(Event::MenuBarClick, args);
    if (arap::ToBoolean(args[1])) return Outcome::done();
    if (arap::EqualsNoCase(tool->sName, "mnuDataRefesh")) refresh();
    if (arap::EqualsNoCase(tool->sName, "mnuFileExit")) close();
    return Outcome::done();
  } catch (const AutomationError& error) {
    return Outcome::refused(error.description());
  }
}

Ref<arap::Object> RecordList::selected_rows() const {
  const auto oRows = arap::make_object<HostVector>();
  for (const std::size_t nLine : selection_) {
    const auto oRow = arap::make_object<HostDictionary>();
    for (const std::string& sColumn : {content_.sIdColumn, std::string("FBillNo")})
      oRow->set(sColumn, record_of(lines_.at(nLine, sColumn)));
    oRow->set("FClassTypeID", record_of(content_.nClassType));
    oRows->add(oRow);
  }
  return oRows;
}

Variant RecordList::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::ListData: return make_recordset(lines_);
    case Member::ListDataServer: return arap::make_object<RecordListServer>(content_.nClassType);
    case Member::SelectedRows: return selected_rows();
    case Member::BarControl: return bar_;
    default: no_such_member(member);
  }
}

OpenRecordList::OpenRecordList(Database& database, RecordListContent content, const Ref<arap::Object>& oPlugin)
    : list_(arap::make_object<RecordList>(database, std::move(content))) {
  try {
    list_->open(oPlugin);
  } catch (...) {
    reset();
    throw;
  }
}

OpenRecordList& OpenRecordList::operator=(OpenRecordList&& other) noexcept {
  if (this == &other) return *this;
  reset();
  std::swap(list_, other.list_);
  return *this;
}

void OpenRecordList::reset() noexcept {
  if (const Ref<RecordList> list = std::exchange(list_, {})) list->close();
}

OpenRecordList open_record_list(Database& database, RecordListContent content) {
  const std::string sProgID = std::string(arap::kLibraryName) + "." + content.sPluginClass;
  return OpenRecordList(database, std::move(content), arap::CreatePublicObject(sProgID));
}

}  // namespace desk

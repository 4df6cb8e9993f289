#include "engine/record_list.h"

namespace desk {

namespace {

const std::vector<ShippedBand>& record_bands() {
  static const std::vector<ShippedBand> kBands{
      {"menu", "菜单", {"mnuPushBill"}},
      {"BandToolBar",
       "工具栏",
       {"mnuFileView", "mnuDataFilter", "mnuDataRefesh", "mnuDataAccessory", "mnuFilePreview", "mnuFilePrint",
        "mnuExportData", "mnuFileExit"}},
      {"mnuFile",
       "文件",
       {"mnuNoteSetup", "mnuFilePageSetup", "mnuExportData", "mnuFilePreview", "mnuFilePrint", "mnuFileSeriesPrint",
        "mnuFileSeriesPrintView", "mnuFileSeriesPrintAll", "mnuFileSeriesPrintViewAll", "mnuFileUseEconomizePaper",
        "mnuFileExit"}},
      {"mnuEdit", "编辑", {"mnuFileView", "mnuEditCopy", "mnuEditCopyEntry"}},
      {"mnuData",
       "数据",
       {"mnuDataFilter", "mnuDataRefesh", "mnuDataAccessory", "mnuDataViewPrvBill", "mnuDataViewNextBill"}},
      {"mnuView", "查看", {"mnuViewToolBar", "mnuViewToolCaption"}},
      {"mnuFormat", "格式", {"mnuFormatRowHeight", "mnuFormatFont", "mnuFormatOpt", "mnuPreHeadFoot"}},
      {"mnuPop", "快捷", {"mnuFileView", "mnuEditCopy", "mnuEditCopyEntry"}},
  };
  return kBands;
}

/// What the desk itself serves; the other commands are there for the plug-in to trim.
constexpr ShippedTool kRecordTools[] = {
    {"mnuFileView", "查看"},    {"mnuDataFilter", "筛选"}, {"mnuDataRefesh", "刷新"}, {"mnuExportData", "导出"},
    {"mnuFilePreview", "预览"}, {"mnuFilePrint", "打印"},  {"mnuFileExit", "退出"}};

}  // namespace

RecordList::RecordList(Database& database, RecordListContent content)
    : PluginList(database, content.nClassType, record_bands(), kRecordTools), content_(std::move(content)) {}

OpenRecordList open_record_list(Database& database, RecordListContent content) {
  const auto oPlugin = create_plugin(content.sPluginClass);
  return {arap::make_object<RecordList>(database, std::move(content)), oPlugin};
}

}  // namespace desk

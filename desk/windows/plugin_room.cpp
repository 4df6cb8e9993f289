#include "windows/plugin_room.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include "frame/conversions.h"
#include "windows/calculator.h"
#include "windows/csv_export.h"
#include "windows/printing.h"
#include "windows/qt_text.h"

namespace desk {

namespace {
constexpr std::string_view kToolBand = "BandToolBar";
constexpr std::string_view kPopBand = "mnuPop";
}  // namespace

PluginRoom::PluginRoom(DeskSeat& seat, std::span<const Shortcut> shortcuts, QWidget* pParent)
    : RoomView(pParent),
      seat_(seat),
      shortcuts_(shortcuts),
      runner_(seat.log),
      news_(seat.session),
      menus_(new QMenuBar(this)),
      tools_(new QToolBar(this)) {
  menus_->setNativeMenuBar(false);
  tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
}

void PluginRoom::build(QWidget& content) {
  auto* pLayout = new QVBoxLayout(this);
  pLayout->setContentsMargins(0, 0, 0, 0);
  pLayout->setSpacing(0);
  pLayout->addWidget(menus_);
  pLayout->addWidget(tools_);
  pLayout->addWidget(&content, 1);
  show_bars();
}

void PluginRoom::show_bars() {
  delete bars_;
  bars_ = new BarView(
      plugin_window().bar(), {std::string(kToolBand), std::string(kPopBand), shortcuts_}, *menus_, *tools_,
      [this](const std::string& sTool) { press(sTool); }, this);
  bars_->pop_up_over(table());
}

QString PluginRoom::name_of(const std::string& sTool) {
  const BarTool* pTool = plugin_window().bar().find_tool(sTool);
  return pTool != nullptr && !pTool->sCaption.empty() ? qt(pTool->sCaption) : qt(sTool);
}

bool PluginRoom::run(const QString& sName, const std::function<Outcome()>& work) {
  const auto outcome = runner_.run(sName, work);
  if (outcome) trouble_ = outcome->bDone ? QString() : qt(outcome->sReason);
  return outcome.has_value();
}

void PluginRoom::press(const std::string& sTool) {
  bool bDone = false;
  const auto work = [&] {
    Outcome outcome = run_command(sTool);
    bDone = outcome.bDone;
    return outcome;
  };
  if (!run(name_of(sTool), work)) return;
  if (plugin_window().closed()) {
    Q_EMIT closed();
    return;
  }
  bars_->refresh();
  show_window();
  news_.show(this);
  if (bDone) run_desk_command(sTool);
  Q_EMIT stored();
  Q_EMIT status_changed();
}

void PluginRoom::run_desk_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuFilePreview")) {
    preview_html(html(), this);
  } else if (arap::EqualsNoCase(sTool, "mnuFilePrint")) {
    print_html(html(), this);
  } else if (arap::EqualsNoCase(sTool, "mnuCaculate")) {
    Calculator(false, this).run();
  }
}

bool PluginRoom::run_lines_command(const std::string& sTool, LinesView& lines, const QString& sName) {
  if (arap::EqualsNoCase(sTool, "mnuDataFilter")) {
    lines.filter().setFocus(Qt::ShortcutFocusReason);
    return true;
  }
  if (!arap::EqualsNoCase(sTool, "mnuExportData")) return false;
  ask_and_export_csv(lines.model(), sName, this);
  return true;
}

void PluginRoom::refresh() {
  plugin_window().refresh();
  show_window();
  Q_EMIT status_changed();
}

}  // namespace desk

#include "engine/plugin_window.h"

#include <array>

#include "data/automation_names.h"
#include "data/trace.h"
#include "frame/conversions.h"
#include "frame/plugin_entry.h"

namespace desk {

using arap::Event;

PluginWindow::PluginWindow(std::span<const ShippedBand> aBands, std::span<const ShippedTool> aTools)
    : bar_(arap::make_object<Bar>()) {
  fill_bar(*bar_, aBands, aTools);
}

void PluginWindow::bind(const Ref<arap::Object>& oPlugin) {
  plugin_ = oPlugin;
  plugin_->call(Member::Show, Ref<arap::Object>(this));
  Variant aBar[] = {Ref<arap::Object>(bar_.get())};
  fire(Event::BarInitialize, aBar);
  fire(Event::MenuBarInitialize, aBar);
}

void PluginWindow::close() {
  if (std::exchange(closed_, true)) return;
  let_go();
  plugin_ = nullptr;
}

void PluginWindow::fire(Event event, Arguments args) {
  trace_event(event, args);
  events_.fire(event, args);
}

Outcome PluginWindow::press(std::string_view sTool) {
  const Ref<BarTool> tool(bar_->find_tool(sTool));
  const std::string sName = tool && !tool->sCaption.empty() ? tool->sCaption : std::string(sTool);
  if (!tool) return Outcome::refused("没有命令“" + sName + "”。");
  if (!tool->usable()) return Outcome::refused("命令“" + sName + "”现在不可用。");
  try {
    std::array<Variant, 2> args{Ref<arap::Object>(tool.get()), false};
    fire(Event::MenuBarClick, args);
    return arap::ToBoolean(args[1]) ? cancelled() : run_host_command(tool->sName);
  } catch (const AutomationError& error) {
    return Outcome::refused(error.description());
  } catch (const DeskError& error) {
    return Outcome::refused(error.problem() + (error.hint().empty() ? "" : " " + error.hint()));
  }
}

Outcome PluginWindow::run_host_command(const std::string& sTool) {
  if (arap::EqualsNoCase(sTool, "mnuDataRefesh")) refresh();
  if (arap::EqualsNoCase(sTool, "mnuFileExit")) close();
  return Outcome::done();
}

Ref<arap::Object> create_plugin(std::string_view sClass) {
  return arap::CreatePublicObject(std::string(arap::kLibraryName) + "." + std::string(sClass));
}

}  // namespace desk

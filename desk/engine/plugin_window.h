#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/bars.h"
#include "engine/host.h"
#include "engine/open_window.h"
#include "frame/event_binding.h"

namespace desk {

/// A window of lines with a bar and a plug-in behind it, without a window: lists and base data. Views, the command line
/// and tests use the public members; the plug-in sees an automation object of the derived class.
class PluginWindow : public arap::Object {
 public:
  // --- the user ---------------------------------------------------------------------------------------------------

  /// Reads what the window shows anew.
  virtual void refresh() = 0;
  /// Presses a command of the bar. The plug-in comes first; what it doesn't cancel is left to the window.
  Outcome press(std::string_view sTool);
  /// Lets the plug-in go.
  void close();

  // --- what can be seen -------------------------------------------------------------------------------------------

  Bar& bar() { return *bar_; }
  /// How often what it shows was read; a view reads again when the number moves.
  std::int32_t refreshes() const { return refreshes_; }
  bool closed() const { return closed_; }

  // --- the plug-in ------------------------------------------------------------------------------------------------

  arap::EventSource* event_source() override { return &events_; }

 protected:
  PluginWindow(std::span<const ShippedBand> aBands, std::span<const ShippedTool> aTools);

  /// Binds the plug-in by its Show and lets it set the bar.
  void bind(const arap::Ref<arap::Object>& oPlugin);
  void fire(arap::Event event, arap::Arguments args);
  const arap::Ref<arap::Object>& plugin() const { return plugin_; }
  const arap::Ref<Bar>& bar_object() const { return bar_; }
  void count_refresh() { ++refreshes_; }

  /// The window's own part of a command.
  virtual Outcome run_host_command(const std::string& sTool);
  /// What a command comes to that the plug-in has cancelled.
  virtual Outcome cancelled() const { return Outcome::done(); }
  /// Lets go what belongs to the window.
  virtual void let_go() {}

 private:
  arap::EventSourceList events_;
  arap::Ref<arap::Object> plugin_;
  arap::Ref<Bar> bar_;
  std::int32_t refreshes_ = 0;
  bool closed_ = false;
};

/// An object of the plug-in by its class: "clsReceiveBill".
arap::Ref<arap::Object> create_plugin(std::string_view sClass);

}  // namespace desk

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/automation.h"

namespace desk {

/// A command of a bar: one state, wherever bands show it.
class BarTool final : public arap::Object {
 public:
  explicit BarTool(std::string_view sToolName) : sName(sToolName) {}
  std::string type_name() const override { return "Tool"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  /// Can be pressed now.
  bool usable() const { return bVisible && bEnabled; }
  /// The source type that a selection opens: ToolId, or else the number in Tag.
  std::int32_t selection_type() const;

  std::string sName;
  std::string sCaption;
  std::string sDescription;
  std::string sShortText;
  std::string sCategory;
  std::int32_t nStyle = 0;
  std::int32_t nToolId = 0;
  std::int32_t nColourKey = 0;
  bool bVisible = true;
  bool bEnabled = true;
  bool bChecked = false;
  bool bBeginGroup = false;
  arap::Variant vTag;
  arap::Variant vPicture;

 private:
  void write(arap::Member member, const arap::Variant& vValue);
  arap::Variant read(arap::Member member) const;
};

class Bar;

/// A menu or toolbar: places tools of its bar in an order.
class BarBand final : public arap::Object {
 public:
  BarBand(std::string_view sBandName, std::string_view sBandCaption) : sName(sBandName), sCaption(sBandCaption) {}
  std::string type_name() const override { return "Band"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  std::string sName;
  std::string sCaption;
  bool bVisible = true;
  bool bEnabled = true;
  std::vector<arap::Ref<BarTool>> aTools;

 private:
  friend class Bar;
  Bar* bar_ = nullptr;
};

/// The bar of a window: all its tools, and the bands that show them.
class Bar final : public arap::Object {
 public:
  ~Bar() override;
  std::string type_name() const override { return "ActiveBar"; }
  arap::Variant invoke(arap::Member member, arap::Access access, arap::Arguments args) override;

  /// nullptr when the bar has none of that name; names without regard to case.
  BarTool* find_tool(std::string_view sName) const;
  BarBand* find_band(std::string_view sName) const;
  /// The tool of that name, made when it isn't there yet.
  arap::Ref<BarTool> add_tool(std::string_view sName);
  BarBand& add_band(std::string_view sName, std::string_view sCaption);

  /// Places a tool of the bar in a band, at the end or at the 0-based position; a tool that the band has stays where it
  /// is. A tool that the bar lacks raises 5.
  void place(BarBand& band, std::string_view sTool, std::int32_t nPosition = -1);

  /// Remembers which tools are visible and enabled now; restore_tools brings that back for the tools of that time.
  void keep_tools();
  void restore_tools();

  const std::vector<arap::Ref<BarTool>>& tools() const { return tools_; }
  const std::vector<arap::Ref<BarBand>>& bands() const { return bands_; }

 private:
  std::vector<arap::Ref<BarTool>> tools_;
  std::vector<arap::Ref<BarBand>> bands_;
  std::vector<std::pair<bool, bool>> kept_;  // visible and enabled, in the order of the tools
};

/// What a command of a shipped bar is called. A command without a caption is one that the desk doesn't serve; no view
/// shows it.
struct ShippedTool {
  std::string_view sName;
  std::string_view sCaption;
};

/// A band of a shipped bar with its commands, in order.
struct ShippedBand {
  std::string_view sName;
  std::string_view sCaption;
  std::vector<std::string_view> aTools;
};

/// Fills a bar that has nothing yet.
void fill_bar(Bar& bar, std::span<const ShippedBand> aBands, std::span<const ShippedTool> aTools);

}  // namespace desk

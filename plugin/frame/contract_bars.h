#pragma once

#include "frame/contract_containers.h"
#include "frame/open_choices.h"

namespace arap {

/// A command of a bar, as button and as menu item.
class Tool : public View {
 public:
  using View::View;
  Variant Name() const { return get(Member::Name); }
  void SetName(const Variant& vName) const { put(Member::Name, vName); }
  void SetCaption(const Variant& vText) const { put(Member::Caption, vText); }
  void SetDescription(const Variant& vText) const { put(Member::Description, vText); }
  void SetShortText(const Variant& vText) const { put(open_choices::kToolShortText, vText); }
  void SetCategory(const Variant& vText) const { put(Member::Category, vText); }
  /// The bar's own number of a look: 0 is a plain button with caption and picture.
  /// The rules also give 1 and 27, as they stand.
  void SetStyle(std::int32_t nStyle) const { put(Member::Style, nStyle); }
  bool Visible() const { return ToBoolean(get(Member::Visible)); }
  void SetVisible(bool bVisible) const { put(Member::Visible, bVisible); }
  bool Enabled() const { return ToBoolean(get(Member::Enabled)); }
  void SetEnabled(bool bEnabled) const { put(Member::Enabled, bEnabled); }
  bool Checked() const { return ToBoolean(get(open_choices::kToolChecked)); }
  void SetChecked(bool bChecked) const { put(open_choices::kToolChecked, bChecked); }
  void SetBeginGroup(bool bBeginGroup) const { put(Member::BeginGroup, bBeginGroup); }
  /// What the host is to find on the tool: a kind of selection, as text.
  void SetTag(const Variant& vTag) const { put(Member::Tag, vTag); }
  /// The kind of selection that the host opens when the tool was pressed, 2000001 and so on.
  void SetToolId(std::int32_t nToolId) const { put(Member::ToolId, nToolId); }
  /// nColourKey (0xRRGGBB) is the colour of the picture that counts as transparent.
  void SetPicture(const Variant& vPicture, std::int32_t nColourKey) const {
    call(Member::SetPicture, vPicture, nColourKey);
  }
  /// Makes the tool unusable through the member that open_choices.h names.
  void SwitchOff() const { put(open_choices::kToolSwitchedOff, false); }
};

/// The tools of a bar or of a band; 0-based by position, or by name.
class ToolCollection : public View {
 public:
  using View::View;
  std::int32_t Count() const { return LongOf(get(Member::Count)); }
  Tool Item(const Variant& vNameOrIndex) const { return Tool(get(Member::Item, vNameOrIndex)); }
  /// On a bar: makes a new tool of that name.
  Tool Add(const Variant& vName) const { return Tool(call(Member::Add, vName)); }
  /// On a band: places the bar's tool of that name at the end, or at the 0-based position.
  void Place(const Variant& vName) const { call(Member::Add, vName); }
  void Insert(std::int32_t nIndex, const Variant& vName) const { call(Member::Insert, nIndex, vName); }
};

/// A menu or a tool bar: tools in a row.
class Band : public View {
 public:
  using View::View;
  ToolCollection Tools() const { return ToolCollection(get(Member::Tools)); }
  Tool Tools(const Variant& vNameOrIndex) const { return Tools().Item(vNameOrIndex); }
  void SetCaption(const Variant& vText) const { put(Member::Caption, vText); }
  void SetVisible(bool bVisible) const { put(Member::Visible, bVisible); }
  void SetEnabled(bool bEnabled) const { put(Member::Enabled, bEnabled); }
};

/// The bar control of a window: its bands, and all tools that stand in one of them or in none yet.
class ActiveBar : public View {
 public:
  using View::View;
  /// Raises the bar's error for a band it lacks.
  Band Bands(const Variant& vName) const { return Band(get(Member::Bands, vName)); }
  ToolCollection Tools() const { return ToolCollection(get(Member::Tools)); }
  Tool Tools(const Variant& vName) const { return Tools().Item(vName); }
  /// Tools that came or went are seen from here on.
  void RecalcLayout() const { call(Member::RecalcLayout); }
};

}  // namespace arap

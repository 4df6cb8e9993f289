#include "engine/bars.h"

#include <algorithm>

#include "data/automation_names.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

namespace {

template <class T>
T* find_named(const std::vector<Ref<T>>& items, std::string_view sName) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const Ref<T>& item) { return arap::EqualsNoCase(item->sName, sName); });
  return found == items.end() ? nullptr : found->get();
}

/// A member of a collection by name or 0-based position. Raises 9 when there is none.
template <class T>
Variant item_of(const std::vector<Ref<T>>& items, const Variant& vNameOrIndex) {
  if (vNameOrIndex.is_text()) {
    if (T* pItem = find_named(items, vNameOrIndex.text())) return Ref<T>(pItem);
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, vNameOrIndex.text());
  }
  const std::int32_t nIndex = arap::LongOf(vNameOrIndex);
  if (nIndex < 0 || static_cast<std::size_t>(nIndex) >= items.size()) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::to_string(nIndex));
  }
  return items[static_cast<std::size_t>(nIndex)];
}

/// The Tools collection of a bar (no band) or of a band.
class ToolList final : public arap::Object {
 public:
  ToolList(Ref<Bar> bar, Ref<BarBand> band) : bar_(std::move(bar)), band_(std::move(band)) {}
  std::string type_name() const override { return "Tools"; }

  Variant invoke(Member member, Access access, Arguments args) override {
    if (tracing()) trace_call(*this, member, access, args);
    switch (member) {
      case Member::Count: return static_cast<std::int32_t>(tools().size());
      case Member::Default:
      case Member::Item: return item_of(tools(), argument(args, 0));
      case Member::Add: return add(arap::Concat(argument(args, 0)));
      case Member::Insert:
        if (!band_) no_such_member(member);
        bar_->place(*band_, arap::Concat(argument(args, 1)), arap::LongOf(argument(args, 0)));
        return {};
      default: no_such_member(member);
    }
  }

 private:
  const std::vector<Ref<BarTool>>& tools() const { return band_ ? band_->aTools : bar_->tools(); }
  Variant add(const std::string& sName) {
    if (!band_) return bar_->add_tool(sName);
    bar_->place(*band_, sName);
    return Ref<BarTool>(bar_->find_tool(sName));
  }

  Ref<Bar> bar_;
  Ref<BarBand> band_;
};

}  // namespace

std::int32_t BarTool::selection_type() const { return nToolId != 0 ? nToolId : arap::LongOf(vTag); }

Variant BarTool::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, sName);
  if (member == Member::SetPicture) {
    vPicture = argument(args, 0);
    nColourKey = args.size() > 1 ? arap::LongOf(args[1]) : 0;
    return {};
  }
  if (!is_put(access)) return read(member);
  write(member, argument(args, 0));
  return {};
}

void BarTool::write(Member member, const Variant& vValue) {
  switch (member) {
    case Member::Name: sName = arap::Concat(vValue); return;
    case Member::Caption: sCaption = arap::Concat(vValue); return;
    case Member::Description: sDescription = arap::Concat(vValue); return;
    case Member::ToolTipText: sShortText = arap::Concat(vValue); return;
    case Member::Category: sCategory = arap::Concat(vValue); return;
    case Member::Style: nStyle = arap::LongOf(vValue); return;
    case Member::Visible: bVisible = arap::ToBoolean(vValue); return;
    case Member::Enabled: bEnabled = arap::ToBoolean(vValue); return;
    case Member::Checked: bChecked = arap::ToBoolean(vValue); return;
    case Member::BeginGroup: bBeginGroup = arap::ToBoolean(vValue); return;
    case Member::Tag: vTag = vValue; return;
    case Member::ToolId: nToolId = arap::LongOf(vValue); return;
    default: no_such_member(member);
  }
}

Variant BarTool::read(Member member) const {
  switch (member) {
    case Member::Default:
    case Member::Name: return sName;
    case Member::Caption: return sCaption;
    case Member::Description: return sDescription;
    case Member::ToolTipText: return sShortText;
    case Member::Category: return sCategory;
    case Member::Style: return nStyle;
    case Member::Visible: return bVisible;
    case Member::Enabled: return bEnabled;
    case Member::Checked: return bChecked;
    case Member::BeginGroup: return bBeginGroup;
    case Member::Tag: return vTag;
    case Member::ToolId: return nToolId;
    default: no_such_member(member);
  }
}

Variant BarBand::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args, sName);
  switch (member) {
    case Member::Name: return sName;
    case Member::Tools:
      if (!args.empty()) return item_of(aTools, args[0]);
      if (bar_ == nullptr) throw AutomationError(ErrorNumber::ObjectNotSet);
      return arap::make_object<ToolList>(Ref<Bar>(bar_), Ref<BarBand>(this));
    case Member::Caption:
      if (!is_put(access)) return sCaption;
      sCaption = arap::Concat(argument(args, 0));
      return {};
    case Member::Visible:
      if (!is_put(access)) return bVisible;
      bVisible = arap::ToBoolean(argument(args, 0));
      return {};
    case Member::Enabled:
      if (!is_put(access)) return bEnabled;
      bEnabled = arap::ToBoolean(argument(args, 0));
      return {};
    default: no_such_member(member);
  }
}

Bar::~Bar() {
  for (const Ref<BarBand>& band : bands_) band->bar_ = nullptr;
}

Variant Bar::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  switch (member) {
    case Member::Bands: return item_of(bands_, argument(args, 0));
    case Member::Tools:
      if (!args.empty()) return item_of(tools_, args[0]);
      return arap::make_object<ToolList>(Ref<Bar>(this), Ref<BarBand>());
    case Member::RecalcLayout: return {};  // a view draws its bars anew after each command
    default: no_such_member(member);
  }
}

BarTool* Bar::find_tool(std::string_view sName) const { return find_named(tools_, sName); }
BarBand* Bar::find_band(std::string_view sName) const { return find_named(bands_, sName); }

Ref<BarTool> Bar::add_tool(std::string_view sName) {
  if (BarTool* pTool = find_tool(sName)) return Ref<BarTool>(pTool);
  tools_.push_back(arap::make_object<BarTool>(sName));
  return tools_.back();
}

BarBand& Bar::add_band(std::string_view sName, std::string_view sCaption) {
  bands_.push_back(arap::make_object<BarBand>(sName, sCaption));
  bands_.back()->bar_ = this;
  return *bands_.back();
}

void Bar::keep_tools() {
  kept_.clear();
  for (const Ref<BarTool>& tool : tools_) kept_.emplace_back(tool->bVisible, tool->bEnabled);
}

void Bar::restore_tools() {
  for (std::size_t i = 0; i < kept_.size(); ++i) {
    tools_[i]->bVisible = kept_[i].first;
    tools_[i]->bEnabled = kept_[i].second;
  }
}

void Bar::place(BarBand& band, std::string_view sTool, std::int32_t nPosition) {
  BarTool* pTool = find_tool(sTool);
  if (pTool == nullptr) throw AutomationError(ErrorNumber::InvalidProcedureCall, sTool);
  if (find_named(band.aTools, sTool) != nullptr) return;
  const auto nSize = static_cast<std::int32_t>(band.aTools.size());
  const std::int32_t nPlace = nPosition < 0 ? nSize : std::min(nPosition, nSize);
  band.aTools.insert(band.aTools.begin() + nPlace, Ref<BarTool>(pTool));
}

void fill_bar(Bar& bar, std::span<const ShippedBand> aBands, std::span<const ShippedTool> aTools) {
  for (const ShippedBand& band : aBands) {
    BarBand& added = bar.add_band(band.sName, band.sCaption);
    for (const std::string_view sTool : band.aTools) {
      bar.add_tool(sTool);
      bar.place(added, sTool);
    }
  }
  for (const ShippedTool& tool : aTools) {
    const Ref<BarTool> oTool = bar.add_tool(tool.sName);
    oTool->sCaption = tool.sCaption;
    oTool->sDescription = tool.sCaption;
  }
}

}  // namespace desk

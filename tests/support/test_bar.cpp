#include "support/test_bar.h"

#include <algorithm>

namespace arap::testing {

namespace {

constexpr Member kToolMembers[] = {Member::Name,       Member::Caption, Member::Description, Member::ToolTipText,
                                   Member::Style,      Member::Visible, Member::Enabled,     Member::Checked,
                                   Member::BeginGroup, Member::Tag,     Member::ToolId,      Member::Category};

bool is_flag(Member member) {
  return member == Member::Visible || member == Member::Enabled || member == Member::Checked ||
         member == Member::BeginGroup;
}

Variant default_of(Member member) {
  switch (member) {
    case Member::Visible:
    case Member::Enabled: return true;
    case Member::Checked:
    case Member::BeginGroup: return false;
    case Member::Style:
    case Member::ToolId: return std::int32_t{0};
    default: return "";
  }
}

/// Flags are kept as booleans, whatever was put.
Variant stored(Member member, const Variant& vValue) {
  if (!is_flag(member) || vValue.type() == Variant::Type::Boolean) return vValue;
  return plain_number(vValue) != 0;
}

void store(std::vector<std::pair<Member, Variant>>& aValues, Member member, const Variant& vValue) {
  for (auto& [known, value] : aValues) {
    if (known == member) {
      value = vValue;
      return;
    }
  }
  aValues.emplace_back(member, vValue);
}

bool is_put(Access access) { return access == Access::Put || access == Access::PutRef; }

}  // namespace

TestTool::TestTool(std::string sName, std::string sPlace, Ref<TestTool> parent)
    : place_(std::move(sPlace)), parent_(std::move(parent)) {
  set(Member::Name, sName);
}

const Variant* TestTool::own(Member member) const {
  for (const auto& [known, value] : values_) {
    if (known == member) return &value;
  }
  return nullptr;
}

Variant TestTool::property(Member member) const {
  if (const Variant* pOwn = own(member)) return *pOwn;
  return parent_ ? parent_->property(member) : default_of(member);
}

void TestTool::set(Member member, Variant vValue) { store(values_, member, stored(member, vValue)); }

Variant TestTool::handle(Member member, Access access, Arguments args) {
  if (member == Member::SetPicture) {
    picture = argument(args, 0);
    if (args.size() > 1) colour_key = args[1];
    return {};
  }
  if (std::find(std::begin(kToolMembers), std::end(kToolMembers), member) == std::end(kToolMembers)) {
    no_such_member(member);
  }
  if (!is_put(access)) return property(member);
  set(member, argument(args, 0));
  return {};
}

TestTool* TestTools::find(std::string_view sName) const {
  for (const Ref<TestTool>& tool : tools_) {
    if (same_name(tool->name(), sName)) return tool.get();
  }
  return nullptr;
}

void TestTools::remove(std::string_view sName) {
  std::erase_if(tools_, [sName](const Ref<TestTool>& tool) { return same_name(tool->name(), sName); });
}

std::vector<std::string> TestTools::names() const {
  std::vector<std::string> aNames;
  for (const Ref<TestTool>& tool : tools_) aNames.push_back(tool->name());
  return aNames;
}

TestTool& TestTools::insert(std::size_t nIndex, std::string_view sName) {
  Ref<TestTool> parent;
  if (band_) parent = Ref<TestTool>(&bar_->tool(sName));
  const auto place = tools_.begin() + static_cast<std::ptrdiff_t>(std::min(nIndex, tools_.size()));
  return **tools_.insert(place, make_object<TestTool>(std::string(sName), place_, parent));
}

std::string TestTools::taken_name(const Variant& vTool) {
  if (!vTool.is_object()) return plain_text(vTool);
  const std::string sName = plain_text(vTool.object()->get(Member::Name));
  if (bar_->has(sName)) return sName;
  TestTool& tool = bar_->tools().add(sName);
  const auto* pOther = dynamic_cast<const TestTool*>(vTool.object().get());
  if (pOther == nullptr) return sName;
  for (const Member member : kToolMembers) tool.set(member, pOther->property(member));
  tool.picture = pOther->picture;
  tool.colour_key = pOther->colour_key;
  return sName;
}

Ref<TestTool> TestTools::item(const Variant& vNameOrIndex) const {
  if (vNameOrIndex.is_text()) {
    if (TestTool* pTool = find(vNameOrIndex.text())) return Ref<TestTool>(pTool);
  } else {
    const double dIndex = plain_number(vNameOrIndex);
    if (dIndex >= 0 && dIndex < static_cast<double>(tools_.size())) return tools_[static_cast<std::size_t>(dIndex)];
  }
  throw AutomationError(ErrorNumber::SubscriptOutOfRange, place_ + "." + plain_text(vNameOrIndex));
}

Variant TestTools::handle(Member member, Access, Arguments args) {
  switch (member) {
    case Member::Count: return static_cast<std::int32_t>(tools_.size());
    case Member::Default:
    case Member::Item: return item(argument(args, 0));
    case Member::Add: {
      const std::string sName = taken_name(argument(args, 0));
      if (!band_ && find(sName) != nullptr) return Ref<TestTool>(find(sName));
      return Ref<TestTool>(&add(sName));
    }
    case Member::Insert: {
      const std::string sName = taken_name(argument(args, 1));
      const auto nIndex = static_cast<std::size_t>(std::max(0.0, plain_number(args[0])));
      return Ref<TestTool>(&insert(nIndex, sName));
    }
    default: no_such_member(member);
  }
}

TestBar::TestBar() : tools_(make_object<TestTools>(this, "Bar", false)) {}

void TestBar::add_band(std::string_view sName) {
  const std::size_t nBand = bands_.size();
  bands_.push_back({std::string(sName), make_object<TestTools>(this, std::string(sName), true), {}, {}});
  bands_.back().object = make_object<PartObject>(
      std::string(sName),
      [this, nBand](Member member, Access access, Arguments args) { return handle_band(nBand, member, access, args); });
}

TestBar::Band& TestBar::band(std::string_view sName) const {
  for (Band& known : bands_) {
    if (same_name(known.sName, sName)) return known;
  }
  throw AutomationError(ErrorNumber::SubscriptOutOfRange, sName);
}

TestTool& TestBar::tool(std::string_view sName) const {
  if (TestTool* pTool = tools_->find(sName)) return *pTool;
  throw AutomationError(ErrorNumber::SubscriptOutOfRange, sName);
}

TestTool& TestBar::tool(std::string_view sBand, std::string_view sName) const {
  if (TestTool* pTool = band(sBand).tools->find(sName)) return *pTool;
  throw AutomationError(ErrorNumber::SubscriptOutOfRange, std::string(sBand) + "." + std::string(sName));
}

bool TestBar::has(std::string_view sBand, std::string_view sName) const {
  return band(sBand).tools->find(sName) != nullptr;
}

std::string TestBar::band_caption(std::string_view sBand) const {
  for (const auto& [member, value] : band(sBand).values) {
    if (member == Member::Caption) return plain_text(value);
  }
  return "";
}

bool TestBar::band_state(std::string_view sBand, Member member) const {
  for (const auto& [known, value] : band(sBand).values) {
    if (known == member) return value.as<bool>();
  }
  return true;
}

Variant TestBar::handle_band(std::size_t nBand, Member member, Access access, Arguments args) {
  Band& oBand = bands_[nBand];
  switch (member) {
    case Member::Name: return oBand.sName;
    case Member::Tools:
      if (args.empty()) return oBand.tools;
      return oBand.tools->get(Member::Item, args[0]);
    case Member::Caption:
    case Member::Visible:
    case Member::Enabled:
      if (is_put(access)) {
        store(oBand.values, member, stored(member, argument(args, 0)));
        return {};
      }
      return member == Member::Caption ? Variant(band_caption(oBand.sName)) : band_state(oBand.sName, member);
    default: return Missing{};
  }
}

Variant TestBar::handle(Member member, Access, Arguments args) {
  switch (member) {
    case Member::Bands: return band(plain_text(argument(args, 0))).object;
    case Member::Tools:
      if (args.empty()) return tools_;
      return tools_->get(Member::Item, args[0]);
    case Member::RecalcLayout: return {};
    default: no_such_member(member);
  }
}

Ref<TestBar> TestBar::with_tools(const std::vector<BandTools>& aBands) {
  auto oBar = make_object<TestBar>();
  for (const auto& [sBand, aTools] : aBands) {
    oBar->add_band(sBand);
    for (const std::string& sTool : aTools) {
      if (!oBar->has(sTool)) oBar->tools().add(sTool);
      oBar->band(sBand).tools->add(sTool);
    }
  }
  return oBar;
}

}  // namespace arap::testing

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/containers.h"

namespace arap::testing {

/// A tool of a bar. A tool placed on a band has a state of its own; what wasn't set there it takes from the bar's tool
/// of the same name. Lines: `Bar.mnuViewVch.Visible = False`, `mnuEdit.mnuViewVch.Visible = False`.
class TestTool final : public HostObject {
 public:
  explicit TestTool(std::string sName = "", std::string sPlace = "Tool", Ref<TestTool> parent = {});
  std::string type_name() const override { return "Tool"; }
  std::string label() const override { return place_ + "." + name(); }

  std::string name() const { return plain_text(property(Member::Name)); }
  Variant property(Member member) const;
  void set(Member member, Variant vValue);
  bool visible() const { return property(Member::Visible).as<bool>(); }
  bool enabled() const { return property(Member::Enabled).as<bool>(); }
  bool checked() const { return property(Member::Checked).as<bool>(); }
  std::string caption() const { return plain_text(property(Member::Caption)); }
  /// The picture and its colour key as they were set; Empty before.
  Variant picture;
  Variant colour_key;

 private:
  Variant handle(Member member, Access access, Arguments args) override;
  std::string trace_name() const override { return label(); }
  const Variant* own(Member member) const;

  std::string place_;
  Ref<TestTool> parent_;
  std::vector<std::pair<Member, Variant>> values_;
};

class TestBar;

/// The tools of a bar or of one of its bands; 0-based, or by name.
class TestTools final : public HostObject {
 public:
  TestTools(TestBar* pBar, std::string sPlace, bool bBand) : bar_(pBar), place_(std::move(sPlace)), band_(bBand) {}
  std::string type_name() const override { return "Tools"; }

  /// nullptr when there is none.
  TestTool* find(std::string_view sName) const;
  TestTool& add(std::string_view sName) { return insert(tools_.size(), sName); }
  TestTool& insert(std::size_t nIndex, std::string_view sName);
  void remove(std::string_view sName);
  std::vector<std::string> names() const;
  std::size_t size() const { return tools_.size(); }

 private:
  Variant handle(Member member, Access access, Arguments args) override;
  std::string trace_name() const override { return place_ + ".Tools"; }
  /// The tool's name; a tool of another bar is copied to this one first.
  std::string taken_name(const Variant& vTool);
  Ref<TestTool> item(const Variant& vNameOrIndex) const;

  TestBar* bar_;
  std::string place_;
  bool band_;
  std::vector<Ref<TestTool>> tools_;
};

/// The ActiveBar of a window. A band or tool that it lacks raises 9.
class TestBar final : public HostObject {
 public:
  struct BandTools {
    std::string sBand;
    std::vector<std::string> aTools;
  };
  TestBar();
  std::string type_name() const override { return "ActiveBar"; }

  /// A bar with these bands; their tools are on the bar too.
  static Ref<TestBar> with_tools(const std::vector<BandTools>& aBands);
  /// The bars that the windows of the original host have.
  static Ref<TestBar> of_bill_window();
  static Ref<TestBar> of_list_window();
  static Ref<TestBar> of_type_window();
  static Ref<TestBar> of_type_bill();

  /// The bar's own tool, and a band's. They fail the test's assumption with error 9 when it isn't there.
  TestTool& tool(std::string_view sName) const;
  TestTool& tool(std::string_view sBand, std::string_view sName) const;
  bool has(std::string_view sName) const { return tools_->find(sName) != nullptr; }
  bool has(std::string_view sBand, std::string_view sName) const;
  /// The names of a band's tools in order.
  std::vector<std::string> names(std::string_view sBand) const { return band(sBand).tools->names(); }
  std::string band_caption(std::string_view sBand) const;
  bool band_state(std::string_view sBand, Member member) const;
  TestTools& tools() const { return *tools_; }
  void add_band(std::string_view sName);
  /// Takes a tool away: the bar's own (the bands keep theirs), and a band's.
  void remove(std::string_view sTool) { tools_->remove(sTool); }
  void remove(std::string_view sBand, std::string_view sTool) { band(sBand).tools->remove(sTool); }

 private:
  struct Band {
    std::string sName;
    Ref<TestTools> tools;
    Ref<PartObject> object;
    std::vector<std::pair<Member, Variant>> values;
  };
  Band& band(std::string_view sName) const;
  Variant handle_band(std::size_t nBand, Member member, Access access, Arguments args);
  Variant handle(Member member, Access access, Arguments args) override;
  std::string trace_name() const override { return "Bar"; }

  Ref<TestTools> tools_;
  mutable std::vector<Band> bands_;
};

}  // namespace arap::testing

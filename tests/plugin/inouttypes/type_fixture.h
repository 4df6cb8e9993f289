#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/boxes.h"
#include "support/golden.h"
#include "support/test_session.h"
#include "support/test_windows.h"
#include "support/type_host.h"

namespace arap::testing {

/// The tree window of the types and the small bill, both with the plug-in's class on them.
class TypeWorld {
 public:
  TypeWorld() {
    session.set_props("p;");
    plugin = CreatePublicObject("NUVARAPBillInterface.clsRPInOutType");
    plugin->call(Member::Show, tree);
    plugin->call(Member::Show, bill);
    trace().clear();
  }

  /// The bill as it stands on the screen.
  void enter(std::int32_t nID, std::string_view sNumber, std::string_view sName) {
    bill->head("FID", nID).head("FNumber", sNumber).head("FName", sName);
  }
  /// The type is opened in the bill.
  void load(std::int32_t nID) {
    const TypeTable::Type& type = types.at(nID);
    enter(nID, type.sNumber, type.sName);
    bill->inter_id = nID;
    bill->edit_mode = 2;
    bill->fire(Event::AfterLoadBill);
  }
  /// The row of the type is the current one of the grid, which has the focus.
  void point_at(std::int32_t nID) {
    tree->current_item = nID;
    focus("GridResult");
  }
  void focus(std::string_view sControl) {
    auto control = make_object<ServerStub>("Control");
    control->property(Member::Name, sControl);
    tree->active_control = control;
  }

  TestSession session;
  TypeTable types{session};
  Ref<TestBaseClass> tree = make_object<TestBaseClass>();
  Ref<TestBill> bill = make_type_bill();
  Ref<Object> plugin;
};

class TypeTest : public ::testing::Test, protected TypeWorld {
 protected:
  using Lines = std::vector<std::string>;

  std::vector<Box> boxes() const { return boxes_of(session.platform); }
};

inline void PrintTo(const std::pair<const char*, const char*>& tool, std::ostream* pStream) {
  *pStream << tool.first << "." << tool.second;
}

}  // namespace arap::testing

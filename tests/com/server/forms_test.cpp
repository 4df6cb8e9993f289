#include <gtest/gtest.h>

#include "bridge/bridge.h"
#include "com/scenarios/server_under_test.h"
#include "com/server/client.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// The hidden form of the templates, as the host gets it into its hands: its font loader is given it.
namespace arap::testing {
namespace {

TEST(Forms, TheFontLoaderGetsTheTemplateFormWithItsTypeAndMembers) {
  TestSession session;
  {
    const auto oClass = create("clsReceiveBill");
    const auto oList = make_object<TestList>();
    Outcome outcome;
    invoke(outcome, oClass.get(), L"Show", DISPATCH_METHOD, {object_value(com::dispatch_of(oList).get())});
    oList->fire(Event::BarInitialize, {oList->bar});
    const Ref<Object> oForm = session.server("NUVFrmRes.FrmResLoader").last(Member::SetFrmFont)[0].object();
    EXPECT_EQ(oForm->type_name(), "frmBar");
    EXPECT_NO_THROW(oForm->call(Member::InitControls));
    EXPECT_NO_THROW(oForm->put(Member::BillType, 3.0));
    EXPECT_THROW(oForm->get(Member::BillType), AutomationError);
    EXPECT_THROW(oForm->call(Member::Show), AutomationError);
  }
}

}  // namespace
}  // namespace arap::testing

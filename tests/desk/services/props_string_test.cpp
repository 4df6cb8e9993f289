#include <gtest/gtest.h>

#include "data/demo.h"
#include "desk/book_contents.h"
#include "desk/choose_number.h"
#include "desk/data/temp_book.h"
#include "engine/bill_window.h"
#include "services/component.h"
#include "services/session.h"

namespace desk::testing {
namespace {

TEST(PropsString, HoldsUserAndBookAndRefusesNamesThatWouldBreakIt) {
  DemoBook book;
  EXPECT_EQ(
      Session(*book.database, "demo").props_string(),
      "UserName=demo;UserID=1;ConnectString={Provider=desk;Data Source=" + book.database->path() + "};Language=chs");
  for (const char* sName : {"a;UserID=2", "a=b", "{a", "a}"}) {
    book.database->exec("INSERT INTO t_User (FName, FFullName) VALUES (?, '')", {sName});
    EXPECT_EQ(kind_of_failure([&] { Session(*book.database, sName); }), ErrorKind::BadValue) << sName;
  }
}

/// A login whose props string came out broken.
class BrokenProps : public ::testing::TestWithParam<std::pair<const char*, const char*>> {
 protected:
  void answer_props(const std::string& sProps) {
    session.registry().add("NUVPropsMgr.ShareProps", [sProps] {
      return make_component("ShareProps", {{arap::Member::GetProperty, [sProps](arap::Arguments args) {
                                              const bool bProps = text_argument(args, 1) == "PropsString";
                                              return arap::Variant(bProps ? sProps : std::string());
                                            }}});
    });
  }
  std::string told() const {
    std::string sText;
    for (const ShownMessage& message : session.platform().messages()) sText += message.sText + "\n";
    return sText;
  }

  DemoBook book;
  mutable Session session{*book.database, "demo"};
};

TEST_P(BrokenProps, IsToldAtTheCommandThatNeedsItAndChangesNothing) {
  Host host(*book.database);
  host.sToday = "2026-11-21";
  host.choose_sources = choose_number("XSFP000003");
  const OpenBillWindow window = open_bill_window(host, BillTemplate::shipped("receipt"));
  window->new_bill();
  ASSERT_TRUE(window->type_field("FReceiveTypeID", -1, "1001"));
  ASSERT_TRUE(window->type_field("FCustomerID", -1, "C002"));
  ASSERT_TRUE(window->type_field("FAcctID", -1, "1002.01"));
  ASSERT_TRUE(window->press("mnuSelectBill_2000001"));
  ASSERT_TRUE(window->press("mnuDataAutoSumAmt"));
  ASSERT_TRUE(window->save());
  ASSERT_TRUE(window->press("mnuEditCheck"));
  const std::string sBefore = contents(*book.database);
  answer_props(GetParam().first);
  const Outcome pressed = window->press("mnuViewVch");
  EXPECT_NE((pressed.sReason + told()).find(GetParam().second), std::string::npos) << pressed.sReason << told();
  EXPECT_EQ(contents(*book.database), sBefore);
}
INSTANTIATE_TEST_SUITE_P(Texts, BrokenProps,
                         ::testing::Values(std::pair("UserName=demo;UserName=demo;", "already associated"),
                                           std::pair("UserName=demo", "Invalid procedure call")),
                         [](const auto& each) { return each.index == 0 ? "DoubledKey" : "MissingKey"; });

}  // namespace
}  // namespace desk::testing

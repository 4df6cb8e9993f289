#include <gtest/gtest.h>

#include <set>

#include "desk/services/small_book.h"
#include "frame/plugin_entry.h"
#include "frame/text_utils.h"

namespace desk::testing {
namespace {

// As a host reaches them: by ProgID through the factory of the session.
TEST(PublicClasses, AllEightAreReachedByTheirProgIdInAnyCase) {
  SmallBook book;
  Session session(book.database(), "li");
  std::set<std::string> names;
  for (const char* sName : {"clsReceiveBill", "clsPayBill", "clsROtherBill", "clsPOtherBill", "clsRPInOutType",
                            "clsRPInOutTypeView", "clsInvoice", "clsRPInitial"}) {
    const std::string sProgID = "NUVARAPBillInterface." + std::string(sName);
    EXPECT_EQ(session.registry().create(sProgID)->type_name(), sName);
    EXPECT_EQ(session.platform().CreateObject(arap::LowerCase(sProgID))->type_name(), sName);
    names.insert(sName);
  }
  for (const std::string_view sName : arap::PublicClassNames()) EXPECT_EQ(names.count(std::string(sName)), 1u) << sName;
  EXPECT_EQ(arap::PublicClassNames().size(), 8u);
  EXPECT_THROW(session.registry().create("NUVARAPBillInterface.clsNone"), arap::AutomationError);
}

}  // namespace
}  // namespace desk::testing

#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class RedBlue : public BothSides {
 protected:
  void SetUp() override {
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    bill->head("FAmountFor", 50.0).head("FDiscountAmountFor", 3.0);
    add_source_row(*bill, GetParam());
    trace().clear();
  }
  bool checked(const char* sTool) const { return bill->bar->tool("mnuEdit", sTool).checked(); }
};
INSTANTIATE_RECEIPT(RedBlue);

TEST_P(RedBlue, EachColourUnchecksTheOtherAndEmptiesTheBody) {
  EXPECT_FALSE(bill->click("mnuEditRedBill"));
  EXPECT_TRUE(checked("mnuEditRedBill"));
  EXPECT_FALSE(checked("mnuEditBlueBill"));
  EXPECT_EQ(bill->row_count(), 0);
  add_source_row(*bill, GetParam());
  EXPECT_FALSE(bill->click("mnuEditBlueBill"));
  EXPECT_FALSE(checked("mnuEditRedBill"));
  EXPECT_TRUE(checked("mnuEditBlueBill"));
  EXPECT_EQ(bill->row_count(), 0);
  EXPECT_TRUE(boxes().empty());
}

TEST_P(RedBlue, ASecondPressDoesNothingAndTheBodyStays) {
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill"}) {
    bill->click(sTool);
    add_source_row(*bill, GetParam());
    trace().clear();
    EXPECT_FALSE(bill->click(sTool));
    EXPECT_EQ(trace().lines(), Lines{}) << sTool;
    EXPECT_EQ(bill->row_count(), 1);
  }
}

TEST_P(RedBlue, HeadAmountsStartOverButForTheDiscountInHeadCurrency) {
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill"}) {
    bill->runs_actions = false;
    bill->head("FAmountFor", 50.0).head("FDiscountAmountFor", 3.0).head("FDiscount", 95.0);
    bill->click(sTool);
    EXPECT_EQ(bill->number("FAmountFor"), 0);
    EXPECT_EQ(bill->number("FDiscountAmountFor"), 3);
    EXPECT_EQ(bill->number("FDiscount"), 100);
  }
}

TEST_P(RedBlue, WhatWasWrittenCountsAsUnchanged) {
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill"}) {
    bill->head("FAmountFor", 50.0);
    bill->click(sTool);
    EXPECT_EQ(bill->modified("FAmountFor"), 0) << sTool;
  }
}

TEST_P(RedBlue, TheRateIsLockedByTheHeadCurrency) {
  bill->head("FCurrencyId", 2);
  bill->click("mnuEditRedBill");
  EXPECT_FALSE(bill->cell_locked("FExchangeRate"));
  bill->head("FCurrencyId", 1);
  bill->click("mnuEditBlueBill");
  EXPECT_TRUE(bill->cell_locked("FExchangeRate"));
}

TEST_P(RedBlue, TheRateIsLockedAtEachStep) {
  bill->click("mnuEditRedBill");
  EXPECT_EQ(trace().count("LockCell(FExchangeRate"), 3u);
  trace().clear();
  bill->click("mnuEditBlueBill");
  EXPECT_EQ(trace().count("LockCell(FExchangeRate"), 2u);
}

TEST_P(RedBlue, ThePressedToolIsCheckedToo) {
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill"}) {
    const auto oPressed = make_object<TestTool>(sTool);
    bill->fire_cancelable(Event::MenuBarClick, {oPressed});
    EXPECT_TRUE(oPressed->checked()) << sTool;
  }
}

TEST_P(RedBlue, BothColoursSwitchTheRowCommandsOff) {
  for (const char* sTool : {"mnuEditRedBill", "mnuEditBlueBill"}) {
    trace().clear();
    bill->click(sTool);
    EXPECT_EQ(trace().lines_with_any({"mnuEditDelRow", "mnuEditAddRow"}),
              (Lines{"BillEvent.SetBarStatus(\"mnuEditDelRow\", \"Enabled\", False)",
                     "BillEvent.SetBarStatus(\"mnuEditAddRow\", \"Enabled\", False)"}))
        << sTool;
  }
}

TEST_P(RedBlue, OnlyTheRedBillResetsTheOlderSources) {
  for (const char* sItem : {"mnuSelectBill_1000002", "mnuSelectBill_1000005"}) {
    bill->bar->tool("mnuSelectBill", sItem).set(Member::Checked, true);
  }
  bill->click("mnuEditRedBill");
  EXPECT_FALSE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").enabled());
  EXPECT_TRUE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000000").checked());
  EXPECT_FALSE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000002").checked());
  EXPECT_FALSE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").checked());
  bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").set(Member::Enabled, true);
  bill->click("mnuEditBlueBill");
  EXPECT_TRUE(bill->bar->tool("mnuSelectBill", "mnuSelectBill_1000005").enabled());
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include "desk/engine/engine_world.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::Member;

class Window : public BillWorld {
 protected:
  std::int32_t stored_bills() {
    return arap::LongOf(database->value(std::string("SELECT COUNT(*) FROM ") + GetParam().sTable));
  }
  std::int32_t stored_rows() {
    return arap::LongOf(database->value(std::string("SELECT COUNT(*) FROM ") + GetParam().sTable + "Entry"));
  }
  void select_with_rows_added() {
    plugin->handlers[Event::AfterSelBillBeforeFillData] = [](arap::Arguments args) {
      arap::Dictionary(args[0]).SetValue("AddModel", true);
    };
    ASSERT_TRUE(window->press("mnuSelectBill"));
    window->bar().add_tool(GetParam().sSelect);
    ASSERT_TRUE(window->press(GetParam().sSelect));
  }
};
INSTANTIATE_TEST_SUITE_P(BothSides, Window, ::testing::ValuesIn(kSides), side_name);

TEST_P(Window, OpeningBuildsTheBarsAndANewBillIsToldOnce) {
  window->new_bill();
  EXPECT_EQ(plugin->aEvents,
            (std::vector<std::string>{"BarInitialize", "MenuBarInitialize", "AfterNewBill", "AfterNewEmptyData"}));
  EXPECT_EQ(window->edit_mode(), EditMode::New);
  EXPECT_EQ(arap::Concat(window->value("FDate")), "2026-11-21");
}

TEST_P(Window, ASavedBillGetsItsNumberAndComesBackThroughTheLoadEvents) {
  fill_bill();
  select_with_rows_added();
  plugin->aEvents.clear();
  ASSERT_TRUE(window->save()) << window->save().sReason;
  EXPECT_EQ(plugin->aEvents, (std::vector<std::string>{"BeforeSave", "AfterSave", "BeforeLoadBill",
                                                       "BeforLoadBillFillData", "AfterLoadBill"}));
  EXPECT_EQ(arap::Concat(window->value("FBillNo")), GetParam().sFirstNumber);
  EXPECT_EQ(window->edit_mode(), EditMode::Modify);
  EXPECT_EQ(number("FAmountFor"), 601.5);
  EXPECT_EQ(window->shown(GetParam().sPartner), "甲公司");
  ASSERT_EQ(window->body().size(), 3u);
  EXPECT_EQ(number(GetParam().open_for(), 2), 200.5);
  EXPECT_EQ(arap::Concat(window->value(GetParam().sNumber, 3)), "INV3");
}

TEST_P(Window, SavingAgainKeepsNumberAndRowsAndWritesTheNewFigures) {
  fill_bill();
  select_with_rows_added();
  ASSERT_TRUE(window->save());
  ASSERT_TRUE(window->type_field("FBillSettleAmountFor", 1, "12.5"));
  ASSERT_TRUE(window->save());
  EXPECT_EQ(arap::Concat(window->value("FBillNo")), GetParam().sFirstNumber);
  EXPECT_EQ(number("FBillSettleAmount", 1), 12.5);
  EXPECT_EQ(stored_bills(), 1);
  EXPECT_EQ(stored_rows(), 3);
}

TEST_P(Window, ACancelledSaveStoresNothing) {
  fill_bill();
  plugin->handlers[Event::BeforeSave] = [](arap::Arguments args) { args[0] = true; };
  EXPECT_FALSE(window->save());
  EXPECT_EQ(stored_bills(), 0);
}

TEST_P(Window, NotSaveStoresNothingYetSucceedsAndHoldsForOneSaveOnly) {
  fill_bill();
  plugin->handlers[Event::BeforeSave] = [this](arap::Arguments) {
    window->get(Member::BillForm).object()->put(Member::NotSave, true);
  };
  EXPECT_TRUE(window->save());
  EXPECT_EQ(stored_bills(), 0);
  plugin->handlers.clear();
  EXPECT_TRUE(window->save());
  EXPECT_EQ(stored_bills(), 1);
}

TEST_P(Window, AFailedStoreLeavesNothingHalfWrittenAndTellsThePlugin) {
  DESK_FILES_ONLY();
  fill_bill();
  select_with_rows_added();
  // The third row collides with a row that is there already.
  database->exec(std::string("CREATE TRIGGER t_Full BEFORE INSERT ON ") + GetParam().sTable +
                 "Entry WHEN NEW.FIndex = 3 BEGIN SELECT RAISE(ABORT, 'no room'); END");
  plugin->aEvents.clear();
  const Outcome outcome = window->save();
  EXPECT_FALSE(outcome);
  EXPECT_FALSE(outcome.sReason.empty());
  EXPECT_EQ(plugin->aEvents, (std::vector<std::string>{"BeforeSave", "SaveBillFailed"}));
  EXPECT_EQ(stored_bills(), 0);
  EXPECT_EQ(stored_rows(), 0);
  database->exec("DROP TRIGGER t_Full");
  ASSERT_TRUE(window->save());
  EXPECT_EQ(arap::Concat(window->value("FBillNo")), GetParam().sFirstNumber) << "a failed save uses up no number";
}

TEST_P(Window, ABillThatWasCheckedMeanwhileIsNotWrittenOver) {
  fill_bill();
  ASSERT_TRUE(window->save());
  database->exec(std::string("UPDATE ") + GetParam().sTable + " SET FStatus = 1");
  ASSERT_TRUE(window->type_field("FExplanation", -1, "late"));
  EXPECT_FALSE(window->save());
  EXPECT_EQ(arap::Concat(database->value(std::string("SELECT FExplanation FROM ") + GetParam().sTable)), "");
}

TEST_P(Window, AnErrorOfBeforeSaveIsARefusalWithItsText) {
  fill_bill();
  plugin->handlers[Event::BeforeSave] = [](arap::Arguments) { throw arap::AutomationError(5, "x", "broken"); };
  EXPECT_EQ(window->save().sReason, "broken");
  EXPECT_EQ(stored_bills(), 0);
}

TEST_P(Window, WithoutTheEditLockABillCanOnlyBeRead) {
  fill_bill();
  ASSERT_TRUE(window->save());
  Host host(*database);
  host.take_edit_lock = [](std::int32_t, std::int32_t) { return false; };
  const OpenBillWindow reader =
      open_bill_window(host, BillTemplate::shipped(GetParam().sTemplate), arap::make_object<ScriptedPlugin>());
  ASSERT_TRUE(reader->load_number(GetParam().sFirstNumber));
  const arap::BillEvent oBill{arap::Ref<arap::Object>(reader.get())};
  EXPECT_EQ(oBill.EditMode(), 0);
  EXPECT_FALSE(oBill.Form().MutexSuccess());
  EXPECT_EQ(oBill.Ctl().BillStatus(), 0);
  EXPECT_TRUE(reader->locked("FExplanation"));
  EXPECT_FALSE(reader->save());
}

TEST_P(Window, AMissingHiddenOrDisabledToolCantBePressedAndSaysWhy) {
  window->new_bill();
  plugin->aEvents.clear();
  window->bar().find_tool("mnuFileNew")->bVisible = false;
  window->bar().find_tool("mnuFileSave")->bEnabled = false;
  for (const char* sTool : {"mnuNowhere", "mnuFileNew", "mnuFileSave"}) {
    EXPECT_FALSE(window->press(sTool).sReason.empty()) << sTool;
  }
  EXPECT_TRUE(plugin->aEvents.empty());
}

TEST_P(Window, CancelOfACommandStopsTheHostsOwnAction) {
  fill_bill();
  plugin->handlers[Event::MenuBarClick] = [](arap::Arguments args) { args[1] = true; };
  EXPECT_TRUE(window->press("mnuFileSave"));
  EXPECT_EQ(stored_bills(), 0);
  plugin->handlers.clear();
  EXPECT_TRUE(window->press("mnuFileSave"));
  EXPECT_EQ(stored_bills(), 1);
}

TEST_P(Window, DeletingTheActiveRowClosesTheGap) {
  fill_bill();
  select_with_rows_added();
  window->focus("FBillNote", 2);
  ASSERT_TRUE(window->press("mnuEditDelRow"));
  ASSERT_EQ(window->body().size(), 2u);
  EXPECT_EQ(arap::Concat(window->value(GetParam().sNumber, 2)), "INV3");
}

TEST_P(Window, SetBarStatusTakesAnyCaseAndIgnoresAToolThatIsntThere) {
  window->call(Member::SetBarStatus, "MNUFILESAVE", "ENABLED", false);
  EXPECT_FALSE(window->bar().find_tool("mnuFileSave")->bEnabled);
  window->call(Member::SetBarStatus, "mnuFileSave", "Visible", false);
  EXPECT_FALSE(window->bar().find_tool("mnuFileSave")->bVisible);
  EXPECT_NO_THROW(window->call(Member::SetBarStatus, "mnuCaculate", "Enabled", true));
}

}  // namespace
}  // namespace desk::testing

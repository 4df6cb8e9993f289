#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

class TypeBill : public TypeTest {};

TEST_F(TypeBill, TheFirstNewTypeHasNoNumber) {
  enter(0, "left over", "");
  bill->fire(Event::AfterNewBill);
  EXPECT_EQ(bill->text("FNumber"), "");
  bill->fire(Event::AfterNewEmptyData);
  EXPECT_EQ(bill->text("FNumber"), "");
}

TEST_F(TypeBill, AfterASavedTypeANewOneShowsItsNumberAndThenTheFollowingOne) {
  enter(0, "101.01", "运费");
  types.erase(12);
  ASSERT_FALSE(bill->save());
  enter(0, "", "");
  bill->fire(Event::AfterNewBill);
  EXPECT_EQ(bill->text("FNumber"), "101.01");
  EXPECT_EQ(bill->shown("FNumber"), "101.01");
  bill->fire(Event::AfterNewEmptyData);
  EXPECT_EQ(bill->text("FNumber"), "101.02");
  EXPECT_EQ(bill->shown("FNumber"), "101.02");
}

TEST_F(TypeBill, ProposalsFollowTheLastCharacterOfTheNumberSavedLast) {
  for (const auto& [sSaved, sNext] : {std::pair{"ABZ", "ABA"}, {"9", "0"}, {"101.09", "101.00"}, {"10A", "10B"}}) {
    enter(0, sSaved, "");
    ASSERT_FALSE(bill->save()) << sSaved;
    bill->fire(Event::AfterNewEmptyData);
    EXPECT_EQ(bill->text("FNumber"), sNext);
  }
}

TEST_F(TypeBill, ANewBillGivesBackTheTaskOfTheTypeThatWasModified) {
  point_at(12);
  tree->click("mnuEditModify");
  ASSERT_EQ(session.held_tasks.size(), 1u);
  bill->fire(Event::AfterNewBill);
  EXPECT_TRUE(session.held_tasks.empty());
  trace().clear();
  bill->fire(Event::AfterNewBill);
  EXPECT_FALSE(trace().has("CommitTask"));
}

TEST_F(TypeBill, AParentsNumberIsLockedADetailTypesIsFree) {
  load(11);
  EXPECT_TRUE(bill->cell_locked("FNumber"));
  load(12);
  EXPECT_FALSE(bill->cell_locked("FNumber"));
}

TEST_F(TypeBill, LockingKeepsTheNumber) {
  load(11);
  EXPECT_EQ(bill->text("FNumber"), "101");
  EXPECT_EQ(bill->modified("FNumber"), 0);
}

TEST_F(TypeBill, ATypeThatTheCacheLacksIsNeitherLockedNorFreed) {
  types.types.push_back({31, "103", "新增", 1, 1, false, 1});
  load(31);
  EXPECT_FALSE(trace().has("LockCell"));
}

TEST_F(TypeBill, AfterASaveTheCacheIsReadAnew) {
  types.types.push_back({31, "103", "新增", 1, 1, false, 1});
  session.server("NUVlpsArApBill.clsInOutType").quiet(Member::CheckRPInOutTypeUsed);
  bill->fire(Event::AfterSave, {std::int32_t{31}});
  EXPECT_EQ(trace().lines().back(), "NUVlpsArApBill.clsInOutType.GetRPInOutTypeInfo(\"p;\")");
  load(31);
  EXPECT_TRUE(bill->cell_locked("FNumber"));
}

TEST_F(TypeBill, TheLoadedTypesEditLockIsReleasedWithTheClass) {
  load(12);
  trace().clear();
  plugin = nullptr;
  EXPECT_TRUE(trace().has("NUVNetControl.Mutex.GetTaskIdByUserInfo(\"p;\", \"pu0551\", 12)"));
}

TEST_F(TypeBill, AFailedSaveOfANewTypeLeavesTheIdAtZero) {
  enter(0, "103", "新增");
  bill->set_value("FID", -1, std::int32_t{31});  // as the host gave it
  auto oDct = dictionary({{"FID", std::int32_t{31}}});
  bill->fire(Event::SaveBillFailed, {oDct, "", std::int32_t{0}});
  EXPECT_EQ(bill->number("FID"), 0);
  EXPECT_EQ(plain_number(oDct->at("FID")), 0);
}

TEST_F(TypeBill, AFailedSaveOfALoadedTypeKeepsItsId) {
  load(12);
  auto oDct = dictionary({{"FID", std::int32_t{12}}});
  bill->fire(Event::SaveBillFailed, {oDct, "", std::int32_t{0}});
  EXPECT_EQ(bill->number("FID"), 12);
  EXPECT_EQ(plain_number(oDct->at("FID")), 12);
}

TEST_F(TypeBill, TheHelpOpensTheTopicOfTheTypesAndNamesItsBand) {
  EXPECT_FALSE(bill->click("mnuHelpFile"));
  EXPECT_EQ(trace().lines(), (Lines{"CreateObject(\"NUVCHMResTool.ClsCHMHelp\")",
                                    "NUVCHMResTool.ClsCHMHelp.ShowHelp(\"NUVV11.chm\", \"RP1000207\", 0)",
                                    "mnuCust.Caption = \"帮助\""}));
}

TEST_F(TypeBill, EveryOtherKeyIsTheHostsAlone) {
  for (const char* sTool : {"mnuFileSave", "mnuFileNew", "mnuHelpDetail", ""}) {
    EXPECT_FALSE(bill->click(sTool)) << sTool;
  }
  EXPECT_EQ(trace().lines(), Lines{});
}

TEST_F(TypeBill, EventsOfOtherBillsAreNotHeard) {
  bill->fire(Event::BarInitialize, {bill->bar});
  bill->fire(Event::BeforeLoadBill, {std::int32_t{0}});
  EXPECT_EQ(trace().lines(), Lines{});
}

}  // namespace
}  // namespace arap::testing

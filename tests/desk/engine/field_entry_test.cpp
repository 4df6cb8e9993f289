#include <gtest/gtest.h>

#include "desk/engine/engine_world.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::Member;
using arap::Variant;
using arap::operator""_key;

class FieldEntry : public BillWorld {
 protected:
  void SetUp() override {
    BillWorld::SetUp();
    window->new_bill();
    plugin->aEvents.clear();
  }
};
INSTANTIATE_TEST_SUITE_P(BothSides, FieldEntry, ::testing::ValuesIn(kSides), side_name);

TEST_P(FieldEntry, ALookUpFieldTakesTheExactCodeBeforeTheNameAndKeepsIdNameAndCode) {
  ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, "11"));
  EXPECT_EQ(number(GetParam().sPartner), 12);
  EXPECT_EQ(window->shown(GetParam().sPartner), "乙公司");
  ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, "甲公司"));
  EXPECT_EQ(window->code(GetParam().sPartner), "01");
}

TEST_P(FieldEntry, ACodeThatNamesNothingIsRefusedInWordsAndChangesNothing) {
  const Outcome outcome = window->type_field(GetParam().sPartner, -1, "99");
  EXPECT_FALSE(outcome);
  EXPECT_NE(outcome.sReason.find("99"), std::string::npos);
  EXPECT_EQ(number(GetParam().sPartner), 0);
  EXPECT_EQ(plugin->aEvents, std::vector<std::string>{"BeginEdit"});
}

TEST_P(FieldEntry, AnAmountFiresItsEventsInOrderAndItsActionsKeepTheIdentities) {
  ASSERT_TRUE(window->type_field("FExchangeRate", -1, "2"));
  plugin->aEvents.clear();
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "100.25"));
  EXPECT_EQ(plugin->aEvents, (std::vector<std::string>{"BeginEdit", "Change", "AfterDoAction", "AfterDoAction",
                                                       "AfterDoAction", "AfterDoAction", "HeadCtlLostFocus"}));
  EXPECT_EQ(number("FAmount"), 200.5);
  ASSERT_TRUE(window->type_field(GetParam().got_for(), -1, "50"));
  EXPECT_EQ(number(GetParam().got()), 100);
  EXPECT_EQ(number("FDiscount"), 49.875312);
  EXPECT_EQ(number("FDiscountAmountFor"), 50.25);
  EXPECT_EQ(number("FDiscountAmount"), 100.5);
}

TEST_P(FieldEntry, ATypedDiscountGivesTheAmountsReceived) {
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "1000"));
  ASSERT_TRUE(window->type_field("FDiscount", -1, "95"));
  EXPECT_EQ(number(GetParam().got_for()), 950);
  EXPECT_EQ(number(GetParam().got()), 950);
  EXPECT_EQ(number("FDiscountAmount"), 50);
}

TEST_P(FieldEntry, ADivisionByZeroLeavesTheDiscountAsItIs) {
  ASSERT_TRUE(window->type_field(GetParam().got_for(), -1, "50"));
  EXPECT_EQ(number("FDiscount"), 100);
}

TEST_P(FieldEntry, ChangeSeesTheNewValueTheOldOneAndTheMark) {
  double dNew = 0;
  double dOld = 0;
  std::int32_t nMark = 0;
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "7"));
  plugin->handlers[Event::Change] = [&](arap::Arguments args) {
    const arap::FieldRecord oRecord(args[1]);
    dNew = arap::NumberOf(oRecord.Value("FFLD"));
    dOld = arap::NumberOf(oRecord.Value("FOLD"));
    nMark = arap::LongOf(oRecord.Value("FModify"));
  };
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "8"));
  EXPECT_EQ(dNew, 8);
  EXPECT_EQ(dOld, 7);
  EXPECT_EQ(nMark, 1);
}

TEST_P(FieldEntry, CancelOfAChangeUndoesItAndRunsNoAction) {
  plugin->handlers[Event::Change] = [](arap::Arguments args) { args[4] = true; };
  EXPECT_FALSE(window->type_field("FAmountFor", -1, "8"));
  EXPECT_EQ(number("FAmountFor"), 0);
  EXPECT_EQ(number("FAmount"), 0);
  EXPECT_FALSE(window->has_changes());
}

TEST_P(FieldEntry, TheSameValueTypedAgainIsNoChange) {
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "8"));
  plugin->aEvents.clear();
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "8.00"));
  EXPECT_EQ(plugin->aEvents, (std::vector<std::string>{"BeginEdit", "HeadCtlLostFocus"}));
}

TEST_P(FieldEntry, SetTextFiresChangeOnlyForAnotherValueAndNotForItsOwnEcho) {
  int nChanges = 0;
  const Variant oAmount = definition("FAmountFor"_key);
  plugin->handlers[Event::Change] = [&](arap::Arguments) {
    ++nChanges;
    window->call(Member::SetText, oAmount, "9", std::int32_t{0});
  };
  window->call(Member::SetText, oAmount, "8", std::int32_t{0});
  EXPECT_EQ(nChanges, 1);
  EXPECT_EQ(number("FAmountFor"), 9);
  window->call(Member::SetText, oAmount, "9.0", std::int32_t{0});
  EXPECT_EQ(nChanges, 1);
}

TEST_P(FieldEntry, SetTextResolvesIdCodeAndNameOfALookUpField) {
  const Variant oCurrency = definition("FCurrencyID"_key);
  for (const auto& [sText, nId] : {std::pair("人民币", 1), std::pair("USD", 2), std::pair("1", 1), std::pair("2", 2)}) {
    window->call(Member::SetText, oCurrency, sText, std::int32_t{0});
    EXPECT_EQ(number("FCurrencyID"), nId) << sText;
  }
}

TEST_P(FieldEntry, SetFieldValueTakesACodeAndRunsTheActionsEvenForTheOldValue) {
  window->call(Member::SetFieldValue, "FCurrencyID", "USD", std::int32_t{-1});
  EXPECT_EQ(number("FCurrencyID"), 2);
  plugin->aEvents.clear();
  window->call(Member::SetFieldValue, "FExchangeRate", 1.0, std::int32_t{-1});
  EXPECT_EQ(plugin->aEvents, std::vector<std::string>(3, "AfterDoAction"));
}

TEST_P(FieldEntry, RowZeroAddressesAHeadFieldAndNoCellOfABody) {
  window->body().add_row();
  EXPECT_FALSE(window->call(Member::GetDataFld, definition("FDate"_key), std::int32_t{0}).is_nothing());
  EXPECT_TRUE(window->call(Member::GetDataFld, definition("FInterID"_key), std::int32_t{0}).is_nothing());
  window->call(Member::SetText, definition("FBillNote"_key), "x", std::int32_t{0});
  EXPECT_TRUE(window->value("FBillNote", 1).is_empty());
}

TEST_P(FieldEntry, EachKindOfLockRefusesTheUserAndNotThePlugin) {
  const Variant oAmount = definition("FAmountFor"_key);
  const arap::BillEvent oBill{arap::Ref<arap::Object>(window.get())};
  const std::pair<const char*, std::function<void(bool)>> kLocks[] = {
      {"cell", [&](bool b) { oBill.Ctl().LockCell(arap::FieldInfo(oAmount), -1, b); }},
      {"property", [&](bool b) { oBill.Ctl().SetLockProperty(b, arap::FieldInfo(oAmount)); }},
      {"page", [&](bool b) { oBill.Ctl().SetLockProperty(b, oBill.GetFieldInfoByKey("FID")); }},
      {"screen", [&](bool b) { oBill.HeadScreenField("FAmountFor").SetLockFlag(b); }},
  };
  for (const auto& [sName, lock] : kLocks) {
    lock(true);
    EXPECT_TRUE(window->locked("FAmountFor")) << sName;
    EXPECT_NE(window->type_field("FAmountFor", -1, "5").sReason.find("锁定"), std::string::npos) << sName;
    lock(false);
    EXPECT_FALSE(window->locked("FAmountFor")) << sName;
  }
}

TEST_P(FieldEntry, APageLockPassesOverTheSettlementFields) {
  const arap::BillEvent oBill{arap::Ref<arap::Object>(window.get())};
  oBill.Ctl().SetLockProperty(true, oBill.GetFieldInfoByKey("FID"));
  EXPECT_TRUE(window->locked("FExplanation"));
  EXPECT_FALSE(window->locked("FSettleID"));
  EXPECT_FALSE(window->locked("FSettleIDNo"));
}

TEST_P(FieldEntry, ARowCellCanBeLockedAloneAndFreedWithItsColumn) {
  window->body().add_row();
  window->body().add_row();
  const Variant oNote = definition("FBillNote"_key);
  const arap::BillEvent oBill{arap::Ref<arap::Object>(window.get())};
  oBill.LockRowCell(arap::FieldInfo(oNote), 2, true);
  EXPECT_FALSE(window->locked("FBillNote", 1));
  EXPECT_TRUE(window->locked("FBillNote", 2));
  oBill.Ctl().LockCell(arap::FieldInfo(oNote), -1, false);
  EXPECT_FALSE(window->locked("FBillNote", 2));
}

TEST_P(FieldEntry, WordsForANumberAndADateAreRefused) {
  EXPECT_FALSE(window->type_field("FAmountFor", -1, "many"));
  EXPECT_FALSE(window->type_field("FDate", -1, "someday"));
  EXPECT_TRUE(window->type_field("FDate", -1, "2026-11-30"));
  EXPECT_EQ(arap::Concat(window->value("FDate")), "2026-11-30");
}

}  // namespace
}  // namespace desk::testing

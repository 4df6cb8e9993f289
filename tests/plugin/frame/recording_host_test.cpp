#include <gtest/gtest.h>

#include "frame/host_contract.h"
#include "frame/open_choices.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// The other tests lean on the recording host: what it promises of the contract is tested here.
namespace arap::testing {
namespace {

using Lines = std::vector<std::string>;

class RecordingHost : public ::testing::TestWithParam<Side> {
 protected:
  TestSession session;
  Ref<TestBill> bill = make_settlement_bill(GetParam());
  BillEvent view{Ref<Object>(bill)};
  const SideNames& names = names_of(GetParam());
};
INSTANTIATE_TEST_SUITE_P(Sides, RecordingHost, ::testing::Values(Side::Receive, Side::Pay),
                         [](const auto& side) { return side.param == Side::Receive ? "Receive" : "Pay"; });

TEST_P(RecordingHost, KeysAreComparedWithoutRegardToCase) {
  const FieldInfo oInfo = view.GetFieldInfoByKey("famountFOR"_key);
  ASSERT_FALSE(oInfo.IsNothing());
  EXPECT_EQ(plain_text(oInfo.Value("fkey"_key)), "FAmountFor");
  EXPECT_TRUE(view.GetFieldInfoByKey("FDiscountAmountr"_key).IsNothing());
}

TEST_P(RecordingHost, AHeadFieldHasOneRecordWhateverTheRow) {
  const FieldInfo oInfo = view.GetFieldInfoByKey("FAmountFor"_key);
  EXPECT_EQ(view.GetDataFld(oInfo, -1).object(), view.GetDataFld(oInfo, 0).object());
  EXPECT_EQ(view.GetDataFldbyKey("FAmountFor"_key).object(), view.GetDataFld(oInfo, -1).object());
}

TEST_P(RecordingHost, ABodyFieldHasARecordInEveryRowAndNoOther) {
  add_source_row(*bill, GetParam());
  add_source_row(*bill, GetParam(), {.dSettleFor = 30});
  const FieldInfo oInfo = view.GetFieldInfoByKey("FBillSettleAmountFor"_key);
  EXPECT_EQ(plain_number(view.GetDataFld(oInfo, 2).Value("FFLD"_key)), 30);
  EXPECT_TRUE(view.GetDataFld(oInfo, 3).IsNothing());
  EXPECT_TRUE(view.GetDataFld(oInfo, 0).IsNothing());
}

TEST_P(RecordingHost, EveryEffectIsALineAndReadsAreNot) {
  const FieldInfo oInfo = view.GetFieldInfoByKey("FAmountFor"_key);
  view.SetText(oInfo, "0"_key, 0);
  view.Ctl().LockCell(oInfo, -1, true);
  view.SetBarStatus("mnuViewVch"_key, "ENABLED"_key, false);
  view.GetDataFld(oInfo, -1).SetValue("FModify"_key, 1);
  EXPECT_EQ(trace().lines(),
            (Lines{"BillEvent.SetText(FAmountFor, \"0\", 0)", "BillCtl.LockCell(FAmountFor, -1, True)",
                   "BillEvent.SetBarStatus(\"mnuViewVch\", \"ENABLED\", False)", "FAmountFor.FModify = 1"}));
  EXPECT_TRUE(bill->cell_locked("famountfor"));
  EXPECT_EQ(bill->bar_status("mnuviewvch", "Enabled"), false);
}

TEST_P(RecordingHost, ReadsAreLinesWhenTheyAreAskedFor) {
  trace().set_detail(Trace::Detail::All);
  EXPECT_EQ(view.EditMode(), 1);
  EXPECT_EQ(trace().lines(), Lines{"BillEvent.EditMode -> 1"});
}

TEST_P(RecordingHost, TypedTextIsStoredAsTheFieldKeepsIt) {
  view.SetText(view.GetFieldInfoByKey("FAmountFor"_key), "12.5"_key, -1);
  EXPECT_EQ(bill->value("FAmountFor").type(), Variant::Type::Double);
  EXPECT_EQ(bill->number("FAmountFor"), 12.5);
  EXPECT_EQ(bill->modified("FAmountFor"), 1);
}

TEST_P(RecordingHost, TheScreenFieldIsReachedByTheTypedRoute) {
  const ScreenField oField = view.HeadScreenField(names.sPartner);
  EXPECT_EQ(plain_text(oField.Text()), "青柚商贸");
  oField.SetLockFlag(true);
  EXPECT_TRUE(bill->screen_field_locked(names.sPartner));
  EXPECT_FALSE(bill->cell_locked(names.sPartner));
}

TEST_P(RecordingHost, ActionsKeepTheMoneyIdentitiesAndTellTheirText) {
  set_amounts(*bill, GetParam(), 1000, 950);
  trace().set_detail(Trace::Detail::All);
  const FieldInfo oInfo = view.GetFieldInfoByKey(names.sReceivedFor);
  view.Ctl().DoAction(oInfo, view.GetDataFld(oInfo, -1), -1);
  EXPECT_EQ(bill->number("FDiscount"), 95);
  EXPECT_EQ(bill->number("FDiscountAmountFor"), 50);
  EXPECT_TRUE(trace().has("-- AfterDoAction"));
}

TEST_P(RecordingHost, DeletedRowsAreGone) {
  add_source_row(*bill, GetParam());
  view.DeleteEntryRows(2);
  EXPECT_EQ(Vector(view.Data("Page2"_key)).Size(), 0);
}

TEST_P(RecordingHost, AnArmedFaultMeetsEveryCallOnce) {
  int nRefused = 0;
  const int nFaults = FailEachCall([&](const std::function<void()>& arm) {
    arm();
    try {
      view.BarRefresh();
      view.Ctl().BillStatus();
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.number(), Trace::kFaultNumber);
      ++nRefused;
    }
  });
  EXPECT_EQ(nFaults, 3);
  EXPECT_EQ(nRefused, 3);
}

TEST(RecordingBar, ABandsToolHasItsOwnStateAndTheRestOfTheBarsTool) {
  const auto oBar = TestBar::of_bill_window();
  const ActiveBar bar{Ref<Object>(oBar)};
  bar.Bands("mnuData"_key).Tools("mnuSelectBill"_key).SetVisible(false);
  EXPECT_FALSE(oBar->tool("mnuData", "mnuSelectBill").visible());
  EXPECT_TRUE(oBar->tool("BandToolBar", "mnuSelectBill").visible());
  bar.Tools("mnuSelectBill"_key).SetCaption("选单"_key);
  EXPECT_EQ(oBar->tool("mnuData", "mnuSelectBill").caption(), "选单");
}

TEST(RecordingBar, WhatTheBarLacksRaisesNine) {
  const ActiveBar bar{Ref<Object>(TestBar::of_bill_window())};
  const auto number_of_error = [](auto&& call) {
    try {
      call();
    } catch (const AutomationError& error) {
      return error.number();
    }
    return std::int32_t{0};
  };
  EXPECT_EQ(number_of_error([&] { bar.Bands("mnuNone"_key); }), 9);
  EXPECT_EQ(number_of_error([&] { bar.Tools("mnuNone"_key); }), 9);
  EXPECT_EQ(number_of_error([&] { bar.Bands("mnuEdit"_key).Tools().Place("mnuNone"_key); }), 9);
}

TEST(RecordingBar, AToolIsPlacedAtItsPosition) {
  const auto oBar = TestBar::with_tools({{"mnuEdit", {"a", "b"}}});
  const ActiveBar bar{Ref<Object>(oBar)};
  bar.Tools().Add("c"_key);
  bar.Bands("mnuEdit"_key).Tools().Insert(1, "c"_key);
  EXPECT_EQ(oBar->names("mnuEdit"), (Lines{"a", "c", "b"}));
}

TEST(RecordingRecordset, AFilterHidesRowsAndComesOffAgain) {
  const auto rows = recordset({"FID", "FNumber"}, {{1, "A"}, {2, "B"}, {2, ""}});
  const Recordset rs{Ref<Object>(rows)};
  rows->put(Member::Filter, " FId=2");
  EXPECT_EQ(rs.RecordCount(), 2);
  rows->put(Member::Filter, "FID='2' And FNumber <> ''");
  EXPECT_EQ(rs.RecordCount(), 1);
  EXPECT_EQ(plain_text(rs.Value("fnumber"_key)), "B");
  rows->put(Member::Filter, "");
  EXPECT_EQ(rs.RecordCount(), 3);
}

TEST(RecordingRecordset, ReadingPastTheEndRaises) {
  const Recordset rs{Ref<Object>(recordset({"FID"}, {{1}}))};
  EXPECT_EQ(plain_number(rs.Value(std::int32_t{0})), 1);
  rs.MoveNext();
  EXPECT_TRUE(rs.Eof());
  EXPECT_THROW(rs.Value("FID"_key), AutomationError);
  EXPECT_THROW(rs.MoveNext(), AutomationError);
}

TEST(RecordingSession, AComponentIsMadeOnlyByItsOwnRoute) {
  TestSession session;
  EXPECT_THROW(session.platform.CreateObject("NUVMARAPPush.clsPush"), AutomationError);
  const Ref<Object> oFactory = session.platform.CreateObject(open_choices::kObjectFactory);
  EXPECT_FALSE(oFactory->call(Member::CreateServerObject, "nuvmarappush.CLSPUSH"_key).is_nothing());
  EXPECT_THROW(oFactory->call(Member::CreateServerObject, "NUVConnection.AppConnection"_key), AutomationError);
  EXPECT_TRUE(session.platform.CreateObject("nuvconnection.appconnection"));
}

}  // namespace
}  // namespace arap::testing

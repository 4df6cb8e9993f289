#include "engine/containers.h"

#include <gtest/gtest.h>

#include "engine/bars.h"
#include "frame/host_contract.h"
#include "frame/open_choices.h"

namespace desk {
namespace {

using arap::Dictionary;
using arap::Vector;

TEST(Containers, ADictionaryKeepsTheOrderAndFirstSpellingOfItsKeys) {
  const Dictionary oDict(make_engine_object(arap::open_choices::kDictionary));
  oDict.SetValue("FBillID", 7);
  oDict.SetValue("FDate", "2026-11-21");
  oDict.SetValue("fbillid", 8);
  EXPECT_EQ(oDict.Size(), 2);
  EXPECT_EQ(oDict.Name(1).text(), "FBillID");
  EXPECT_EQ(arap::LongOf(oDict.Value("FBILLID")), 8);
}

TEST(Containers, ALargeDictionaryStillFindsEveryKeyInAnyCase) {
  const Dictionary oDict(make_engine_object("nuvcontainers.dictionary"));
  for (std::int32_t i = 0; i < 100; ++i) oDict.SetValue("Key" + std::to_string(i), i);
  for (std::int32_t i = 0; i < 100; ++i) {
    EXPECT_EQ(arap::LongOf(oDict.Value("KEY" + std::to_string(i))), i);
  }
  EXPECT_FALSE(oDict.Lookup("Key100"));
}

TEST(Containers, ReadingAnAbsentKeyRaisesAndGetValueAnswersTheDefault) {
  const Dictionary oDict(make_engine_object(arap::open_choices::kDictionary));
  EXPECT_THROW(oDict.Value("FDate"), arap::AutomationError);
  EXPECT_EQ(oDict.GetValue("FDate", "none").text(), "none");
}

TEST(Containers, AVectorCountsFromOneAndClosesTheGapOfARemovedItem) {
  const Vector oVector(make_engine_object(arap::open_choices::kVector));
  EXPECT_EQ(oVector.LBound(), 0);
  for (std::int32_t i = 1; i <= 3; ++i) oVector.Add(i * 10);
  oVector.Remove(2);
  EXPECT_EQ(oVector.UBound(), 2);
  EXPECT_EQ(arap::LongOf(oVector.Item(2)), 30);
  EXPECT_THROW(oVector.Item(3), arap::AutomationError);
  EXPECT_THROW(oVector.Item(0), arap::AutomationError);
}

TEST(Containers, OtherProgIDsAreNotMade) { EXPECT_FALSE(make_engine_object("NUVBills.Bills")); }

TEST(Bars, ATagOrToolIdNamesTheSourceTypeOfASelection) {
  const auto oTool = arap::make_object<BarTool>("mnuSelectBill_2000001");
  oTool->put(arap::Member::Tag, "2000003");
  EXPECT_EQ(oTool->selection_type(), 2000003);
  oTool->put(arap::Member::ToolId, 2000001);
  EXPECT_EQ(oTool->selection_type(), 2000001);
}

TEST(Bars, AToolIsOneWhereverItIsPlaced) {
  const auto bar = arap::make_object<Bar>();
  const arap::ActiveBar oBar{arap::Ref<arap::Object>(bar)};
  bar->add_band("mnuEdit", "编辑");
  bar->add_band("BandToolBar", "工具栏");
  oBar.Tools().Add("mnuA");
  oBar.Tools().Add("mnuB");
  oBar.Bands("mnuEdit").Tools().Place("mnuA");
  oBar.Bands("BandToolBar").Tools().Place("mnuA");
  oBar.Bands("BandToolBar").Tools().Insert(0, "mnuB");
  EXPECT_EQ(oBar.Bands("bandtoolbar").Tools(std::int32_t{0}).Name().text(), "mnuB");
  oBar.Bands("mnuEdit").Tools("mnuA").SetEnabled(false);
  EXPECT_FALSE(oBar.Tools("mnuA").Enabled());
  EXPECT_FALSE(oBar.Bands("BandToolBar").Tools("MNUA").Enabled());
}

TEST(Bars, ABandOrToolThatTheBarLacksRaises) {
  const auto bar = arap::make_object<Bar>();
  const arap::ActiveBar oBar{arap::Ref<arap::Object>(bar)};
  BarBand& band = bar->add_band("mnuEdit", "编辑");
  EXPECT_THROW(oBar.Bands("mnuData"), arap::AutomationError);
  EXPECT_THROW(oBar.Tools("mnuA"), arap::AutomationError);
  EXPECT_THROW(bar->place(band, "mnuA"), arap::AutomationError);
}

}  // namespace
}  // namespace desk

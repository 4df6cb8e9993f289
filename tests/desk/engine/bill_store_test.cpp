#include "engine/bill_store.h"

#include <gtest/gtest.h>

#include "desk/engine/engine_world.h"
#include "engine/key_places.h"

namespace desk::testing {
namespace {

using arap::operator""_key;

/// A stored bill with three rows, in the window and in the book.
class BillStoreTest : public BillWorld {
 protected:
  void SetUp() override {
    BillWorld::SetUp();
    fill_bill();
    window->bar().add_tool(GetParam().sSelect);
    ASSERT_TRUE(window->press(GetParam().sSelect));
    ASSERT_TRUE(window->save());
    ASSERT_EQ(window->body().size(), 3u);
  }

  std::string entry() const { return std::string(GetParam().sTable) + "Entry"; }
  /// Rows of any table that this connection has written so far.
  std::int32_t written() { return arap::LongOf(database->value("SELECT total_changes()")); }
  std::string stored_amounts() {
    const Rows rows = database->query("SELECT FIndex, FBillSettleAmountFor FROM " + entry() + " ORDER BY FIndex");
    std::string sText;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      sText += rows.text(i, "FIndex") + ":" + rows.money(i, "FBillSettleAmountFor").text() + " ";
    }
    return sText;
  }
  void settle(std::int32_t nRow, std::string_view sAmount) {
    ASSERT_TRUE(window->type_field("FBillSettleAmountFor", nRow, sAmount)) << sAmount;
  }
};
INSTANTIATE_TEST_SUITE_P(BothSides, BillStoreTest, ::testing::ValuesIn(kSides), side_name);

TEST_P(BillStoreTest, AStoreWritesOnlyTheHeadAndTheRowsThatChanged) {
  DESK_FILES_ONLY();
  ASSERT_TRUE(window->type_field("FExplanation", -1, "head only"));
  const std::int32_t nBefore = written();
  ASSERT_TRUE(window->save());
  EXPECT_EQ(written() - nBefore, 1);
  settle(2, "20");
  const std::int32_t nSecond = written();
  ASSERT_TRUE(window->save());
  EXPECT_EQ(written() - nSecond, 3) << "the head, the former row away, the new one in its place";
  EXPECT_EQ(stored_amounts(), "1:0.00 2:20.00 3:0.00 ");
}

TEST_P(BillStoreTest, AValueThatARuleWritesWithoutTheModifyMarkIsStoredToo) {
  const arap::Dictionary oRecord(
      window->call(arap::Member::GetDataFldByRow, "FBillSettleAmountFor"_key, std::int32_t{3}));
  oRecord.SetValue("FFLD", 7.25);
  EXPECT_EQ(arap::LongOf(oRecord.Value("FModify")), 0);
  ASSERT_TRUE(window->save());
  EXPECT_EQ(stored_amounts(), "1:0.00 2:0.00 3:7.25 ");
}

TEST_P(BillStoreTest, TheNeighboursOfABillAreThoseOfItsNumber) {
  const std::string sType = window->bill().sTypeField;
  const std::int32_t nStored = window->bill_id();
  for (const auto& [nBillID, sNumber] : {std::pair(901, "A1"), std::pair(900, "Z1")})
    database->exec("INSERT INTO " + std::string(GetParam().sTable) + " (FBillID, FBillNo, FDate, " + sType +
                       ") VALUES (?, ?, '2026-11-05', 1)",
                   {nBillID, sNumber});
  BillStore store(*database, window->bill());
  using Direction = RecordStore::Direction;
  EXPECT_EQ(store.neighbour(nStored, Direction::Previous), 901);
  EXPECT_EQ(store.neighbour(nStored, Direction::Next), 900);
  EXPECT_EQ(store.neighbour(901, Direction::Previous), 0);
  EXPECT_EQ(store.neighbour(900, Direction::Next), 0);
  EXPECT_EQ(store.neighbour(0, Direction::Previous), 900);
  EXPECT_EQ(store.neighbour(0, Direction::Next), 0);
  EXPECT_EQ(store.neighbour(777, Direction::Next), 0) << "a bill that is gone has none";
}

TEST_P(BillStoreTest, RowsBehindADeletedOneMoveUp) {
  settle(1, "1");
  settle(2, "2");
  settle(3, "3");
  ASSERT_TRUE(window->save());
  window->body().remove(2);
  ASSERT_TRUE(window->save());
  EXPECT_EQ(stored_amounts(), "1:1.00 2:3.00 ");
  window->body().remove(2);
  ASSERT_TRUE(window->save());
  EXPECT_EQ(stored_amounts(), "1:1.00 ");
}

TEST_P(BillStoreTest, ABlankRowIsNotStoredAndGoneAfterTheLoad) {
  window->body().add_row();
  settle(3, "3");
  ASSERT_TRUE(window->save());
  EXPECT_EQ(window->body().size(), 3u);
  EXPECT_EQ(stored_amounts(), "1:0.00 2:0.00 3:3.00 ");
}

TEST_P(BillStoreTest, TheRowsThatAStoreKeepsAreThoseThatALoadWouldRead) {
  const arap::Variant aValues[] = {1.23456, "1.5 and more", std::int16_t{3}, arap::Null{}, arap::Date{45982}, true, {}};
  std::int32_t nWritten = 0;
  for (const TemplateField& field : window->bill().fields()) {
    if (field.nPage != 2 || field.sKey == "FInterID") continue;
    for (std::int32_t nRow = 1; nRow <= 3; ++nRow) {
      window->body().row(nRow)->put(field.nPosition,
                                    aValues[static_cast<std::size_t>(nWritten++) % std::size(aValues)]);
    }
  }
  ASSERT_TRUE(window->save());
  const OpenBillWindow fresh = make_window();
  ASSERT_TRUE(fresh->load_bill(window->bill_id()));
  for (const TemplateField& field : window->bill().fields()) {
    for (std::int32_t nRow = 1; field.nPage == 2 && nRow <= 3; ++nRow) {
      const Value vKept = window->value(field.sKey, nRow);
      const Value vRead = fresh->value(field.sKey, nRow);
      EXPECT_EQ(vKept.type(), vRead.type()) << field.sKey << " of row " << nRow;
      EXPECT_EQ(arap::Concat(vKept), arap::Concat(vRead)) << field.sKey << " of row " << nRow;
      EXPECT_EQ(window->shown(field.sKey, nRow), fresh->shown(field.sKey, nRow)) << field.sKey << " of row " << nRow;
    }
  }
}

TEST_P(BillStoreTest, ALoadTakesLocksMarksAndDecimalsAwayFromTheRowsItKeeps) {
  settle(1, "1");
  const arap::Variant vField = definition("FBillSettleAmountFor"_key);
  window->call(arap::Member::LockRowCell, vField, std::int32_t{1}, true);
  window->call(arap::Member::SetFieldDecimals, vField, std::int32_t{2}, std::int32_t{4});
  EXPECT_TRUE(window->locked("FBillSettleAmountFor", 1));
  ASSERT_TRUE(window->save());
  EXPECT_FALSE(window->locked("FBillSettleAmountFor", 1));
  EXPECT_EQ(window->shown("FBillSettleAmountFor", 2), "0.00");
  EXPECT_FALSE(window->has_changes());
}

TEST_P(BillStoreTest, ALoadReadsWhatAnotherSeatHasStored) {
  const OpenBillWindow other = make_window();
  ASSERT_TRUE(other->load_bill(window->bill_id()));
  ASSERT_TRUE(other->type_field("FBillSettleAmountFor", 1, "9"));
  ASSERT_TRUE(other->save());
  ASSERT_TRUE(window->load_bill(window->bill_id()));
  EXPECT_EQ(number("FBillSettleAmountFor", 1), 9);
}

TEST_P(BillStoreTest, ABillThatAnotherSeatHasStoredMeanwhileIsNotWrittenOver) {
  const OpenBillWindow other = make_window();
  ASSERT_TRUE(other->load_bill(window->bill_id()));
  ASSERT_TRUE(other->type_field("FBillSettleAmountFor", 1, "9"));
  ASSERT_TRUE(other->save());
  settle(2, "5");
  const Outcome late = window->save();
  EXPECT_FALSE(late);
  EXPECT_NE(late.sReason.find("已被其他用户修改"), std::string::npos) << late.sReason;
  EXPECT_EQ(stored_amounts(), "1:9.00 2:0.00 3:0.00 ");
}

TEST_P(BillStoreTest, AFailedStoreForgetsNothingThatIsStillToBeWritten) {
  DESK_FILES_ONLY();
  settle(1, "1");
  settle(3, "3");
  database->exec("CREATE TRIGGER t_Full BEFORE INSERT ON " + entry() +
                 " WHEN NEW.FIndex = 3 BEGIN SELECT RAISE(ABORT, 'no room'); END");
  EXPECT_FALSE(window->save());
  EXPECT_EQ(stored_amounts(), "1:0.00 2:0.00 3:0.00 ");
  database->exec("DROP TRIGGER t_Full");
  ASSERT_TRUE(window->save());
  EXPECT_EQ(stored_amounts(), "1:1.00 2:0.00 3:3.00 ");
}

TEST(KeyPlacesTest, EveryBodyThatWasEnteredIsFoundAndNoOther) {
  std::vector<arap::Text> aKeys;
  for (int i = 0; i < 2000; ++i) aKeys.emplace_back("F" + std::to_string(i));
  KeyPlaces places;
  EXPECT_EQ(places.find(aKeys.front().body()), nullptr);
  for (std::size_t i = 0; i < aKeys.size(); i += 2) places.enter(aKeys[i].body(), i);
  places.enter(aKeys.front().body(), 5);
  for (std::size_t i = 0; i < aKeys.size(); ++i) {
    const std::size_t* pFound = places.find(aKeys[i].body());
    ASSERT_EQ(pFound != nullptr, i % 2 == 0) << i;
    EXPECT_EQ(pFound == nullptr ? i : *pFound, i) << "a body that is there keeps its number";
  }
  EXPECT_EQ(places.find(nullptr), nullptr);
}

}  // namespace
}  // namespace desk::testing

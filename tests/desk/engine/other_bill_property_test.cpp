#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "desk/engine/other_bill_world.h"
#include "desk/services/write_off_model.h"

namespace desk::testing {
namespace {

constexpr int kSteps = 120;  // a side; each opens a window, fills it, saves or checks

/// The steps of WriteOffs through whole windows with the plug-in behind them.
class OtherBillProperty : public OtherBillWorld {
 protected:
  void SetUp() override {
    OtherBillWorld::SetUp();
    database->query("PRAGMA synchronous = OFF");
    degree("1");
    session->platform().set_ask_user([](const ShownMessage& box) { return is_question(box) ? kButtonYes : kButtonOk; });
  }
  void TearDown() override {
    session->platform().set_ask_user({});
    OtherBillWorld::TearDown();
  }

  std::int64_t random(std::int64_t nFrom, std::int64_t nTo) {
    return std::uniform_int_distribution<std::int64_t>(nFrom, nTo)(engine);
  }
  template <class T>
  std::int32_t any_of(const std::map<std::int32_t, T>& all) {
    return std::next(all.begin(), random(0, static_cast<std::int64_t>(all.size()) - 1))->first;
  }
  static std::string text_of(std::int64_t nCents) { return SmallBook::cents(nCents).text(); }

  void new_bill() {
    const bool bCredit = random(0, 3) != 0;
    const std::int64_t nCents = random(1, 100'000);
    fill(bCredit ? tables().nCreditType : tables().side.nImmediateType, GetParam().sSecond, text_of(nCents));
    ASSERT_TRUE(window->save()) << last_message();
    model.add(window->bill_id(), bCredit, nCents);
  }
  void edit(std::int32_t nBill) {
    const std::int64_t nCents = random(1, 100'000);
    ASSERT_TRUE(window->load_bill(nBill));
    const bool bDone = window->type_field("FBillAmountFor", 1, text_of(nCents)) && window->save();
    EXPECT_EQ(bDone, model.edit(nBill, model.bills[nBill].bCredit, nCents)) << nBill;
  }
  bool status_after(const OpenBillWindow& each, std::int32_t nBill, const char* sTool) {
    EXPECT_TRUE(each->load_bill(nBill));
    each->press(sTool);
    return arap::LongOf(each->value("FStatus")) == 1;
  }
  void check(std::int32_t nBill) {
    model.check(nBill);
    EXPECT_EQ(status_after(window, nBill, "mnuEditCheck"), model.bills[nBill].bChecked) << nBill;
  }
  void uncheck(std::int32_t nBill) {
    model.uncheck(nBill);
    EXPECT_EQ(status_after(window, nBill, "mnuEditUnCheck"), model.bills[nBill].bChecked) << nBill;
  }
  void remove(std::int32_t nBill) {
    ASSERT_TRUE(window->load_bill(nBill));
    window->press("mnuEditDelete");
    const bool bGone =
        database->query(side_sql(tables().side, "SELECT 1 FROM {other} WHERE FBillID = ?"), {nBill}).empty();
    EXPECT_EQ(bGone, model.remove(nBill)) << nBill;
  }
  void settle(std::int32_t nBill) {
    if (!model.bills[nBill].bChecked || model.open(nBill) == 0) return;
    const std::int64_t nCents = random(0, 1) == 0 ? model.open(nBill) : random(1, model.open(nBill));
    const OpenBillWindow receipt = open(GetParam().sSettlement);
    receipt->new_bill();
    ASSERT_TRUE(receipt->type_field(GetParam().sPartner, -1, GetParam().sSecond));
    ASSERT_TRUE(receipt->type_field("FAcctID", -1, "1002.01"));
    receipt->set_chooser(choose_where([nBill, this](const SourceList& list, std::size_t nRow) {
      return list.text(nRow, "FBillID") == std::to_string(nBill) &&
             list.text(nRow, "FClassTypeID_SRC") == std::to_string(tables().nClass);
    }));
    ASSERT_TRUE(receipt->press(GetParam().sSelect));
    ASSERT_EQ(receipt->body().size(), 1u);
    ASSERT_TRUE(receipt->type_field("FBillSettleAmountFor", 1, text_of(nCents)));
    ASSERT_TRUE(receipt->press("mnuDataAutoSumAmt"));
    ASSERT_TRUE(receipt->save()) << last_message();
    model.add_settlement(receipt->bill_id(), {{nBill, nCents}});
    if (random(0, 3) == 0) return;  // stays a draft
    EXPECT_EQ(status_after(receipt, receipt->bill_id(), "mnuEditCheck"), model.check_settlement(receipt->bill_id()));
  }
  void unsettle(std::int32_t nID) {
    const OpenBillWindow receipt = open(GetParam().sSettlement);
    model.uncheck_settlement(nID);
    EXPECT_EQ(status_after(receipt, nID, "mnuEditUnCheck"), model.settlements[nID].bChecked) << nID;
  }

  void step() {
    const std::int64_t nWhat = random(0, 99);
    if (nWhat < 20 || model.bills.empty()) return new_bill();
    const std::int32_t nBill = any_of(model.bills);
    if (nWhat < 28) return edit(nBill);
    if (nWhat < 50) return check(nBill);
    if (nWhat < 60) return uncheck(nBill);
    if (nWhat < 66) return remove(nBill);
    if (nWhat < 88 || model.settlements.empty()) return settle(nBill);
    unsettle(any_of(model.settlements));
  }

  void compare() {
    for (const auto& [nBill, expected] : model.bills) {
      const Rows rows =
          database->query(side_sql(tables().side,
                                   "SELECT FStatus, FAmountFor - FCheckAmountFor AS FLeft, FAmount - FCheckAmount AS"
                                   " FLeftBase FROM {other} WHERE FBillID = ?"),
                          {nBill});
      ASSERT_EQ(rows.size(), 1u) << nBill;
      EXPECT_EQ(rows.integer(0, "FStatus") == 1, expected.bChecked) << nBill;
      EXPECT_EQ(rows.money(0, "FLeft"), SmallBook::cents(model.open(nBill))) << nBill;
      EXPECT_EQ(rows.money(0, "FLeftBase"), rows.money(0, "FLeft")) << nBill;
    }
  }

  WriteOffModel model;
  std::mt19937_64 engine;
};
INSTANTIATE_TEST_SUITE_P(Sides, OtherBillProperty, ::testing::ValuesIn(kOtherSides), other_side_name);

TEST_P(OtherBillProperty, OpenAmountsEqualAmountMinusWriteOffsThroughWholeWindows) {
  const std::uint64_t nSeed = std::random_device{}();
  std::cout << "seed " << nSeed << ", " << kSteps << " steps\n";
  engine.seed(nSeed);
  for (int nStep = 1; nStep <= kSteps; ++nStep) {
    step();
    compare();
    ASSERT_FALSE(HasFailure()) << "seed " << nSeed << ", step " << nStep << ": " << last_message();
  }
}

}  // namespace
}  // namespace desk::testing

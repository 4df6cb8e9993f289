#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

/// The chain of the save: for every set of faults the first one in order answers, and nothing behind it runs.
class SaveLadder : public SettlementTest {
 protected:
  struct Fault {
    std::string sText;
    int nStyle;
    std::function<void()> make;
  };

  SaveLadder() {
    session.commands.answer("select 1 from", recordset({"1"}, {{std::int32_t{1}}}));
    bill->head("FBillID", std::int32_t{0});
    trace().clear();
  }

  /// A bill that passes: two rows of 60 and 40.
  void make_good_bill() {
    add_source_row(*bill, GetParam(), {.nInterID = 1, .dOpenFor = 60, .dSettleFor = 60});
    add_source_row(*bill, GetParam(), {.nInterID = 2, .dOpenFor = 40, .dSettleFor = 40});
    set_amounts(*bill, GetParam(), 100, 100);
  }

  std::vector<Fault> faults() {
    const std::string sPartOfHead = pick("收款单单据头的收款金额与单据体的本次核销金额总和不相等，不允许保存。",
                                         "付款单单据头的付款金额与单据体的本次核销金额总和不相等，不允许保存。");
    return {
        {pick("收款单币别与表体币别不能同时是不同种类的外币,请重新设置!",
              "付款单币别与表体币别不能同时是不同种类的外币,请重新设置!"),
         64,
         [this] {
           use_currency(3);
           bill->set_value("FBillCurrencyID", 1, std::int32_t{2});
           bill->set_value("FBillCurrencyID", 2, std::int32_t{2});
         }},
        {pick("该单据已经被核销,不能再修改本收款单!", "该单据已经被核销,不能再修改本付款单!"), 64,
         [this] { bill->head("FCheckAmountFor", 5.0); }},
        {pick("收款单的收款金额为零，不允许保存。", "付款单的付款金额为零，不允许保存。"), 48,
         [this] { bill->head("FAmount", 0.0); }},
        {"不能保存业务系统当前使用期间之前的单据,请修改单据日期。", 48, [this] { bill->head("FDate", "2023-12-31"); }},
        {"有折扣金额,请输入折扣科目!", 64, [this] { bill->head("FDiscountAmount", 5.0); }},
        {"第1行本次核销金额为零，不允许保存。", 48, [this] { bill->set_value("FBillSettleAmountFor", 1, 0.0); }},
        {"第2行本次核销金额不能大于未核销金额。", 48, [this] { bill->set_value(side.sOpenFor, 2, 39.0); }},
        {sPartOfHead, 48, [this] { bill->head("FAmountFor", 101.0); }},
    };
  }
};
INSTANTIATE_BOTH_SIDES(SaveLadder);

TEST_P(SaveLadder, ABillWithoutAFaultIsSavedWithoutAWord) {
  make_good_bill();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(box_count(), 0);
  EXPECT_EQ(bill->number("FDiscount"), 1);
  EXPECT_EQ(bill->number("FDiscountDsp"), 100);
}

TEST_P(SaveLadder, ForEverySetOfFaultsTheFirstInOrderAnswersAlone) {
  const std::size_t nFaults = faults().size();
  for (unsigned nSet = 1; nSet < (1u << nFaults); ++nSet) {
    bill->remove_rows();
    use_currency(1);
    bill->head("FCheckAmountFor", 0.0).head("FDate", "2024-01-15");
    make_good_bill();
    std::size_t nFirst = nFaults;
    const std::vector<Fault> aFaults = faults();
    for (std::size_t n = nFaults; n-- > 0;) {
      if ((nSet >> n & 1u) == 0) continue;
      aFaults[n].make();
      nFirst = n;
    }
    session.platform.messages.clear();
    ASSERT_TRUE(bill->save()) << nSet;
    ASSERT_EQ(box_count(), 1) << nSet;
    EXPECT_EQ(message(), aFaults[nFirst].sText) << nSet;
    EXPECT_EQ(style(), aFaults[nFirst].nStyle) << nSet;
    ASSERT_EQ(bill->number("FDiscount"), 100) << nSet;
  }
}

TEST_P(SaveLadder, ARefusalWritesNothingAndMovesNoLock) {
  make_good_bill();
  bill->head("FAmountFor", 101.0);
  trace().clear();
  EXPECT_TRUE(bill->save());
  EXPECT_FALSE(trace().has("FFLD ="));
  EXPECT_FALSE(trace().has("Lock"));
  EXPECT_FALSE(trace().has("SetBarStatus"));
}

TEST_P(SaveLadder, ACheckedBillSavesItsSettlementFieldsAloneWhateverElseIsWrong) {
  make_good_bill();
  for (const Fault& fault : faults()) fault.make();
  bill->head("FStatus", std::int32_t{1}).head("FBillID", std::int32_t{31});
  bill->head("FSettleID", std::int32_t{4}).head("FSettleIDNO", "o'k 1");
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(bill->not_save);
  ASSERT_EQ(session.commands.texts.size(), 1u);
  EXPECT_EQ(session.commands.texts[0],
            std::string(" UPDATE ") + side.sBillTable + " SET FSettleID=4,FSettleIDNo='o'k 1' WHERE FBillID=31");
  EXPECT_EQ(bill->number("FDiscount"), 100);
}

TEST_P(SaveLadder, AFailingStatementOfTheSettlementFieldsIsNotTold) {
  bill->head("FStatus", std::int32_t{1});
  session.commands.fail(" UPDATE", -5, "no connection");
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(bill->not_save);
}

TEST_P(SaveLadder, OnlyABillOpenedForModifyingIsNotTestedByItsPeriod) {
  make_good_bill();
  bill->head("FDate", "2023-12-31");
  for (const std::int32_t nMode : {0, 1}) {
    bill->edit_mode = nMode;
    EXPECT_TRUE(bill->save()) << nMode;
    EXPECT_EQ(message(), "不能保存业务系统当前使用期间之前的单据,请修改单据日期。");
  }
  bill->edit_mode = 2;
  EXPECT_FALSE(bill->save());
}

TEST_P(SaveLadder, AnAmountWrittenOffBelowZeroFreezesTheBillToo) {
  make_good_bill();
  bill->head("FCheckAmountFor", -5.0);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("该单据已经被核销,不能再修改本收款单!", "该单据已经被核销,不能再修改本付款单!"));
}

TEST_P(SaveLadder, ANegativeDiscountAmountNeedsItsAccountToo) {
  make_good_bill();
  bill->head("FDiscountAmount", -5.0);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), "有折扣金额,请输入折扣科目!");
  bill->head("FDiscountAcctId", std::int32_t{55});
  EXPECT_FALSE(bill->save());
}

TEST_P(SaveLadder, AnAdvanceWithAPositiveAmountPassesWithoutAServerCall) {
  use_type(side.nAdvanceType);
  set_amounts(*bill, GetParam(), 80, 80);
  bill->head("FDiscountAmount", 5.0);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(session.server(side.sService).count(Member::GetUnCheckAmountFor), 0u);
  EXPECT_EQ(bill->number("FDiscount"), 1);
}

TEST_P(SaveLadder, AnAdvanceSkipsTheTestOfTheDiscountAccount) {
  use_type(side.nAdvanceType);
  for (const double dAmount : {80.0, -80.0}) {
    set_amounts(*bill, GetParam(), dAmount, dAmount);
    bill->head("FDiscountAmount", 5.0).head("FDiscountAcctId", std::int32_t{0});
    session.server(side.sService).answers(Member::GetUnCheckAmountFor, 80.0);
    EXPECT_FALSE(bill->save()) << dAmount;
    EXPECT_EQ(box_count(), 0) << dAmount;
  }
}

TEST_P(SaveLadder, OnlyThePaymentRoundsTheHeadAmountsAsItReadsThem) {
  make_good_bill();
  bill->head("FAmount", 0.00000000001);
  EXPECT_EQ(bill->save(), !receive());
  EXPECT_EQ(message(), pick("", "付款单的付款金额为零，不允许保存。"));

  use_type(side.nAdvanceType);
  set_amounts(*bill, GetParam(), -80.00000000001, -80.00000000001);
  session.server(side.sService).answers(Member::GetUnCheckAmountFor, 80.0);
  session.platform.messages.clear();
  EXPECT_EQ(bill->save(), receive());
  EXPECT_EQ(message(), pick("当前预收款金额大于该客户已有预收金额，不允许保存。", ""));
}

TEST_P(SaveLadder, ANegativeAdvanceTakesBackNoMoreThanThePartnerHas) {
  use_type(side.nAdvanceType);
  bill->head("FBillID", std::int32_t{9});
  set_amounts(*bill, GetParam(), -80, -80);
  session.server(side.sService).answers(Member::GetUnCheckAmountFor, 80.0);
  EXPECT_FALSE(bill->save());
  const std::vector<Variant> args = session.server(side.sService).last(Member::GetUnCheckAmountFor);
  ASSERT_EQ(args.size(), 4u);
  EXPECT_EQ(args[1].as<std::int32_t>(), 7);
  EXPECT_EQ(args[2].as<std::int32_t>(), 1);
  EXPECT_EQ(args[3].as<double>(), 9.0);

  bill->head("FDiscount", 100.0);
  session.server(side.sService).answers(Member::GetUnCheckAmountFor, 79.99);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("当前预收款金额大于该客户已有预收金额，不允许保存。",
                            "当前预付款金额大于该供应商已有预付金额，不允许保存。"));
  EXPECT_EQ(style(), 48);
}

TEST_P(SaveLadder, ABillWithoutASourceRowDiffersFromItsHead) {
  set_amounts(*bill, GetParam(), 10, 10);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(message(), pick("收款单单据头的收款金额与单据体的本次核销金额总和不相等，不允许保存。",
                            "付款单单据头的付款金额与单据体的本次核销金额总和不相等，不允许保存。"));
}

TEST_P(SaveLadder, AnErrorInTheChainCancelsAndReachesTheHostAsItIs) {
  make_good_bill();
  session.commands.fail("select 1 from", -77, "server gone");
  std::array<Variant, 1> args{false};
  try {
    bill->events.fire(Event::BeforeSave, args);
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), -77);
    EXPECT_EQ(error.description(), "server gone");
  }
  EXPECT_TRUE(args[0].as<bool>());
}

TEST_P(SaveLadder, TheTraceOfASaveIsApproved) {
  make_good_bill();
  trace().clear();
  bill->save();
  expect_golden("before_save");
}

}  // namespace
}  // namespace arap::testing

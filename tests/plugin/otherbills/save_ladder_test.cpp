#include "save_fixture.h"

namespace arap::testing {
namespace {

/// The chain of the save: for every set of faults the first one in order answers, and nothing behind it runs.
class OtherSaveLadder : public OtherSaveTest {
 protected:
  struct Fault {
    Box box;
    std::function<void()> make;
    std::string sLastCall;  // the question of the chain behind which no other is asked
  };

  void make_good_bill() {
    session.platform.messages.clear();
    session.period_start = "2024-01-01";
    number_service().on(side.numberQuery, [](Arguments) { return Variant(recordset({"FBillID"})); });
    types().answers(Member::IsSameAcctId, false);
    use_uncontrolled_credit();
    bill->head(side.sPartner, 7).head("FAmountFor", 0.0).head("FAmount", 0.0);
    bill->remove_rows();
    add_other_row(*bill, {.dAmountFor = 60});
    add_other_row(*bill, {.dAmountFor = 40});
    add_other_row(*bill, {.dAmountFor = 20});
  }

  std::vector<Fault> faults() {
    const std::string sStop = pick("此客户已超出信用额度，不允许保存!", "此供应商已超出信用额度，不允许保存!");
    const auto refusal = [](std::string sText, int nStyle = 48) { return Box{std::move(sText), nStyle, "青柚提示"}; };
    return {
        {refusal("不能保存业务系统当前使用期间之前的单据,请修改单据日期。"),
         [this] { session.period_start = "2024-02-01"; }, ".GetDateExt("},
        {refusal(pick("编号相同的费用支出单据已经存在，请检查单据编号和编码规则。",
                      "编号相同的其他收入单据已经存在，请检查单据编号和编码规则。")),
         [this] { use_number_taken(); }, "BillInfo("},
        {refusal(pick("请指定客户名称!", "请指定供应商名称!")), [this] { bill->head(side.sPartner, 0); }, "BillInfo("},
        {refusal(amount_missing(1)), [this] { bill->set_value("FBillAmountFor", 1, 0.0); }, "BillInfo("},
        {refusal(not_detail(1)), [this] { bill->set_value("FInOutTypeId", 1, kParentType); }, "BillInfo("},
        {refusal(type_missing(2)), [this] { bill->set_value("FInOutTypeId", 2, 0); }, "BillInfo("},
        {refusal(amount_missing(3)), [this] { bill->set_value("FBillAmountFor", 3, 0.0); }, "BillInfo("},
        {refusal(pick("收入类别科目同结算账户科目相同，请修改。", "支出类别科目同结算账户科目相同，请修改。")),
         [this] { types().answers(Member::IsSameAcctId, true); }, ".IsSameAcctId("},
        {refusal(pick("单据收入明细的金额合计为0，不允许保存。", "单据支出明细的金额合计为0，不允许保存。")),
         [this] { set_sum_to_zero(); }, ".IsSameAcctId("},
        {refusal(sStop, 16), [this] { use_credit_limit("3"); }, ".GetRpt"},
    };
  }

  /// The last question to a server or to the database.
  static std::string last_call() {
    std::string sLast;
    for (const std::string& sLine : trace().lines()) {
      for (const char* sCall : {".GetDateExt(", "BillInfo(", ".IsSameAcctId(", ".OpenQuery(", ".GetRpt", ".GetBill("}) {
        if (sLine.find(sCall) != std::string::npos) sLast = sCall;
      }
    }
    return sLast;
  }

  /// Takes back in a row that has an amount what the others give.
  void set_sum_to_zero() {
    double dSum = 0;
    int nTaker = 0;
    for (int nRow = 1; nRow <= 3; ++nRow) {
      dSum += bill->number("FBillAmountFor", nRow);
      if (bill->number("FBillAmountFor", nRow) != 0) nTaker = nRow;
    }
    bill->set_value("FBillAmountFor", nTaker, bill->number("FBillAmountFor", nTaker) - dSum);
  }
};
INSTANTIATE_OTHER_SIDES(OtherSaveLadder);

TEST_P(OtherSaveLadder, ABillWithoutAFaultIsSavedWithoutAWord) {
  make_good_bill();
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes().size(), 0u);
  EXPECT_EQ(bill->number("FAmountFor"), 120);
}

TEST_P(OtherSaveLadder, ForEverySetOfFaultsTheFirstInOrderAnswersAlone) {
  const std::size_t nFaults = faults().size();
  for (unsigned nSet = 1; nSet < (1u << nFaults); ++nSet) {
    make_good_bill();
    std::size_t nFirst = nFaults;
    const std::vector<Fault> aFaults = faults();
    // The sum first: a row without an amount would leave nothing to take back.
    if ((nSet >> 8 & 1u) != 0) aFaults[8].make();
    for (std::size_t n = nFaults; n-- > 0;) {
      if ((nSet >> n & 1u) == 0) continue;
      if (n != 8) aFaults[n].make();
      nFirst = n;
    }
    trace().clear();
    ASSERT_TRUE(bill->save()) << nSet;
    ASSERT_EQ(boxes(), std::vector<Box>{aFaults[nFirst].box}) << nSet;
    const bool bWrites = nFirst + 1 == nFaults;
    EXPECT_EQ(trace().has("FFLD = "), bWrites) << nSet;
    EXPECT_FALSE(trace().has("Remove(")) << nSet;
    EXPECT_FALSE(trace().has("GetBill(")) << nSet;
    EXPECT_EQ(last_call(), aFaults[nFirst].sLastCall) << nSet;
  }
}

TEST_P(OtherSaveLadder, ABillWithoutAnEntryIsRefusedBehindHeadFaultsAndAheadOfAccountAndCredit) {
  const std::vector<Fault> aFaults = faults();
  constexpr std::size_t kHeadFaults = 3;
  const std::vector<std::size_t> aCombined = {0, 1, 2, 7, 9};
  for (unsigned nSet = 0; nSet < (1u << aCombined.size()); ++nSet) {
    make_good_bill();
    bill->remove_rows();
    add_other_row(*bill, {.nType = 0, .dAmountFor = 0});
    std::vector<Box> aExpected = warning("单据体要求至少有一条分录，请输入单据体信息！");
    for (std::size_t n = aCombined.size(); n-- > 0;) {
      if ((nSet >> n & 1u) == 0) continue;
      aFaults[aCombined[n]].make();
      if (n < kHeadFaults) aExpected = {aFaults[aCombined[n]].box};
    }
    trace().clear();
    ASSERT_TRUE(bill->save()) << nSet;
    ASSERT_EQ(boxes(), aExpected) << nSet;
    EXPECT_FALSE(trace().has("IsSameAcctId")) << nSet;
    EXPECT_FALSE(trace().has("FFLD = ")) << nSet;
  }
}

TEST_P(OtherSaveLadder, TheTotalsAreWrittenBeforeTheCreditLimitAndStayWhenItRefuses) {
  make_good_bill();
  use_credit_limit("3");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(bill->number("FAmountFor"), 120);
  EXPECT_EQ(bill->number("FAmount"), 120);
  EXPECT_EQ(bill->number("FCheckAmountFor"), 0);
}

}  // namespace
}  // namespace arap::testing

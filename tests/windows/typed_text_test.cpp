#include "windows/typed_text.h"

#include <gtest/gtest.h>

#include "windows/qt_text.h"

namespace desk {
namespace {

const QDate kToday(2026, 11, 15);

TEST(TypedDate, ADayAloneIsOneOfThisMonth) {
  EXPECT_EQ(complete_date("7", kToday), "2026-11-07");
  EXPECT_EQ(complete_date(" 30 ", kToday), "2026-11-30");
}

TEST(TypedDate, AMonthAndADayAreOfThisYear) {
  EXPECT_EQ(complete_date("3-5", kToday), "2026-03-05");
  EXPECT_EQ(complete_date("12/31", kToday), "2026-12-31");
}

TEST(TypedDate, EightDigitsAreAWholeDate) { EXPECT_EQ(complete_date("20270201", kToday), "2027-02-01"); }

TEST(TypedDate, WhatIsNoDayOfTheMonthStaysAsItIs) {
  for (const char* sText : {"31", "0", "2-30", "20261301", "tomorrow", "2026-01-02", ""}) {
    EXPECT_EQ(complete_date(sText, kToday), sText);
  }
}

TEST(TypedAmount, ASmallSumIsWorkedOut) {
  EXPECT_EQ(complete_amount("100+20*3"), "160");
  EXPECT_EQ(complete_amount("=1200/4"), "300");
  EXPECT_EQ(complete_amount("(10+5)*2-0.5"), "29.5");
}

TEST(TypedAmount, ANumberStaysAsItIsButForItsThousands) {
  EXPECT_EQ(complete_amount("-12.50"), "-12.50");
  EXPECT_EQ(complete_amount("1,234.5"), "1234.5");
}

TEST(ShownAmount, ItsDigitsStandInGroupsOfThree) {
  EXPECT_EQ(utf8(grouped("1234567.50")), "1,234,567.50");
  EXPECT_EQ(utf8(grouped("-123456.00")), "-123,456.00");
  EXPECT_EQ(utf8(grouped("100000")), "100,000");
  EXPECT_EQ(utf8(grouped("999.99")), "999.99");
  EXPECT_EQ(utf8(grouped("-100.00")), "-100.00");
}

TEST(ShownAmount, WhatIsNoAmountStaysAsItIs) {
  for (const char* sText : {"", "1002.01.03", "B10010", "12345%", "1,234.00"}) EXPECT_EQ(utf8(grouped(sText)), sText);
}

TEST(ShownAmount, ASentenceHasItsAmountsInGroupsAndItsOtherWordsAsTheyAre) {
  EXPECT_EQ(utf8(with_grouped_amounts(qt("应收余额 -11400.00  信用额度 50000.00  审核人：20261"))),
            "应收余额 -11,400.00  信用额度 50,000.00  审核人：20261");
}

TEST(LookedFor, AnAmountAsItIsShownIsMeantPlainAndATextWithACommaStays) {
  EXPECT_EQ(utf8(looked_for("1,234,567.50")), "1234567.50");
  for (const char* sText : {"1200", "12,00", "a,b", "SK-1,2", ""}) EXPECT_EQ(utf8(looked_for(sText)), sText);
}

TEST(TypedAmount, WhatHasNoResultStaysAsItIs) {
  for (const char* sText : {"12+", "1/0", "=abc", "abc"}) EXPECT_EQ(complete_amount(sText), sText);
}

class NamedChoice : public ::testing::Test {
 protected:
  std::vector<LookUpItem> items{
      {1, "C001", "青山商贸"}, {2, "C0012", "绿水商贸"}, {3, "C002", "C001"}, {4, "D9", "远航"}};
  std::string code(const char* sTyped) const {
    const auto item = named_choice(items, sTyped);
    return item ? item->sCode : "none";
  }
};

TEST_F(NamedChoice, AnExactCodeWinsOverLongerCodesAndNames) { EXPECT_EQ(code("c001"), "C001"); }

TEST_F(NamedChoice, AnExactNameComesNext) { EXPECT_EQ(code("远航"), "D9"); }

TEST_F(NamedChoice, TheOnlyMatchIsTaken) {
  EXPECT_EQ(code("D"), "D9");
  EXPECT_EQ(code("绿"), "C0012");
}

TEST_F(NamedChoice, SeveralOrNoMatchesNameNothing) {
  EXPECT_EQ(code("商贸"), "none");
  EXPECT_EQ(code("X"), "none");
  EXPECT_EQ(code(""), "none");
}

TEST_F(NamedChoice, TheListOffersWhatGoesWithTheText) {
  EXPECT_EQ(matching_choices(items, "商贸").size(), 2u);
  EXPECT_EQ(matching_choices(items, "").size(), 4u);
  EXPECT_TRUE(matching_choices(items, "Q").empty());
}

}  // namespace
}  // namespace desk

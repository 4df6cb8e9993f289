#include "data/money.h"

#include <gtest/gtest.h>

#include "data/columns.h"
#include "data/desk_error.h"
#include "data/schema.h"

namespace desk {
namespace {

/// The columns of the tables that are declared with this type.
std::vector<std::string> columns_of_type(std::string_view sType) {
  const std::string sScript(table_script());
  std::vector<std::string> aColumns;
  for (std::size_t i = 0; (i = sScript.find(sType, i)) != std::string::npos; ++i) {
    const std::size_t nStart = sScript.find_last_of(" (\n", i - 1) + 1;
    aColumns.push_back(sScript.substr(nStart, i - nStart));
  }
  return aColumns;
}

TEST(MoneyTest, ADoubleIsTakenAsTheDecimalItWasWrittenAs) {
  EXPECT_EQ(Money::from_double(0.1).units, 1000);
  EXPECT_EQ(Money::from_double(155658.78).units, 1556587800);
  EXPECT_EQ(Money::from_double(1.00005).units, 10001) << "a half goes away from zero though the double lies below it";
  EXPECT_EQ(Money::from_double(-1.00005).units, -10001);
  EXPECT_EQ(Money::from_double(0.00004).units, 0);
  EXPECT_EQ(Money::from_double(1e-300).units, 0);
}

TEST(MoneyTest, EveryAmountComesBackThroughItsDouble) {
  for (std::int64_t nUnits = 1; nUnits < 99'999'999'999'999; nUnits = nUnits * 3 + nUnits % 7) {
    for (const Money amount : {Money{nUnits}, Money{-nUnits}, Money{nUnits + 9'999}})
      EXPECT_EQ(Money::from_double(amount.to_double()).units, amount.units);
  }
}

TEST(MoneyTest, ATextIsReadExactlyOrRefused) {
  EXPECT_EQ(Money::parse("47.07").units, 470700);
  EXPECT_EQ(Money::parse("-0.0001").units, -1);
  EXPECT_EQ(Money::parse("+5").units, 50000);
  EXPECT_EQ(Money::parse("1.50000").units, 15000);
  EXPECT_EQ(Money::parse("922337203685477.5807").units, 9223372036854775807);
  for (const char* sText : {"", "-", ".", "1,5", "1.00001", "abc", "1e3", "--1", "9223372036854775807"})
    EXPECT_THROW(Money::parse(sText), DeskError) << sText;
}

TEST(MoneyTest, OverflowIsAnErrorAndNeverAWrongSum) {
  const Money largest{9223372036854775807};
  EXPECT_THROW(largest + Money{1}, DeskError);
  EXPECT_THROW(Money{-9223372036854775807 - 1} - Money{1}, DeskError);
  EXPECT_THROW(-Money{-9223372036854775807 - 1}, DeskError);
  EXPECT_THROW(Money::from_double(1e15), DeskError);
  EXPECT_THROW(largest.times(2), DeskError);
}

TEST(MoneyTest, AProductIsRoundedHalfAwayAtTheDecimalsOfTheCurrency) {
  EXPECT_EQ(Money::parse("100.35").times(7.1).text(), "712.49");
  EXPECT_EQ(Money::parse("0.05").times(0.1).text(), "0.01");
  EXPECT_EQ(Money::parse("-0.05").times(0.1).text(), "-0.01");
  EXPECT_EQ(Money::parse("1234.5").times(1, 0).text(0), "1235");
}

TEST(MoneyTest, TheTextHasAtLeastTheDecimalsAskedFor) {
  EXPECT_EQ(Money::parse("1234.5").text(), "1234.50");
  EXPECT_EQ(Money::parse("0.0025").text(), "0.0025");
  EXPECT_EQ(Money::parse("-3").text(0), "-3");
}

TEST(MoneyTest, EveryMoneyColumnOfTheTablesIsInTheCatalogueAndNoOther) {
  const std::vector<std::string> aMoney = columns_of_type(" BIGINT");
  EXPECT_GT(aMoney.size(), 30u);
  for (const std::string& sColumn : aMoney) EXPECT_TRUE(is_money_column(sColumn)) << sColumn;
  for (const std::string_view sType : {" INTEGER", " TEXT", " DOUBLE"}) {
    const std::vector<std::string> aOther = columns_of_type(sType);
    EXPECT_FALSE(aOther.empty()) << sType;
    for (const std::string& sColumn : aOther) EXPECT_FALSE(is_money_column(sColumn)) << sColumn;
  }
}

}  // namespace
}  // namespace desk

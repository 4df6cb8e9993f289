#include <map>
#include <set>

#include "desk/cli/command_line.h"
#include "frame/conversions.h"
#include "services/settlement_tables.h"

namespace desk::testing {
namespace {

/// The demo book as `desk new BOOK --demo` makes it: every case of the rules can be tried on it.
class Demo : public CommandLine {
 protected:
  void SetUp() override {
    make_demo();
    database = Database::open(book());
  }
  std::set<std::string> column(const std::string& sSql) {
    const Rows rows = database->query(sSql);
    std::set<std::string> texts;
    for (std::size_t i = 0; i < rows.size(); ++i) texts.insert(arap::Concat(rows.at(i, std::size_t{0})));
    return texts;
  }
  std::int32_t count(const std::string& sSql) {
    return database->query("SELECT COUNT(*) AS n FROM " + sSql).integer(0, "n");
  }

  std::unique_ptr<Database> database;
};

TEST_F(Demo, HasCurrenciesOfBothOperatorsAndOfDifferentDecimals) {
  EXPECT_EQ(column("SELECT FOperator FROM t_Currency"), (std::set<std::string>{"*", "/"}));
  EXPECT_EQ(column("SELECT FScale FROM t_Currency"), (std::set<std::string>{"0", "2"}));
  EXPECT_EQ(count("t_Currency WHERE FCurrencyID = 1 AND FExchangeRate = 1 AND FOperator = '*'"), 1);
  EXPECT_EQ(count("t_Currency WHERE FOperator = '/' AND FExchangeRate > 1 AND FScale = 0"), 1);
  EXPECT_EQ(count("t_Account a JOIN t_Currency c ON c.FCurrencyID = a.FCurrencyID WHERE c.FOperator = '/'"), 1)
      << "money of that currency needs an account";
}

struct DemoSide {
  const SettlementTables& tables;
  std::set<std::string> classes;
  const char* sName;
};

class DemoSources : public Demo, public ::testing::WithParamInterface<DemoSide> {};
INSTANTIATE_TEST_SUITE_P(BothSides, DemoSources,
                         ::testing::Values(DemoSide{kReceiptTables, {"1000000", "1000002", "1000205"}, "receipt"},
                                           DemoSide{kPaymentTables, {"1000003", "1000004", "1000206"}, "payment"}),
                         [](const auto& each) { return each.param.sName; });

TEST_P(DemoSources, AreOpenInEveryClassRedAndPartlySettledAndForeignOnesAmongThem) {
  const SettlementTables& tables = GetParam().tables;
  const std::string sView = side_sql(tables, "{openview}");
  const std::string sOpen = side_sql(tables, "FBillUn{got}AmountFor");
  EXPECT_EQ(column("SELECT FClassTypeID_SRC FROM " + sView), GetParam().classes);
  EXPECT_GT(count(sView + " WHERE " + sOpen + " < 0"), 0);
  EXPECT_GT(count(sView + " WHERE " + sOpen + " > 0 AND " + sOpen + " < FBillAmountFor"), 0);
  EXPECT_GT(count(sView + " WHERE FCurrencyID <> 1 AND FExchangeRate <> 1"), 0);
  EXPECT_GT(count(side_sql(tables, "(SELECT {viewpartner} FROM ") + sView + " GROUP BY 1) AS p"), 1);
  EXPECT_EQ(count(side_sql(tables, "{bill}")), 0) << "the first bill is the user's own";
}

TEST_P(DemoSources, StandWithEqualAmountsInBaseCurrencyWhereTheRateIsOne) {
  const std::string sView = side_sql(GetParam().tables, "{openview}");
  EXPECT_EQ(count(sView + " WHERE FExchangeRate = 1 AND FBillAmountFor <> FBillAmount"), 0);
  EXPECT_EQ(count(sView + side_sql(GetParam().tables, " v LEFT JOIN {partners} p ON p.FItemID = v.{viewpartner}") +
                  " WHERE p.FItemID IS NULL"),
            0);
}

TEST_F(Demo, HasAUserWithEveryRightAndOneWhoMayNotUncheck) {
  for (const char* sObject : {"1000201", "1000202", "1000205", "1000206", "1000207"}) {
    const std::string sRights =
        std::string("t_User_Right r JOIN t_User u ON u.FUserID = r.FUserID WHERE r.FObject = ") + sObject +
        " AND r.FRights & 4096 ";
    EXPECT_EQ(count(sRights + "= 4096 AND u.FName = 'demo'"), 1) << sObject;
    EXPECT_EQ(count(sRights + "= 0 AND u.FName = 'clerk'"), 1) << sObject;
  }
  EXPECT_EQ(count("t_Account WHERE FRightUserID = '1'"), 1) << "an account that only one of them may use";
}

TEST_F(Demo, HasClosedPeriodsBeforeTheCurrentOneAndOpenOnesBehindIt) {
  EXPECT_EQ(count("t_SystemProfile WHERE FKey = 'CurrentYear' AND FValue = '2026'"), 1);
  EXPECT_EQ(count("t_SystemProfile WHERE FKey = 'CurrentPeriod' AND FValue = '11'"), 1);
  EXPECT_GT(count("t_PeriodDate WHERE FEndDate < '2026-11-01'"), 0);
  EXPECT_GT(count("t_PeriodDate WHERE FStartDate > '2026-11-30'"), 0);
}

TEST_F(Demo, TakesABillOfTheCurrentPeriodAndRefusesOneOfAClosedPeriod) {
  EXPECT_EQ(play_text("new receipt\nset FReceiveTypeID 1001\nset FCustomerID C002\nset FAcctID 1002.01\nselect all\n"
                      "press mnuDataAutoSumAmt\nset FDate 2026-10-31\nsave\n"
                      "expect message 不能保存业务系统当前使用期间之前的单据,请修改单据日期。\n"
                      "set FDate 2026-11-01\nsave\nexpect field FBillNo SKD000001\n"),
            kExitDone)
      << out << err;
}

}  // namespace
}  // namespace desk::testing

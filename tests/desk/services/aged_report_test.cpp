#include "services/aged_report.h"

#include <gtest/gtest.h>

#include "desk/services/small_book.h"
#include "desk/sides.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"

namespace desk::testing {
namespace {

class AgedReport : public ::testing::TestWithParam<const SettlementTables*> {
 protected:
  AgedReport() {
    book.add_invoice(tables(), 1, "X1", 100'00);  // due 2026-12-02
    book.database().exec(
        side_sql(tables(), "UPDATE {invoice} SET FReceiveAmountFor = 300000, FReceiveAmount = 300000"));
    add_other(1, 1, 40'00, 0);
    add_other(2, 0, 5'00, 0);
    add_other(3, 1, 9'00, 9'00);
    query.sToday = "2026-12-31";
  }
  const SettlementTables& tables() const { return *GetParam(); }
  void add_other(std::int32_t nID, std::int32_t nStatus, std::int64_t nCents, std::int64_t nSettled) {
    book.database().exec(
        side_sql(tables(),
                 "INSERT INTO {other} (FBillID, FBillNo, FDate, FLimitDate, FBillTypeID, {partner}, FStatus,"
                 " FAmountFor, FAmount, FCheckAmountFor, FCheckAmount) VALUES (?, ?, '2026-11-03',"
                 " '2026-11-20', 1006, ?, ?, ?, ?, ?, ?)"),
        {Bind(nID), Bind("QT" + std::to_string(nID)), Bind(std::int32_t{money_comes_in(tables()) ? 11 : 21}),
         Bind(nStatus), Bind(SmallBook::cents(nCents)), Bind(SmallBook::cents(nCents)),
         Bind(SmallBook::cents(nSettled)), Bind(SmallBook::cents(nSettled))});
  }
  /// The balance of the first partner, or "none".
  std::string balance() {
    const Rows rows = aged_report(book.database(), tables(), query);
    return rows.integer(0, "FSumSort") == 0 ? rows.money(0, "FRemainAmount").text() : "none";
  }

  SmallBook book;
  AgedQuery query;
};
INSTANTIATE_TEST_SUITE_P(Sides, AgedReport, ::testing::Values(&kReceiptTables, &kPaymentTables),
                         [](const auto& side) { return money_comes_in(*side.param) ? "Customers" : "Suppliers"; });

TEST_P(AgedReport, AddsUpWhatIsOpenOfInvoicesAndOtherBills) {
  EXPECT_EQ(balance(), "70.00");
  query.bOthers = true;
  EXPECT_EQ(balance(), "110.00");
  query.bUnchecked = true;
  EXPECT_EQ(balance(), "115.00");
}

TEST_P(AgedReport, EndsWithTheTotalOfEverybody) {
  const Rows rows = aged_report(book.database(), tables(), query);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.integer(1, "FSumSort"), 1);
  EXPECT_EQ(rows.money(1, "FRemainAmount").text(), "70.00");
}

TEST_P(AgedReport, ParksEachItemInItsClassOfOverdueDays) {
  query.bOthers = true;
  const Rows rows = aged_report(book.database(), tables(), query);
  EXPECT_EQ(rows.money(0, "FAgedAmount0").text(), "0.00");
  EXPECT_EQ(rows.money(0, "FAgedAmount1").text(), "70.00");  // 29 days
  EXPECT_EQ(rows.money(0, "FAgedAmount2").text(), "40.00");  // 41 days
  query.sToday = "2026-12-02";
  EXPECT_EQ(aged_report(book.database(), tables(), query).money(0, "FAgedAmount0").text(), "70.00");
}

TEST_P(AgedReport, KeepsToItsBounds) {
  query.bOthers = true;
  const auto with = [this](std::string AgedQuery::*bound, const char* sValue) {
    const std::string sBefore = std::exchange(query.*bound, sValue);
    const std::string sBalance = balance();
    query.*bound = sBefore;
    return sBalance;
  };
  EXPECT_EQ(with(&AgedQuery::sFromDate, "2026-11-03"), "40.00");
  EXPECT_EQ(with(&AgedQuery::sToDate, "2026-11-02"), "70.00");
  EXPECT_EQ(with(&AgedQuery::sFromPartner, "Z"), "none");
  EXPECT_EQ(with(&AgedQuery::sToPartner, "A"), "none");
  EXPECT_EQ(with(&AgedQuery::sFromDepartment, "01"), "none");
  query.nCurrency = 2;
  EXPECT_EQ(balance(), "none");
}

TEST_P(AgedReport, AnswersTheRulesThroughTheReportServer) {
  const Session session(book.database(), "li");
  const arap::Ref<arap::Object> oReport = arap::CurrentPlatform().CreateObject("NUVMYWARAPRpt.Data");
  const arap::Dictionary oParams(arap::CurrentPlatform().CreateObject(arap::open_choices::kDictionary));
  const std::string sPartner = money_comes_in(tables()) ? "CustNumber" : "SupplyNumber";
  const std::string sNumber = money_comes_in(tables()) ? "C01" : "S01";
  oParams.SetValue("B" + sPartner, sNumber);
  oParams.SetValue("E" + sPartner, sNumber);
  oParams.SetValue("IncludeNotAudit", std::int32_t{1});
  oParams.SetValue("IncludeOther", std::int32_t{1});
  const auto member = money_comes_in(tables()) ? arap::Member::GetRpt131Data : arap::Member::GetRpt132Data;
  const arap::Recordset rs(oReport->call(member, "", oParams));
  rs.SetFilter("FSumSort=0");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(arap::NumberOf(rs.Value("FRemainAmount")), 115);
  EXPECT_EQ(rs.RecordCount(), 1);
}

}  // namespace
}  // namespace desk::testing

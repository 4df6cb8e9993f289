#include "other_bill_fixture.h"
#include "support/line_differences.h"

/// The payable bill's approved traces are the receivable bill's, told in the payable bill's names, but for the
/// differences that are named here.
namespace arap::testing {
namespace {

Lines differences_of(const std::string& sName) {
  const Lines aReceivable = lines_of(in_other_names(ReadGolden(sName, Side::Receive),
                                                    {{"FCustomerID", "FSupplyID"},
                                                     {"1000205", "1000206"},
                                                     {"CreditDegree", "CreditDegreeCG"},
                                                     {"NUVlpsArAPBill.clsApOtherBill", "NUVlpsArAPBill.clsArOtherBill"},
                                                     {"clsApOtherBill.GetAPBillInfo", "clsArOtherBill.GetARBillInfo"},
                                                     {"[客户]", "[供应商]"},
                                                     {"应收", "应付"},
                                                     {"收款", "付款"}}));
  EXPECT_FALSE(aReceivable.empty()) << sName;
  return line_differences(aReceivable, lines_of(ReadGolden(sName, Side::Pay)));
}

TEST(OtherTwinTraces, NewBillsSavesAndLoadsToReadDifferInNamesAlone) {
  for (const char* sName : {"after_new_bill", "after_load_checked_bill", "after_load_read_only_bill",
                            "before_save_immediate_bill", "before_save_credit_bill"}) {
    EXPECT_EQ(differences_of(sName), Lines()) << sName;
  }
}

TEST(OtherTwinTraces, AnUncheckedPayableBillHidesItsChangeCommandOnLoad) {
  for (const char* sName : {"after_load_immediate_bill", "after_load_credit_bill"}) {
    EXPECT_EQ(differences_of(sName), Lines{"+ BillEvent.SetBarStatus(\"mnuEditChange\", \"Visible\", False)"}) << sName;
  }
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include "frame/bill_fields.h"
#include "support/test_bill.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class SetBillFieldTest : public ::testing::Test {
 protected:
  SetBillFieldTest() {
    session.set_props("ConnectString={Data Source=books};UserName=li;UserID=7;");
    oBill->define_look_up("FCustomer", 1, "t_Organization", "FItemID");
    oBill->head("FNote", "");
    oBill->head("FAmount", "100.00");
    oBill->define("FRowAmount", 2, 0.0);
  }
  void Set(const char* sKey, int nRow, const Variant& vValue, bool bShow = false, bool bKeepModify = false) {
    SetBillField(bill, sKey, nRow, vValue, bShow, bKeepModify);
  }
  void AnswerLookUp(std::vector<std::vector<Variant>> aRows, const char* sCode = "FNumber") {
    session.lookups.answer("Select ", recordset({sCode, "FName"}, std::move(aRows)));
  }
  std::string RecordText(const char* sKey, const char* sProp) { return plain_text(oBill->record(sKey).at(sProp)); }

  TestSession session;
  Ref<TestBill> oBill = make_object<TestBill>();
  BillEvent bill{Ref<Object>(oBill)};
};

TEST_F(SetBillFieldTest, EqualNumbersInAnotherFormChangeNothing) {
  Set("FAmount", kHead, 100);
  EXPECT_EQ(oBill->text("FAmount"), "100.00");
  EXPECT_EQ(oBill->modified("FAmount"), 0);
  EXPECT_TRUE(trace().lines().empty());
}

TEST_F(SetBillFieldTest, DifferentNumberIsWrittenAndMarked) {
  Set("FAmount", kHead, 100.01);
  EXPECT_EQ(oBill->value("FAmount").as<double>(), 100.01);
  EXPECT_EQ(oBill->modified("FAmount"), 1);
}

TEST_F(SetBillFieldTest, StoredNumberIsReadByItsNumericPrefix) {
  oBill->head("FAmount", "1,000");
  Set("FAmount", kHead, 1000);  // 1 before
  EXPECT_EQ(oBill->value("FAmount").as<std::int32_t>(), 1000);
  oBill->head("FAmount", "1,000");
  Set("FAmount", kHead, 1);
  EXPECT_EQ(oBill->text("FAmount"), "1,000");
}

TEST_F(SetBillFieldTest, EmptyTextOverZeroIsAChange) {
  oBill->head("FAmount", 0.0);
  Set("FAmount", kHead, "");
  EXPECT_EQ(oBill->value("FAmount").text(), "");
  EXPECT_EQ(oBill->modified("FAmount"), 1);
}

TEST_F(SetBillFieldTest, ZeroOverEmptyTextIsAChange) {
  Set("FNote", kHead, 0);
  EXPECT_EQ(oBill->value("FNote").as<std::int32_t>(), 0);
}

TEST_F(SetBillFieldTest, TextsCompareByTheirCharacters) {
  oBill->head("FNote", "abc");
  Set("FNote", kHead, "abc");
  EXPECT_EQ(oBill->modified("FNote"), 0);
  Set("FNote", kHead, "ABC");
  EXPECT_EQ(oBill->text("FNote"), "ABC");
}

TEST_F(SetBillFieldTest, NullIsReplacedButNotByNull) {
  oBill->head("FNote", Null{});
  Set("FNote", kHead, Null{});
  EXPECT_EQ(oBill->modified("FNote"), 0);
  Set("FNote", kHead, "abc");
  EXPECT_EQ(oBill->text("FNote"), "abc");
}

TEST_F(SetBillFieldTest, KeptModifyStaysWhileTheLookUpAndTheDisplayRun) {
  AnswerLookUp({{"01.02", "北方公司"}});
  Set("FCustomer", kHead, 12, true, true);
  EXPECT_EQ(oBill->modified("FCustomer"), 0);
  EXPECT_EQ(RecordText("FCustomer", "FDSP"), "北方公司");
  EXPECT_EQ(oBill->shown("FCustomer"), "北方公司");
}

TEST_F(SetBillFieldTest, LookUpIsFilledByOneQuery) {
  AnswerLookUp({{"01.02", "北方公司"}});
  Set("FCustomer", kHead, 12);
  EXPECT_EQ(RecordText("FCustomer", "FDSP"), "北方公司");
  EXPECT_EQ(RecordText("FCustomer", "FFND"), "01.02");
  EXPECT_EQ(oBill->number("FCustomer"), 12);
  const std::vector<Variant> args = session.server("NUVMAppConnection.AppConnection").last(Member::Execute);
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].text(), "Data Source=books");
  EXPECT_EQ(args[1].text(), "Select FNumber,FName From t_Organization Where FItemID=12");
  EXPECT_EQ(session.lookups.texts.size(), 1u);
}

TEST_F(SetBillFieldTest, EqualLookUpValueCostsNoQuery) {
  oBill->head("FCustomer", 12, "北方公司", "01.02");
  Set("FCustomer", kHead, "12");
  EXPECT_TRUE(session.lookups.texts.empty());
  EXPECT_EQ(RecordText("FCustomer", "FDSP"), "北方公司");
}

TEST_F(SetBillFieldTest, CodeOfTheMessageTableIsItsId) {
  oBill->define_look_up("FType", 1, "T_SubMessage", "FInterID");
  AnswerLookUp({{1002, "预收款"}}, "FID");
  Set("FType", kHead, 1002);
  EXPECT_EQ(session.lookups.texts.back(), "Select FID,FName From T_SubMessage Where FInterID=1002");
  EXPECT_EQ(RecordText("FType", "FFND"), "1002");
}

TEST_F(SetBillFieldTest, NoRowOrTwoRowsClearDisplayAndCode) {
  for (const bool bTwo : {false, true}) {
    oBill->head("FCustomer", 1, "旧", "old");
    AnswerLookUp(bTwo ? std::vector<std::vector<Variant>>{{"a", "A"}, {"b", "B"}}
                      : std::vector<std::vector<Variant>>{});
    Set("FCustomer", kHead, 12);
    EXPECT_EQ(RecordText("FCustomer", "FDSP"), "");
    EXPECT_EQ(RecordText("FCustomer", "FFND"), "");
  }
}

TEST_F(SetBillFieldTest, NullColumnsOfTheLookUpBecomeEmptyTexts) {
  AnswerLookUp({{Null{}, Null{}}});
  Set("FCustomer", kHead, 12);
  EXPECT_TRUE(oBill->record("FCustomer").at("FDSP").is_text());
  EXPECT_TRUE(oBill->record("FCustomer").at("FFND").is_text());
}

TEST_F(SetBillFieldTest, ControlOfTypeEightHasNoLookUpAndShowsTheStoredValue) {
  oBill->record("FCustomer").set("FCtlType", 8);
  Set("FCustomer", kHead, 12, true);
  EXPECT_TRUE(session.lookups.texts.empty());
  EXPECT_EQ(oBill->shown("FCustomer"), "12");
}

TEST_F(SetBillFieldTest, FailingLookUpReachesTheCaller) {
  session.lookups.fail("Select", 1004, "gone");
  EXPECT_THROW(Set("FCustomer", kHead, 12), AutomationError);
}

TEST_F(SetBillFieldTest, EqualValueIsStillShown) {
  oBill->head("FAmount", 100.0);
  Set("FAmount", kHead, 100, true);
  EXPECT_EQ(oBill->modified("FAmount"), 0);
  EXPECT_EQ(trace().lines_with("SetText"), std::vector<std::string>{"BillEvent.SetText(FAmount, 100, -1)"});
}

class PartnerKeyTest : public SetBillFieldTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(PartnerKeyTest, SourceSevenShowsTheNameOfAPartner) {
  oBill->define(GetParam(), 1, 0).set("FSourceType", 7);
  oBill->record(GetParam()).set("FDSP", "北方公司");
  Set(GetParam(), kHead, 12, true);
  EXPECT_EQ(oBill->shown(GetParam()), "北方公司");
}

INSTANTIATE_TEST_SUITE_P(Keys, PartnerKeyTest, ::testing::Values("FComID", "FCustID", "FSupplyID", "FCustomer"));

TEST_F(SetBillFieldTest, PartnerKeyInAnotherCaseShowsTheValue) {
  oBill->define("FCustID", 1, 0).set("FSourceType", 7);
  oBill->record("FCustID").set("FDSP", "北方公司");
  Set("fcustid", kHead, 12, true);
  EXPECT_EQ(oBill->shown("FCustID"), "12");
}

TEST_F(SetBillFieldTest, HeadRowOnABodyFieldMeansEveryRow) {
  for (int i = 0; i < 3; ++i) oBill->add_row();
  Set("FRowAmount", kHead, 5);
  for (int nRow = 1; nRow <= 3; ++nRow) EXPECT_EQ(oBill->number("FRowAmount", nRow), 5) << nRow;
}

TEST_F(SetBillFieldTest, WholeColumnIsShownRowByRow) {
  for (int i = 0; i < 2; ++i) oBill->add_row();
  Set("FRowAmount", kHead, 5, true);
  EXPECT_EQ(trace().lines_with("SetText"),
            (std::vector<std::string>{"BillEvent.SetText(FRowAmount, 5, 1)", "BillEvent.SetText(FRowAmount, 5, 2)"}));
}

TEST_F(SetBillFieldTest, HeadRowOnAFieldOfTheSecondBodyMeansEveryRowOfThatBody) {
  const auto oTwoBodies = make_object<TestBill>(2);
  oTwoBodies->define("FRowNote", 3, "");
  for (int i = 0; i < 2; ++i) oTwoBodies->add_row({}, 2);
  oTwoBodies->add_row();
  SetBillField(BillEvent(Ref<Object>(oTwoBodies)), "FRowNote", kHead, "x");
  for (int nRow = 1; nRow <= 2; ++nRow) EXPECT_EQ(oTwoBodies->text("FRowNote", nRow), "x") << nRow;
}

TEST_F(SetBillFieldTest, OneRowOfABodyLeavesTheOthers) {
  for (int i = 0; i < 3; ++i) oBill->add_row();
  Set("FRowAmount", 2, 5, true);
  EXPECT_EQ(oBill->number("FRowAmount", 1), 0);
  EXPECT_EQ(oBill->number("FRowAmount", 2), 5);
  EXPECT_EQ(oBill->number("FRowAmount", 3), 0);
  EXPECT_EQ(trace().count("SetText"), 1u);
}

TEST_F(SetBillFieldTest, WholeColumnOfALookUpCostsOneQueryARow) {
  oBill->define_look_up("FRowDept", 2, "t_Department", "FItemID");
  for (int i = 0; i < 3; ++i) oBill->add_row();
  oBill->set_value("FRowDept", 2, 4);
  Set("FRowDept", kHead, 4);
  EXPECT_EQ(session.lookups.texts.size(), 2u);
}

TEST_F(SetBillFieldTest, RowWithoutARecordIsSkipped) {
  EXPECT_NO_THROW(Set("FRowAmount", 9, 5, true));
  EXPECT_EQ(trace().count("SetText"), 0u);
}

TEST_F(SetBillFieldTest, FieldThatTheTemplateLacksIsLeftAlone) {
  EXPECT_NO_THROW(Set("FNone", kHead, 5, true));
  EXPECT_TRUE(trace().lines().empty());
}

}  // namespace
}  // namespace arap::testing

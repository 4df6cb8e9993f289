#include "engine/bill_data.h"

#include <gtest/gtest.h>

#include "frame/host_contract.h"

namespace desk {
namespace {

using arap::Dictionary;
using arap::Variant;

class BillData : public ::testing::Test {
 protected:
  std::shared_ptr<const BillTemplate> bill = BillTemplate::shipped("receipt");
  arap::Ref<BodyPage> body = arap::make_object<BodyPage>(bill, 2);
  arap::Vector oBody{arap::Ref<arap::Object>(body)};

  Dictionary record(std::int32_t nRow, const Variant& vKey) {
    return Dictionary(Dictionary(oBody.Item(nRow)).Value(vKey));
  }
};

TEST_F(BillData, ARecordWritesThroughToItsCellInAnyCaseOfItsKeys) {
  body->add_row();
  record(1, "finterid").SetValue("ffld", 5);
  record(1, "FInterID").SetValue("FMODIFY", 1);
  EXPECT_EQ(arap::LongOf(record(1, "FInterID").Value("FFLD")), 5);
  EXPECT_EQ(arap::LongOf(record(1, "FInterID").Value("FModify")), 1);
}

TEST_F(BillData, OnlyALookUpFieldHasDisplayAndCodeAndNoneAnOldValueBeforeAnEdit) {
  body->add_row();
  EXPECT_TRUE(record(1, "FBillCurrencyID").Lookup("FDSP"));
  EXPECT_FALSE(record(1, "FInterID").Lookup("FDSP"));
  EXPECT_FALSE(record(1, "FInterID").Lookup("Fold"));
  record(1, "FInterID").SetValue("FOLD", 4);
  EXPECT_TRUE(record(1, "FInterID").Lookup("Fold"));
}

TEST_F(BillData, ARowListsTheFieldsOfItsPageAndNoOthers) {
  body->add_row();
  const Dictionary oRow(oBody.Item(1));
  EXPECT_EQ(static_cast<std::size_t>(oRow.Size()), bill->page(2).aFields.size());
  EXPECT_TRUE(oRow.Lookup("FBILLSETTLEAMOUNT"));
  EXPECT_FALSE(oRow.Lookup("FDate"));
  EXPECT_THROW(oRow.Value("FDate"), arap::AutomationError);
}

TEST_F(BillData, ARecordInHandOutlivesTheRemovalOfItsRow) {
  body->add_row();
  body->add_row();
  const Dictionary held = record(1, "FInterID");
  held.SetValue("FFLD", 1);
  record(2, "FInterID").SetValue("FFLD", 2);
  oBody.Remove(1);
  EXPECT_EQ(arap::LongOf(record(1, "FInterID").Value("FFLD")), 2);
  EXPECT_EQ(arap::LongOf(held.Value("FFLD")), 1);
}

TEST_F(BillData, ACellIsSmallEnoughForBodiesOfManyThousandRows) { EXPECT_LE(sizeof(Cell), 32u); }

}  // namespace
}  // namespace desk

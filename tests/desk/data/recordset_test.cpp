#include "data/recordset.h"

#include <gtest/gtest.h>

#include "data/connection_object.h"
#include "frame/contract_containers.h"
#include "temp_book.h"

namespace desk {
namespace {

using arap::Member;
using testing::DemoBook;

arap::Recordset open(DemoBook& book, const char* sSql) {
  return arap::Recordset(arap::make_object<DataServerObject>(*book.database)->call(Member::OpenQuery, sSql));
}

std::int32_t error_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const arap::AutomationError& error) {
    return error.number();
  }
  return 0;
}

TEST(RecordsetTest, ALoopOverTheRecordsSeesEachOnceInOrder) {
  DemoBook book;
  const arap::Recordset rs = open(book, "select FNumber from t_Department order by FItemID");
  std::string sSeen;
  for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) sSeen += arap::Concat(rs.Value("fnumber")) + " ";
  EXPECT_EQ(sSeen, "01 02 03 ");
  EXPECT_EQ(rs.RecordCount(), 3);
  EXPECT_EQ(error_of([&] { rs.MoveNext(); }), 3021);
  EXPECT_EQ(error_of([&] { rs.Value("FNumber"); }), 3021);
}

TEST(RecordsetTest, AnEmptyResultIsAtBothEnds) {
  DemoBook book;
  const arap::Recordset rs = open(book, "select FNumber from t_Department where FItemID=99");
  EXPECT_TRUE(rs.Eof());
  EXPECT_TRUE(rs.Bof());
  EXPECT_EQ(rs.RecordCount(), 0);
}

TEST(RecordsetTest, AmountsAreDoublesInUnitsOfTheCurrency) {
  DemoBook book;
  const arap::Recordset rs =
      open(book, "select FInterID,FAmountFor,FReceiveAmountFor from ICSale where FBillNo='XSFP000002'");
  EXPECT_EQ(rs.Value("FAmountFor").as<double>(), 2500.5);
  EXPECT_EQ(rs.Value(2).as<double>(), 500.5);
  EXPECT_EQ(rs.Value(0).as<std::int32_t>(), 3) << "a key is no amount";
}

TEST(RecordsetTest, AColumnIsFoundByNameIndexAndDefaultMember) {
  DemoBook book;
  const arap::Recordset rs = open(book, "select FItemID,FName from t_Department where FItemID=1");
  const auto field = rs.object()->get(Member::Default, "FNAME").object();
  EXPECT_EQ(field->get(Member::Default).text(), "销售部");
  EXPECT_EQ(field->get(Member::Name).text(), "FName");
  const auto fields = rs.object()->get(Member::Fields).object();
  EXPECT_EQ(fields->get(Member::Count).as<std::int32_t>(), 2);
  EXPECT_EQ(error_of([&] { rs.Value("nothing"); }), 3265);
  EXPECT_EQ(error_of([&] { rs.Value(2); }), 3265);
}

TEST(RecordsetTest, AFilterShowsTheMatchingRecordsUntilItIsTakenOff) {
  DemoBook book;
  const arap::Recordset rs = open(book, "select FID,FNumber,FName,FIsLeaf from t_RP_InOutType order by FID");
  const auto count = [&](const char* sFilter) {
    rs.object()->put(Member::Filter, sFilter);
    return rs.RecordCount();
  };
  EXPECT_EQ(count(" FId=3"), 1);
  EXPECT_EQ(arap::Concat(rs.Value("FName")), "租金收入");
  EXPECT_EQ(count("FId='4'"), 1);
  EXPECT_EQ(count("FNumber='1.01' And FNumber <> ''"), 1);
  EXPECT_EQ(count("FID=1 or FID=2 and FIsLeaf=1"), 1) << "And binds first";
  EXPECT_EQ(count("FId=99"), 0);
  EXPECT_TRUE(rs.Eof());
  EXPECT_EQ(count(""), 6);
  EXPECT_EQ(error_of([&] { count("FId="); }), 3001);
  EXPECT_EQ(error_of([&] { count("FNothing=1"); }), 3265);
  EXPECT_EQ(rs.RecordCount(), 6) << "a refused filter changes nothing";
}

TEST(RecordsetTest, TheConnectionTakesTheSqlWithAndWithoutAConnectText) {
  DemoBook book;
  const auto connection = arap::make_object<AppConnectionObject>(*book.database);
  const char* const sSql = "select FName from t_currency";
  EXPECT_EQ(arap::Recordset(connection->call(Member::Execute, "connect", sSql)).RecordCount(), 3);
  EXPECT_EQ(arap::Recordset(connection->call(Member::Execute, sSql)).RecordCount(), 3);
  EXPECT_TRUE(
      arap::Recordset(connection->call(Member::Execute, "UPDATE t_settle SET FName='x' WHERE FItemID=1")).Eof());
  EXPECT_NE(error_of([&] { connection->call(Member::Execute, "select from nowhere"); }), 0);
}

}  // namespace
}  // namespace desk

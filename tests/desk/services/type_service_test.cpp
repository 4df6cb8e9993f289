#include <gtest/gtest.h>

#include <string>

#include "desk/services/small_book.h"
#include "frame/contract_containers.h"

namespace desk::testing {
namespace {

using arap::Member;
using arap::Missing;
using arap::Variant;

// The types of a small book, and the server's questions about them.
class TypeService : public ::testing::Test {
 protected:
  TypeService() {
    book.database().exec_script(R"sql(
      INSERT INTO t_RP_InOutType (FID, FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch, FDiscontinued) VALUES
        (1, '1', '收入', 1000207, 1, 0, 1, 0), (2, '2', '支出', 1000207, 1, 0, 2, 0), (3, '1.01', '租金', 1, 2, 1, 1, 0),
        (4, '2.01', '租金', 2, 2, 1, 2, 1), (5, '2.02', '运费', 2, 2, 1, 2, 0);
      INSERT INTO t_RP_ROtherBill (FBillID, FBillNo, FDate, FBillTypeID) VALUES (1, 'QT1', '2026-11-05', 1006);
      INSERT INTO t_RP_ROtherBillEntry (FBillID, FIndex, FInOutTypeID) VALUES (1, 1, 3);
      INSERT INTO t_RP_POtherBill (FBillID, FBillNo, FDate, FBillTypeID) VALUES (1, 'FY1', '2026-11-05', 1008);
      INSERT INTO t_RP_POtherBillEntry (FBillID, FIndex, FInOutTypeID) VALUES (1, 1, 4);
    )sql");
  }

  template <class... A>
  std::string ids(const A&... args) {
    const Variant vAnswer = service()->call(Member::GetRPInOutTypeInfo, session.props_string(), args...);
    std::string sIds;
    for (const arap::Recordset rs(vAnswer); !rs.Eof(); rs.MoveNext()) sIds += arap::Concat(rs.Value("FID")) + " ";
    return sIds;
  }
  template <class... A>
  bool used(const A&... args) {
    return arap::ToBoolean(service()->call(Member::CheckRPInOutTypeUsed, session.props_string(), args...));
  }
  arap::Ref<arap::Object> service() { return session.registry().create("NUVlpsArApBill.clsInOutType"); }

  SmallBook book;
  Session session{book.database(), "li"};
};

TEST_F(TypeService, WithoutAnArgumentAllTypesComeInTheOrderOfTheirNumbers) { EXPECT_EQ(ids(), "1 3 2 4 5 "); }

TEST_F(TypeService, AnIdOrANumberFindsItsType) {
  EXPECT_EQ(ids(std::int32_t{4}), "4 ");
  EXPECT_EQ(ids(std::int32_t{9}), "");
  EXPECT_EQ(ids(Missing{}, "2.01"), "4 ");
  EXPECT_EQ(ids(Missing{}, "2.0"), "");
}

TEST_F(TypeService, ANumberIsFoundInItsBranchOnly) {
  EXPECT_EQ(ids(Missing{}, "1.01", Missing{}, Missing{}, std::int32_t{1}), "3 ");
  EXPECT_EQ(ids(Missing{}, "1.01", Missing{}, Missing{}, std::int32_t{2}), "");
}

TEST_F(TypeService, ANameIsFoundEverywhereOrUnderOneParent) {
  EXPECT_EQ(ids(Missing{}, Missing{}, "租金"), "3 4 ");
  EXPECT_EQ(ids(Missing{}, Missing{}, "租金", "2"), "4 ");
  EXPECT_EQ(ids(Missing{}, Missing{}, "租金", ""), "");
  EXPECT_EQ(ids(Missing{}, Missing{}, "收入", ""), "1 ");
}

TEST_F(TypeService, ATypeIsInUseByItsChildrenAndByBillsOfBothSides) {
  for (const std::int32_t nID : {1, 2, 3, 4}) EXPECT_TRUE(used(nID)) << nID;
  EXPECT_FALSE(used(std::int32_t{5}));
  EXPECT_FALSE(used(std::int32_t{9}));
}

TEST_F(TypeService, UseIsAskedByNumberTheSame) {
  EXPECT_TRUE(used(Missing{}, "1.01"));
  EXPECT_FALSE(used(Missing{}, "2.02"));
  EXPECT_FALSE(used(Missing{}, "no such"));
}

TEST_F(TypeService, WithoutAnIdOrANumberNoTypeIsInUse) { EXPECT_FALSE(used()); }

TEST_F(TypeService, TheRecordTellsWhatTheRulesOfTheTreeRead) {
  const arap::Recordset rs(service()->call(Member::GetRPInOutTypeInfo, session.props_string(), std::int32_t{4}));
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(arap::LongOf(rs.Value("FParentid")), 2);
  EXPECT_EQ(arap::LongOf(rs.Value("FLevels")), 2);
  EXPECT_NE(arap::LongOf(rs.Value("FIsLeaf")), 0);
  EXPECT_TRUE(arap::ToBoolean(rs.Value("FDiscontinued")));
}

}  // namespace
}  // namespace desk::testing

#include "data/sql_dialect.h"

#include <gtest/gtest.h>

#include "data/sql_shapes.h"
#include "temp_book.h"

namespace desk {
namespace {

using testing::DemoBook;

TEST(SqlDialectTest, TheBatchOfThePeriodStartFindsTheCurrentPeriod) {
  DemoBook book;
  const Rows rows = run_sql(*book.database,
                            "declare @Per int,@Year int \r\n"
                            "select @Per=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentPeriod' \r\n"
                            "select @Year=Fvalue From t_systemprofile where FCategory='IC' and FKey='CurrentYear' \r\n"
                            "Select FStartDate,FEndDate From T_PeriodDate where FYear=@Year And FPeriod=@Per ");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "FStartDate"), "2026-11-01");
  EXPECT_EQ(rows.text(0, "FEndDate"), "2026-11-30");
}

TEST(SqlDialectTest, AVariableWithoutARowStaysNullAndFindsNothing) {
  DemoBook book;
  EXPECT_TRUE(run_sql(*book.database,
                      "declare @Y int select @Y=FValue from t_SystemProfile where FKey='none' "
                      "select 1 from T_PeriodDate where FYear=@Y")
                  .empty());
}

TEST(SqlDialectTest, TheVoucherRightTextFindsAccountsOutsideTheRights) {
  DemoBook book;
  book.database->exec(
      "INSERT INTO t_Voucher (FVoucherID, FDate, FYear, FPeriod, FNumber) VALUES (7, '2026-11-02', 2026, 11, 1)");
  book.database->exec(
      "INSERT INTO t_VoucherEntry (FVoucherID, FEntryID, FAccountID, FDC, FAmountFor, FAmount) VALUES (7, 1, 9, 1, 0, "
      "0)");
  const auto count = [&](const std::string& sUser, int nVoucher) {
    return run_sql(*book.database,
                   "select FVoucherID from t_VoucherEntry e left join (select case when CharIndex('" + sUser +
                       "',FRightUserID)>0 then 1 else 0 end as FHaveRight,FAccountID from t_Account) a on "
                       "e.FAccountID=a.FAccountID where a.FHaveRight = 0 and  e.FVoucherID = " +
                       std::to_string(nVoucher))
        .size();
  };
  EXPECT_EQ(count("2", 7), 1u) << "account 9 is open to user 1 only";
  EXPECT_EQ(count("1", 7), 0u);
  EXPECT_EQ(count("2", 8), 0u);
}

TEST(SqlDialectTest, EveryTextOfThePlugInRuns) {
  DemoBook book;
  for (const char* sText : {
           "Select FID,FName From t_submessage Where FInterID=1001",
           "Select FNumber From t_Department Where FItemID=(Select FDepartment From t_Organization Where FItemID=1)",
           "Select FNumber From t_Emp Where FItemID=(Select FEmployee From t_Organization Where FItemID=1)",
           "Select  a.FCurrencyID,isnull(b.FNumber,'') from t_account a left join t_currency b on "
           "a.FCurrencyID=b.FCurrencyID where FAccountID=3",
           "Select  b.FNumber from t_currency b where b.FCurrencyID=1",
           "select 1 from icsale where finterid= 1",
           "select 1 from t_rp_rotherbill where fbillid= 1",
           "select 1 from ICPurchase where finterid= 1",
           "select 1 from t_rp_potherbill where fbillid= 1",
           "select FVoucherID from t_RP_ROtherBill where FBillID=1",
           " Select t2.FType,t2.FStandDays,t2.FMonthPayDay,t2.FBeforeDays From t_Organization t1 \r\n Left Join "
           "t_SetDl t2 "
           "ON t1.FPayMentTime=t2.FItemID Where t2.Fdeleted=0 and t1.FItemID=1",
           " Select t2.FType,t2.FStandDays,t2.FMonthPayDay,t2.FBeforeDays,t1.FValueAddRate From t_Supplier t1 \r\n "
           "Left "
           "Join t_SetDl t2 ON t1.FPayMentTime=t2.FItemID Where t2.Fdeleted=0 and t1.FItemID=1",
           "Select FValue From t_SystemProfile Where FCategory='IC' And FKey='CreditDegree'",
           "Select FCreditDegree,FNumber From t_Organization Where FItemID=1",
           "Select FBillTypeId,FAmount From t_RP_ROtherBill Where FBillID=1",
           "Select * from ICSale Where FInterId=1",
       })
    EXPECT_EQ(run_sql(*book.database, sText).size(), 1u) << sText;
  EXPECT_TRUE(run_sql(*book.database, "select FVoucherID from t_RP_RBill where FBillID=1").empty());
  EXPECT_TRUE(
      run_sql(*book.database, "Select FBillSettleAmountFor from t_rp_pbillentry where fbillid=1 and Findex=1").empty());
}

TEST(SqlDialectTest, TheUpdateOfTheSettlementFieldsWrites) {
  DemoBook book;
  book.database->exec(
      "INSERT INTO t_RP_RBill (FBillID, FBillNo, FDate, FReceiveTypeID) VALUES (5, 'A', '2026-11-02', 1001)");
  run_sql(*book.database, " UPDATE t_RP_RBill SET FSettleID=2,FSettleIDNo='K''7' WHERE FBillID=5");
  const Rows rows = book.database->query("SELECT FSettleID, FSettleIDNo FROM t_RP_RBill");
  EXPECT_EQ(rows.integer(0, "FSettleID"), 2);
  EXPECT_EQ(rows.text(0, "FSettleIDNo"), "K'7");
}

TEST(SqlDialectTest, TextsThatDifferInAnIdShareOneStatement) {
  const auto sql = [](std::string_view sText) { return translate(sText, tokenize_sql(sText)).aStatements.at(0).sSql; };
  EXPECT_EQ(sql("select 1 from icsale where finterid= 12"), sql("select 1 from  icsale where finterid=7"));
  EXPECT_EQ(sql("select 1 from icsale where finterid= 12"), "select 1 from icsale where finterid = ?");
}

TEST(SqlDialectTest, TextsThatDifferInAnIdShareOneTranslation) {
  SqlShapes shapes;
  const auto translated = [&](std::string_view sText) -> const SqlBatch& {
    return shapes.translation(sText, tokenize_sql(sText));
  };
  const SqlBatch* const pFirst = &translated("select 1 from icsale where finterid= 12");
  EXPECT_EQ(&translated("select 1 from icsale  where finterid= 7"), pFirst);
  EXPECT_EQ(shapes.size(), 1u);
  translated("select 1 from icsale where finterid= '12'");
  EXPECT_EQ(shapes.size(), 2u) << "a text is no number";
}

TEST(SqlDialectTest, ALiteralThatStaysInTheStatementIsTranslatedAnew) {
  DemoBook book;
  EXPECT_EQ(run_sql(*book.database, "select 1 as FOne from t_Emp where FNumber='001'").integer(0, "FOne"), 1);
  EXPECT_EQ(run_sql(*book.database, "select 2 as FOne from t_Emp where FNumber='001'").integer(0, "FOne"), 2);
  EXPECT_EQ(run_sql(*book.database, "select 'a' as FOne from t_Emp where FNumber='001'").text(0, "FOne"), "a");
  EXPECT_TRUE(run_sql(*book.database, "select 2 as FOne from t_Emp where FNumber='nobody'").empty());
}

TEST(SqlDialectTest, AWordInBracketsIsNotTheSameAsTheBareWord) {
  SqlShapes shapes;
  const auto sql = [&](std::string_view sText) {
    return shapes.translation(sText, tokenize_sql(sText)).aStatements.at(0).sSql;
  };
  EXPECT_EQ(sql("select FName from t_Emp"), "select FName from t_Emp");
  EXPECT_EQ(sql("select [FName] from t_Emp"), "select \"FName\" from t_Emp");
}

TEST(SqlDialectTest, TheSourceFilterIsCarriedAsACondition) {
  DemoBook book;
  const auto count = [&](std::string_view sFilter) {
    const TranslatedCondition condition = translate_condition(sFilter);
    return book.database->query("SELECT * FROM vw_arap_RBillList WHERE " + condition.sSql, condition.binds).size();
  };
  EXPECT_EQ(count("  1=1  and vw_arap_RBillList.FOriCustID =1"), 5u);
  EXPECT_EQ(count("  1=1  and vw_arap_RBillList.FOriCustID =3  And vw_arap_RBillList.fCurrencyid in(1,2)"), 1u);
  EXPECT_EQ(count("  1=1  and vw_arap_RBillList.FOriCustID =1 and not ((vw_arap_RBillList.FBillID =2 and "
                  "vw_arap_RBillList.FEntryID_HXD_SRC = 1 and vw_arap_RBillList.FClassTypeID_SRC = 1000002) )"),
            4u);
  EXPECT_EQ(translate_order(" vw_arap_RBackBillList.Fbillid desc"), "vw_arap_RBackBillList.Fbillid desc");
}

TEST(SqlDialectTest, TheSourceFilterOfALongBillIsAListOfRows) {
  DemoBook book;
  const auto found = [&](const std::string& sFilter) {
    const TranslatedCondition condition = translate_condition(sFilter);
    return book.database->query("SELECT FBillID FROM vw_arap_RBillList WHERE " + condition.sSql + " ORDER BY FBillID",
                                condition.binds);
  };
  const std::string sInvoices = "FOriCustID =1 and FClassTypeID_SRC = 1000002";
  const Rows all = found(sInvoices);
  ASSERT_GT(all.size(), 1u);
  const std::int32_t nLeft = all.integer(1, "FBillID");
  std::string sRows;
  for (int nRow = 1; nRow <= 3000; ++nRow)
    sRows += "(vw_arap_RBillList.FBillID =" + std::to_string(nRow == nLeft ? 99999 : nRow) +
             " and vw_arap_RBillList.FClassTypeID_SRC = 1000002) or ";
  sRows.resize(sRows.size() - 3);
  const Rows left = found(sInvoices + " and not (" + sRows + ")");
  ASSERT_EQ(left.size(), 1u) << "all but one of them are in the bill";
  EXPECT_EQ(left.integer(0, "FBillID"), nLeft);
}

TEST(SqlDialectTest, ManyAlternativesBecomeAListOfRowsWhereTheyAreAlike) {
  const auto sql = [](int nCount, const std::string& sLast) {
    std::string sText;
    for (int n = 0; n < nCount; ++n) sText += "(a=1 and v.b='x') or ";
    return translate_condition("c=2 and (" + sText + sLast + ")").sSql;
  };
  const std::string sList = sql(200, "A = 3 and v.B='y'");
  EXPECT_TRUE(sList.starts_with("c = ? and ((a, v.b) in (values (1, 'x'), (1, 'x'), ")) << sList;
  EXPECT_TRUE(sList.ends_with(", (3, 'y')))")) << sList;
  EXPECT_TRUE(sql(2, "(a=3 and v.b='y')").starts_with("c = ? and ((a = ? and v.b = ?) or (a = ? ")) << "few stay";
  for (const char* sOther :
       {"a=1", "not a=1 and v.b='x'", "a=1 and v.b=2", "a=1 or v.b='x'", "a<>1 and v.b='x'", "a=1 and v.c='x'"})
    EXPECT_EQ(sql(200, sOther).find("values"), std::string::npos) << sOther;
}

TEST(SqlDialectTest, TheEmployeeFilterOffersTheDepartmentAndThoseWithoutOne) {
  DemoBook book;
  const TranslatedCondition condition =
      translate_condition(" IsNull(FDepartmentID,'')='' or IsNull(FDepartmentID,'')=2");
  const Rows rows =
      book.database->query("SELECT FNumber FROM t_Emp WHERE " + condition.sSql + " ORDER BY FNumber", condition.binds);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows.text(0, "FNumber"), "003");
  EXPECT_EQ(rows.text(1, "FNumber"), "005");
}

TEST(SqlDialectTest, ANumberComparedWithAnAmountIsScaled) {
  DemoBook book;
  EXPECT_EQ(run_sql(*book.database, "select FInterID from ICSale where FAmount > 2500.4 and FAmount<=2500.5").size(),
            1u);
  EXPECT_EQ(run_sql(*book.database, "select FInterID from ICSale where FAmount = -200").size(), 1u);
}

TEST(SqlDialectTest, BracketsAndJoinedLiteralsAndCommentsAreRead) {
  DemoBook book;
  EXPECT_EQ(run_sql(*book.database, "select [FName] from [t_Emp] where FNumber='0'+'01' -- one").text(0, "FName"),
            "张明");
}

TEST(SqlDialectTest, WhatCannotBeCarriedNamesItsPosition) {
  const auto where = [](std::string_view sText) {
    try {
      translate(sText, tokenize_sql(sText));
    } catch (const DeskError& error) {
      EXPECT_EQ(error.kind(), ErrorKind::UnsupportedSql) << sText;
      return error.where().substr(0, error.where().find(" of:"));
    }
    return std::string("carried");
  };
  EXPECT_EQ(where("select getdate() from t_Emp"), "at character 8");
  EXPECT_EQ(where("select FName+'x' from t_Emp"), "at character 13");
  EXPECT_EQ(where("select '客户' from t where a=@x"), "at character 28");
  EXPECT_EQ(where("exec sp_who"), "at character 1");
  EXPECT_EQ(where("select (1 from t"), "at character 8");
  EXPECT_EQ(where("select 'open"), "at character 8");
  EXPECT_EQ(where("select isnull(a) from t"), "at character 8");
  EXPECT_EQ(where(""), "at character 1");
}

}  // namespace
}  // namespace desk

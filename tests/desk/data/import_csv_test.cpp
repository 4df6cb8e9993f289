#include "data/import_csv.h"

#include <gtest/gtest.h>

#include "temp_book.h"

namespace desk {
namespace {

using testing::DemoBook;

constexpr const char* kHeader = "customerID,invoiceNumber,InvoiceDate,DueDate,InvoiceAmount\n";

TEST(ImportCsvTest, InvoicesAndTheirCustomersComeIntoTheBook) {
  DemoBook book;
  const std::string sPath = book.folder.write("in.csv", std::string(kHeader) +
                                                            "K-1,100,1/6/2012,2012-02-05,47.07\n"
                                                            "K-1,101,12/31/2013,1/30/2014,0.1\n"
                                                            "C001,102,2014-02-28,2014-03-01,-5\n");
  const ImportResult result = import_invoices(*book.database, sPath);
  EXPECT_EQ(result.nImported, 3u);
  EXPECT_EQ(result.nNewPartners, 1u);
  EXPECT_EQ(result.total.text(), "42.17");
  const Rows rows = book.database->query(
      "SELECT s.FDate, s.FDueDate, s.FAmountFor, o.FNumber FROM ICSale s JOIN t_Organization o ON o.FItemID = "
      "s.FCustID "
      "WHERE s.FBillNo = '100'");
  EXPECT_EQ(rows.text(0, "FDate"), "2012-01-06");
  EXPECT_EQ(rows.text(0, "FDueDate"), "2012-02-05");
  EXPECT_EQ(rows.money(0, "FAmountFor").text(), "47.07");
  EXPECT_EQ(rows.text(0, "FNumber"), "K-1");
}

TEST(ImportCsvTest, ABadLineIsNamedAndStopsNothingElse) {
  DemoBook book;
  const ImportResult result = import_invoices_text(*book.database,
                                                   std::string(kHeader) +
                                                       "K,1,2/30/2014,2014-03-01,1\n"
                                                       "K,2,2014-01-01,2014-03-01,1.2.3\n"
                                                       "\"K\nL\",3,2014-01-01,2014-03-01,5\n"
                                                       "K,,2014-01-01,2014-03-01,5\n"
                                                       "K,5\n"
                                                       "K,6,2014-01-01,2014-03-01,0\n",
                                                   "x.csv");
  EXPECT_EQ(result.nImported, 1u);
  ASSERT_EQ(result.aBad.size(), 5u);
  EXPECT_EQ(result.aBad[0].nLine, 2u);
  EXPECT_NE(result.aBad[0].sReason.find("2/30/2014"), std::string::npos);
  EXPECT_NE(result.aBad[1].sReason.find("1.2.3"), std::string::npos);
  EXPECT_EQ(result.aBad[2].nLine, 6u) << "a field with a line end counts two lines";
  EXPECT_EQ(result.aBad[4].nLine, 8u);
}

TEST(ImportCsvTest, TheSameNumberOfTheSameCustomerComesInOnce) {
  DemoBook book;
  const std::string sCsv =
      std::string(kHeader) + "K,1,2014-01-01,2014-02-01,5\nL,1,2014-01-01,2014-02-01,5\nK,1,2014-01-01,2014-02-01,5\n";
  const ImportResult first = import_invoices_text(*book.database, sCsv, "x.csv");
  EXPECT_EQ(first.nImported, 2u);
  ASSERT_EQ(first.aSkipped.size(), 1u);
  EXPECT_EQ(first.aSkipped[0].nLine, 4u);
  const ImportResult again = import_invoices_text(*book.database, sCsv, "x.csv");
  EXPECT_EQ(again.nImported, 0u);
  EXPECT_EQ(again.aSkipped.size(), 3u);
}

TEST(ImportCsvTest, ColumnsAreFoundBySpellingSynonymOrMapping) {
  DemoBook book;
  const std::string sCsv =
      "\xEF\xBB\xBF\"Invoice Number\", CUSTOMER ,Invoice Date,due date,Sum\r\n9,K,2014-01-01,2014-02-01,\"5\"\r\n";
  EXPECT_THROW(import_invoices_text(*book.database, sCsv, "x.csv"), DeskError);
  EXPECT_EQ(import_invoices_text(*book.database, sCsv, "x.csv", {{"amount", "sum"}}).nImported, 1u);
  EXPECT_THROW(import_invoices_text(*book.database, sCsv, "x.csv", {{"amount", "none"}}), DeskError);
}

TEST(ImportCsvTest, AFileThatCannotBeReadIsRefusedWhole) {
  DemoBook book;
  const std::size_t nBefore = book.database->query("SELECT 1 FROM ICSale").size();
  EXPECT_THROW(import_invoices(*book.database, book.folder.path("none.csv")), DeskError);
  EXPECT_THROW(import_invoices_text(*book.database, "", "x.csv"), DeskError);
  EXPECT_THROW(
      import_invoices_text(*book.database, std::string(kHeader) + "K,1,2014-01-01,2014-02-01,5\n\"open", "x.csv"),
      DeskError);
  EXPECT_EQ(book.database->query("SELECT 1 FROM ICSale").size(), nBefore);
}

}  // namespace
}  // namespace desk

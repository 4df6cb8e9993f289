#include "services/invoice_lists.h"

#include <gtest/gtest.h>

#include "desk/services/small_book.h"
#include "frame/conversions.h"
#include "services/help_viewer.h"

namespace desk::testing {
namespace {

/// Two invoices a class and an opening balance a side.
class InvoiceLists : public ::testing::Test {
 protected:
  InvoiceLists() {
    for (const std::int32_t nClass : kInvoiceClasses) {
      const bool bSale = nClass < 1000003;
      for (std::int32_t n = 1; n <= 2; ++n) {
        const std::string sNumber = "FP" + std::to_string(nClass % 10) + std::to_string(n);
        book.database().exec(std::string("INSERT INTO ") + (bSale ? "ICSale (FCustID, " : "ICPurchase (FSupplyID, ") +
                                 "FClassTypeID, FBillNo, FDate, FDueDate, FAmountFor, FAmount) VALUES (?, ?, ?, "
                                 "'2026-11-02', '2026-12-02',"
                                 " 1234500, 1234500)",
                             {Bind(std::int32_t{bSale ? 11 : 21}), Bind(nClass), Bind(sNumber)});
      }
    }
    book.database().exec_script(R"sql(
      INSERT INTO ICSale (FCustID, FClassTypeID, FIsBegin, FDate, FDueDate, FAmountFor, FAmount) VALUES
        (11, 1000000, 1, '2026-01-01', '2026-01-01', 80000000, 80000000);
      INSERT INTO ICPurchase (FSupplyID, FClassTypeID, FIsBegin, FDate, FDueDate, FAmountFor, FAmount) VALUES
        (21, 1000003, 1, '2026-01-01', '2026-01-01', 60000000, 60000000);
    )sql");
  }

  OpenRecordList invoices(std::int32_t nClass) { return open_record_list(book.database(), invoice_list(nClass)); }
  OpenRecordList opening(OpeningSide side) { return open_record_list(book.database(), opening_list(side)); }
  const std::vector<ShownMessage>& boxes() { return session.platform().messages(); }

  SmallBook book;
  Session session{book.database(), "li"};
};

TEST_F(InvoiceLists, EachClassHasItsOwnInvoicesAndNoOpeningBalance) {
  for (const std::int32_t nClass : kInvoiceClasses) {
    const OpenRecordList list = invoices(nClass);
    ASSERT_EQ(list->lines().size(), 2u) << nClass;
    EXPECT_EQ(list->lines().text(0, "FBillNo"), "FP" + std::to_string(nClass % 10) + "1");
    EXPECT_EQ(list->lines().money(0, "FAmountFor").text(), "123.45");
  }
  EXPECT_THROW(invoice_list(1000001), DeskError);
}

TEST_F(InvoiceLists, TheViewOpensTheBillBehindTheFirstSelectedRowInTheBillListWindow) {
  for (const std::int32_t nClass : kInvoiceClasses) {
    const OpenRecordList list = invoices(nClass);
    list->select_lines({1, 0});
    ASSERT_TRUE(list->press("mnuViewOldBill")) << nClass;
    ASSERT_FALSE(session.shown_bill_lists.empty());
    const ShownBills& bills = session.shown_bill_lists.back();
    ASSERT_EQ(bills.aRows.size(), 1u);
    EXPECT_EQ(arap::Concat(bills.value(0, "FBillNo")), list->lines().text(1, "FBillNo"));
    EXPECT_EQ(arap::NumberOf(bills.value(0, "famountfor")), 123.45);
  }
  EXPECT_EQ(session.shown_bill_lists.size(), 4u);
  EXPECT_TRUE(boxes().empty());
}

TEST_F(InvoiceLists, WithoutASelectionTheViewDoesNothing) {
  const OpenRecordList list = invoices(1000002);
  ASSERT_TRUE(list->press("mnuViewOldBill"));
  EXPECT_TRUE(session.shown_bill_lists.empty());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(InvoiceLists, AListOfAnotherClassHasNoTableAndTheFailureIsTold) {
  RecordListContent content = invoice_list(1000002);
  content.nClassType = 1000201;
  const OpenRecordList list = open_record_list(book.database(), content);
  list->select_lines({0});
  ASSERT_TRUE(list->press("mnuViewOldBill"));
  ASSERT_EQ(boxes().size(), 1u);
  EXPECT_FALSE(boxes()[0].sText.empty());
  EXPECT_EQ(boxes()[0].sTitle, "青柚提示");
  EXPECT_TRUE(session.shown_bill_lists.empty());
}

TEST_F(InvoiceLists, TheHostsViewIsReplacedByTheCommandThatShowsTheBill) {
  const OpenRecordList list = invoices(1000002);
  EXPECT_FALSE(list->bar().find_tool("mnuFileView")->bVisible);
  const BarTool* pView = list->bar().find_tool("mnuViewOldBill");
  ASSERT_NE(pView, nullptr);
  EXPECT_EQ(pView->sCaption, "查看");
  EXPECT_TRUE(pView->usable());
  for (const char* sBand : {"mnuEdit", "BandToolBar"}) {
    const auto& aTools = list->bar().find_band(sBand)->aTools;
    EXPECT_EQ(aTools[1]->sName, "mnuViewOldBill") << sBand;
  }
}

TEST_F(InvoiceLists, TheListsLoseTheCommandsThatThisModuleDoesNotHave) {
  const OpenRecordList invoice = invoices(1000000);
  const OpenRecordList balance = opening(OpeningSide::Payables);
  for (const OpenRecordList* list : {&invoice, &balance}) {
    for (const char* sTool : {"mnuNoteSetup", "mnuFileSeriesPrint", "mnuEditCopy", "mnuPushBill", "mnuViewToolBar",
                              "mnuFormatFont", "mnuDataAccessory", "mnuFileSeriesPrintAll", "mnuEditCopyEntry"})
      EXPECT_FALSE((*list)->press(sTool)) << sTool;
    EXPECT_TRUE((*list)->press("mnuDataRefesh"));
  }
  EXPECT_TRUE(invoice->bar().find_tool("mnuExportData")->bVisible);
  for (const char* sTool : {"mnuExportData", "mnuFilePageSetup", "mnuFileView"})
    EXPECT_FALSE(balance->bar().find_tool(sTool)->bVisible) << sTool;
  EXPECT_EQ(balance->bar().find_tool("mnuViewOldBill"), nullptr);
}

TEST_F(InvoiceLists, TheOpeningBalancesAreThoseOfTheSide) {
  const OpenRecordList receivables = opening(OpeningSide::Receivables);
  ASSERT_EQ(receivables->lines().size(), 1u);
  EXPECT_EQ(receivables->lines().money(0, "FAmountFor").text(), "8000.00");
  EXPECT_EQ(receivables->lines().money(0, "FOpenFor").text(), "8000.00");
  const OpenRecordList payables = opening(OpeningSide::Payables);
  ASSERT_EQ(payables->lines().size(), 1u);
  EXPECT_EQ(payables->lines().text(0, "FPartner"), "S01");
}

TEST_F(InvoiceLists, ARefreshDropsTheSelectionAndReadsWhatCameMeanwhile) {
  const OpenRecordList list = invoices(1000002);
  list->select_lines({1});
  book.database().exec("DELETE FROM ICSale WHERE FBillNo = 'FP21'");
  ASSERT_TRUE(list->press("mnuDataRefesh"));
  EXPECT_TRUE(list->selection().empty());
  EXPECT_EQ(list->lines().size(), 1u);
  EXPECT_THROW(list->select_lines({1}), arap::AutomationError);
  ASSERT_TRUE(list->press("mnuFileExit"));
  EXPECT_TRUE(list->closed());
}

TEST_F(InvoiceLists, TheBillListWindowTakesOnlyARecordsetOfTheDesk) {
  const auto oBills = session.registry().create("NUVBills.Bills");
  EXPECT_THROW(oBills->put(arap::Member::ListRecordset, session.registry().create("NUVContainers.Vector")),
               arap::AutomationError);
}

TEST(HelpViewer, ThePathOfTheLibraryBecomesThatOfTheMachine) {
  EXPECT_EQ(native_path("/opt/desk\\NUVV11.chm"), "/opt/desk/NUVV11.chm");
}

TEST(HelpViewer, AViewerThatIsNotThereIsToldToTheCaller) {
  need_application();
  qputenv("DESK_HELP_VIEWER", "/no/such/viewer");
  EXPECT_FALSE(open_help_file("NUVV11.chm"));
  qputenv("DESK_HELP_VIEWER", "true");
  EXPECT_TRUE(open_help_file("NUVV11.chm"));
  qunsetenv("DESK_HELP_VIEWER");
}

}  // namespace
}  // namespace desk::testing

#include <gtest/gtest.h>

#include <memory>

#include "frame/plugin_entry.h"
#include "support/golden.h"
#include "support/test_session.h"
#include "support/test_windows.h"

namespace arap::testing {
namespace {

using Lines = std::vector<std::string>;

/// An invoice list of one class with the plug-in's class on it.
struct InvoiceWorld {
  explicit InvoiceWorld(std::int32_t nClass = 1000000) : list(make_object<TestList>(nClass)) {
    session.platform.files["C:\\Program\\ErpSwitch.sss"] = 32;
    plugin->call(Member::Show, list);
    trace().clear();
  }

  TestSession session;
  Ref<TestList> list;
  Ref<Object> plugin = CreatePublicObject("NUVARAPBillInterface.clsInvoice");
};

class InvoiceList : public ::testing::Test, protected InvoiceWorld {};

TEST_F(InvoiceList, TheMenuGetsTheViewOfTheOldBillInPlaceOfTheHostsView) {
  list->fire(Event::MenuBarInitialize, {list->bar});
  EXPECT_FALSE(list->bar->tool("mnuEdit", "mnuFileView").visible());
  EXPECT_TRUE(list->bar->tool("BandToolBar", "mnuFileView").visible());
  const TestTool& oTool = list->bar->tool("mnuViewOldBill");
  for (const Member member : {Member::Caption, Member::ToolTipText, Member::Description}) {
    EXPECT_EQ(plain_text(oTool.property(member)), "查看");
  }
  EXPECT_TRUE(oTool.visible());
  EXPECT_TRUE(oTool.enabled());
  EXPECT_EQ(show(oTool.picture), "\"VIEW\"");
  EXPECT_EQ(plain_number(oTool.colour_key), 0xC0C0C0);
  ExpectGolden("lists", "invoice_menu");
}

TEST_F(InvoiceList, TheNewCommandStandsRightBehindTheHostsView) {
  list->fire(Event::MenuBarInitialize, {list->bar});
  for (const char* sBand : {"mnuEdit", "BandToolBar"}) {
    const Lines aNames = list->bar->names(sBand);
    const auto view = std::find(aNames.begin(), aNames.end(), "mnuFileView");
    ASSERT_GT(aNames.end() - view, 1) << sBand;
    EXPECT_EQ(*(view + 1), "mnuViewOldBill") << sBand;
  }
}

TEST_F(InvoiceList, AMenuThatLacksTheHostsViewRaisesTheBarsError) {
  list->bar->remove("mnuEdit", "mnuFileView");
  EXPECT_THROW(list->fire(Event::MenuBarInitialize, {list->bar}), AutomationError);
  EXPECT_FALSE(list->bar->has("mnuViewOldBill"));
}

TEST_F(InvoiceList, AToolBandThatLacksTheHostsViewTakesTheCommandBehindItsFirstTool) {
  list->bar->remove("BandToolBar", "mnuFileView");
  list->fire(Event::MenuBarInitialize, {list->bar});
  EXPECT_EQ(list->bar->names("BandToolBar")[1], "mnuViewOldBill");
}

TEST_F(InvoiceList, WithoutASelectedRowTheCommandDoesNothing) {
  EXPECT_FALSE(list->click("mnuViewOldBill"));
  EXPECT_TRUE(session.platform.messages.empty());
  EXPECT_FALSE(trace().has("Datasrv"));
}

TEST_F(InvoiceList, ARowWithTheIdZeroOpensNothing) {
  list->select({{"FInterID", std::int32_t{0}}});
  EXPECT_FALSE(list->click("mnuViewOldBill"));
  EXPECT_TRUE(session.platform.messages.empty());
  EXPECT_FALSE(trace().has("Datasrv"));
}

TEST_F(InvoiceList, TheBillBehindTheFirstRowOpensInTheBillListWindow) {
  const auto rows = recordset({"FInterID", "FTranType"}, {{std::int32_t{7}, std::int32_t{80}}});
  session.server("NUVClassTpl.Datasrv").answers(Member::GetData, rows);
  list->select({{"FInterID", std::int32_t{7}}}).select({{"FInterID", std::int32_t{8}}});
  EXPECT_FALSE(list->click("mnuViewOldBill"));
  ExpectGolden("lists", "invoice_view");

  const ServerStub& bills = session.server("NUVBills.Bills");
  EXPECT_EQ(bills.value(Member::ListRecordset).object(), Ref<Object>(rows));
  const auto& oColumns = static_cast<TestVector&>(*bills.value(Member::ListRSFieldVect).object());
  ASSERT_EQ(oColumns.items.size(), 2u);
  const auto at = [&](std::size_t n, const char* sKey) {
    return static_cast<TestDictionary&>(*oColumns.items[n].object()).at(sKey);
  };
  EXPECT_EQ(plain_number(at(0, "FISPrimary")), 1);
  EXPECT_EQ(plain_text(at(0, "FColName")), "FInterID");
  EXPECT_EQ(plain_number(at(1, "FISPrimary")), 3);
  EXPECT_EQ(plain_text(at(1, "FColName")), "FTranType");
}

TEST_F(InvoiceList, TheWindowGetsTheSwitchFileTheUserAndNoSystemName) {
  list->select({{"FInterID", std::int32_t{7}}});
  list->click("mnuViewOldBill");
  ServerStub& bills = session.server("NUVBills.Bills");
  EXPECT_EQ(plain_text(bills.value(Member::SystemName)), "");
  EXPECT_EQ(plain_text(bills.value(Member::LocalCnn)),
            "PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=C:\\Program\\ErpSwitch.sss;");
  ASSERT_EQ(bills.last(Member::SetOpt).size(), 2u);
  EXPECT_EQ(bills.last(Member::SetOpt)[0].as<std::int16_t>(), 16394);
  EXPECT_EQ(plain_text(bills.last(Member::SetOpt)[1]), "tester");
  ASSERT_EQ(bills.last(Member::Show).size(), 2u);
  EXPECT_EQ(plain_number(bills.last(Member::Show)[0]), 0);
  EXPECT_EQ(plain_number(bills.last(Member::Show)[1]), 2);
}

TEST_F(InvoiceList, WithoutASwitchFileTheWindowOpensWithAnEmptyConnection) {
  session.platform.files.clear();
  list->select({{"FInterID", std::int32_t{7}}});
  list->click("mnuViewOldBill");
  EXPECT_EQ(plain_text(session.server("NUVBills.Bills").value(Member::LocalCnn)), "");
  EXPECT_EQ(session.server("NUVBills.Bills").count(Member::Show), 1u);
}

TEST_F(InvoiceList, TheNameOfTheCommandDoesNotDependOnCase) {
  list->select({{"FInterID", std::int32_t{7}}});
  list->click("MNUVIEWOLDBILL");
  EXPECT_EQ(session.class_data.texts.size(), 1u);
}

TEST_F(InvoiceList, EveryCommandReadsTheSystemValueAndNoneIsCancelled) {
  for (const char* sTool : {"mnuViewOldBill", "mnuFileView", "mnuDataFilter", ""}) {
    trace().clear();
    EXPECT_FALSE(list->click(sTool)) << sTool;
    EXPECT_EQ(trace().count("\"IC\", \"RefreshAfterAdd\""), 1u) << sTool;
  }
}

struct ClassCase {
  std::int32_t nClass;
  const char* sTable;
};
void PrintTo(const ClassCase& example, std::ostream* pStream) { *pStream << example.nClass; }
class InvoiceClass : public ::testing::TestWithParam<ClassCase> {};
INSTANTIATE_TEST_SUITE_P(Classes, InvoiceClass,
                         ::testing::Values(ClassCase{1000000, "ICSale"}, ClassCase{1000002, "ICSale"},
                                           ClassCase{1000003, "ICPurchase"}, ClassCase{1000004, "ICPurchase"},
                                           ClassCase{1000001, ""}, ClassCase{1000005, ""}, ClassCase{0, ""}),
                         [](const auto& test) { return std::to_string(test.param.nClass); });

TEST_P(InvoiceClass, SaysInWhichTableItsBillsAre) {
  InvoiceWorld world(GetParam().nClass);
  world.list->select({{"FInterID", std::int32_t{7}}});
  world.list->click("mnuViewOldBill");
  EXPECT_EQ(world.session.class_data.texts,
            (Lines{std::string("Select * from ") + GetParam().sTable + " Where FInterId=7"}));
}

TEST_F(InvoiceList, AClassOutsideTheFourFailsInItsQueryAndIsTold) {
  list->server->property(Member::ClassTypeId, std::int32_t{1000201});
  session.class_data.fail("Select * from  Where FInterId=7", -2147217900, "Incorrect syntax");
  list->select({{"FInterID", std::int32_t{7}}});
  EXPECT_FALSE(list->click("mnuViewOldBill"));
  ASSERT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(session.platform.last_message(), "Incorrect syntax");
  EXPECT_EQ(session.platform.messages[0].nButtons, 64);
  EXPECT_EQ(session.platform.messages[0].sTitle, "青柚提示");
  EXPECT_EQ(session.server("NUVBills.Bills").count(Member::Show), 0u);
}

TEST_F(InvoiceList, ARowWithoutTheColumnIsTold) {
  list->select({{"FBillNo", "XS001"}});
  EXPECT_FALSE(list->click("mnuViewOldBill"));
  EXPECT_EQ(session.platform.messages.size(), 1u);
}

TEST_F(InvoiceList, ARowOfPlainValuesIsServedAsWell) {
  list->selection->items.emplace_back(dictionary({{"FInterID", std::int32_t{9}}}));
  list->click("mnuViewOldBill");
  EXPECT_EQ(session.class_data.texts, (Lines{"Select * from ICSale Where FInterId=9"}));
}

TEST(InvoiceFaults, AViewThatFailsIsToldOnceOrNotAtAll) {
  const int nFaults = FailEachCall([](const auto& arm) {
    InvoiceWorld world;
    world.list->select({{"FInterID", std::int32_t{7}}});
    arm();
    bool bRaised = false;
    try {
      EXPECT_FALSE(world.list->click("mnuViewOldBill"));
    } catch (const AutomationError&) {
      bRaised = true;  // the command's name and the selection are read without a trap
    }
    EXPECT_LE(world.session.platform.messages.size(), 1u);
    EXPECT_TRUE(!bRaised || world.session.platform.messages.empty());
    EXPECT_TRUE(trace().faulted() || world.session.server("NUVBills.Bills").count(Member::Show) == 1);
  });
  EXPECT_GE(nFaults, 30);
}

TEST(InvoiceFaults, AMenuThatFailsPassesTheErrorToTheHost) {
  const int nFaults = FailEachCall([](const auto& arm) {
    InvoiceWorld world;
    arm();
    bool bRaised = false;
    try {
      world.list->fire(Event::MenuBarInitialize, {world.list->bar});
    } catch (const AutomationError&) {
      bRaised = true;
    }
    EXPECT_EQ(bRaised, trace().faulted());
  });
  EXPECT_GE(nFaults, 15);
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "data/demo.h"
#include "desk/test_server.h"
#include "engine/bill_window.h"
#include "frame/conversions.h"
#include "services/session.h"

namespace desk {
namespace {

/// A road a user goes: choose the partner, draw the sources, sum, save, check.
struct Road {
  const char* sTemplate;
  const char* sPartner;
  const char* sPartnerTable;
  const char* sView;
  const char* sViewPartner;
  const char* sSelect;
};

const Road kRoads[] = {
    {"receipt", "FCustomerID", "t_Organization", "vw_arap_RBillList", "FCustID", "mnuSelectBill_2000001"},
    {"payment", "FSupplyID", "t_Supplier", "vw_arap_PBillList", "FSupplyID", "mnuSelectBill_2000002"},
};

class PluginRoad : public ::testing::TestWithParam<Road> {
 protected:
  void SetUp() override {
    database = Database::create(testing::book_address(folder_.filePath(QStringLiteral("road.book")).toStdString()));
    create_demo(*database, "2026-11-01");
    session = std::make_unique<Session>(*database, "demo");
    Host host(*database);
    host.sToday = "2026-11-21";
    host.choose_sources = choose_all();
    window = open_bill_window(host, BillTemplate::shipped(GetParam().sTemplate));
  }
  void TearDown() override {
    window.reset();
    session.reset();
  }

  /// The code of a partner with open sources in base currency.
  std::string partner_with_sources() {
    const Road& road = GetParam();
    return arap::Concat(database->value(std::string("SELECT p.FNumber FROM ") + road.sPartnerTable + " p JOIN " +
                                        road.sView + " v ON v." + road.sViewPartner +
                                        " = p.FItemID WHERE v.FCurrencyID = 1 ORDER BY p.FItemID LIMIT 1"));
  }
  std::string told() const {
    std::string sText;
    for (const ShownMessage& message : session->platform().messages()) sText += message.sText + "\n";
    return sText;
  }
  void fill_from_sources() {
    window->new_bill();
    ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, partner_with_sources()));
    window->set_chooser(
        choose_where([](const SourceList& list, std::size_t nRow) { return list.text(nRow, "FCurrencyID") == "1"; }));
    const Outcome chosen = window->press(GetParam().sSelect);
    ASSERT_TRUE(chosen) << chosen.sReason << told();
    ASSERT_TRUE(window->press("mnuDataAutoSumAmt"));
  }

  std::unique_ptr<Database> database;
  std::unique_ptr<Session> session;
  OpenBillWindow window;

 private:
  QTemporaryDir folder_;
};
INSTANTIATE_TEST_SUITE_P(BothSides, PluginRoad, ::testing::ValuesIn(kRoads),
                         [](const auto& each) { return std::string(each.param.sTemplate); });

TEST_P(PluginRoad, ANewBillStartsInBaseCurrencyWithNoChanges) {
  window->new_bill();
  EXPECT_EQ(arap::NumberOf(window->value("FCurrencyID")), 1);
  EXPECT_EQ(arap::NumberOf(window->value("FDiscount")), 100);
  EXPECT_TRUE(window->locked("FExchangeRate"));
  EXPECT_FALSE(window->has_changes());
}

TEST_P(PluginRoad, SourcesAreDrawnSummedAndStored) {
  fill_from_sources();
  const double dAmount = arap::NumberOf(window->value("FAmountFor"));
  EXPECT_NE(dAmount, 0);
  const Outcome saved = window->press("mnuFileSave");
  ASSERT_TRUE(saved) << saved.sReason << told();
  EXPECT_EQ(arap::NumberOf(window->value("FAmountFor")), dAmount);
  EXPECT_EQ(arap::NumberOf(window->value("FDiscount")), 100);
  EXPECT_EQ(window->edit_mode(), EditMode::Modify);
}

TEST_P(PluginRoad, ACheckedBillIsLockedButForItsSettlementFields) {
  fill_from_sources();
  ASSERT_TRUE(window->press("mnuFileSave")) << told();
  ASSERT_TRUE(window->press("mnuEditCheck")) << told();
  ASSERT_EQ(arap::NumberOf(window->value("FStatus")), 1) << told();
  EXPECT_TRUE(window->locked("FAmountFor"));
  EXPECT_FALSE(window->locked("FSettleID"));
  EXPECT_FALSE(window->press("mnuEditCheck"));
  ASSERT_TRUE(window->press("mnuEditUnCheck")) << told();
  EXPECT_EQ(arap::NumberOf(window->value("FStatus")), 0) << told();
}

TEST_P(PluginRoad, ABillWhoseHeadAndRowsDisagreeIsRefusedWithTheRulesOwnBox) {
  fill_from_sources();
  ASSERT_TRUE(window->type_field("FAmountFor", -1, "1"));
  session->platform().clear_messages();
  EXPECT_FALSE(window->save());
  EXPECT_FALSE(session->platform().messages().empty());
  EXPECT_EQ(window->bill_id(), 0);
}

}  // namespace
}  // namespace desk

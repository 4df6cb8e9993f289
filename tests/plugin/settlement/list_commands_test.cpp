#include "plugin/settlement/list_fixture.h"

namespace arap::testing {
namespace {

class ListClick : public SettlementList {
 protected:
  void allow_all_but(std::int32_t nRight) {
    session.access = [this, nRight](std::int32_t nSystem, std::int32_t nObject, std::int32_t nAsked) {
      EXPECT_EQ(nSystem, 1010);
      EXPECT_EQ(nObject, side.nBillClass);
      return nAsked != nRight;
    };
  }
};
INSTANTIATE_BOTH_SIDES(ListClick);

TEST_P(ListClick, EachCommandNeedsItsRight) {
  for (const auto& [sTool, nRight] :
       std::vector<std::pair<const char*, std::int32_t>>{{"mnuEditDelete", 65536}, {"Check", 1}, {"UnCheck", 4096}}) {
    select_ready({5}, sTool == std::string("UnCheck") ? 1 : 0);
    allow_all_but(nRight);
    EXPECT_TRUE(list->click(sTool)) << sTool;
    EXPECT_EQ(session.platform.last_message(), "没有权限,请与系统管理员联系");
    EXPECT_TRUE(operations().empty());
    list->selection->items.clear();
  }
}

TEST_P(ListClick, DeleteAsksAndAlwaysCancels) {
  select_ready({5});
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_EQ(boxes().front(), (Box{"是否删除数据 ?", 36, "青柚提示"}));
  EXPECT_EQ(operations(), Lines{"5:0"});
  EXPECT_EQ(refreshes(), 1u);
}

TEST_P(ListClick, EachCommandRunsInTheApprovedOrder) {
  struct Example {
    const char* sTool;
    std::int32_t nStatus;
    const char* sGolden;
  };
  for (const Example& example : {Example{"mnuEditDelete", 0, "list_delete"},
                                 {"Check", 0, "list_check"},
                                 {"UnCheck", 1, "list_uncheck"},
                                 {"Voucher", 1, "list_voucher"}}) {
    list->selection->items.clear();
    for (const std::int32_t nBillID : {5, 6}) have(nBillID, {.nStatus = example.nStatus, .vVoucher = nBillID * 11});
    select({5, 5, 6});
    session.next_task = 501;
    trace().clear();
    list->click(example.sTool);
    expect_golden(example.sGolden);
  }
}

TEST_P(ListClick, DeleteStopsWhenTheUserDoesNotAgree) {
  select_ready({5});
  session.platform.answer(7);
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_TRUE(operations().empty());
  EXPECT_EQ(refreshes(), 0u);
}

TEST_P(ListClick, DeleteAsksOnlyWhenEveryBillPasses) {
  select_ready({5}, 1);
  EXPECT_TRUE(list->click("mnuEditDelete"));
  EXPECT_EQ(boxes(), notice("不能删除已经审核的单据!"));
}

TEST_P(ListClick, ModifyIsTheHosts) {
  select_ready({5});
  EXPECT_FALSE(list->click("mnuEditModify"));
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListClick, CheckRunsAndRefreshesTheListAndDoesNotCancel) {
  select_ready({5});
  EXPECT_FALSE(list->click("Check"));
  EXPECT_EQ(operations(), Lines{"5:1"});
  EXPECT_EQ(trace().count("ListForm.RefreshList(False)"), 1u);
  EXPECT_LT(trace().position("RefreshList"), trace().position("letmessage"));
}

TEST_P(ListClick, CheckOfACheckedBillCancels) {
  select_ready({5}, 1);
  EXPECT_TRUE(list->click("Check"));
  EXPECT_EQ(boxes(), notice("不能审核已经审核的单据!"));
  EXPECT_EQ(refreshes(), 0u);
}

TEST_P(ListClick, UncheckRunsAndDoesNotCancel) {
  select_ready({5, 6}, 1);
  EXPECT_FALSE(list->click("UnCheck"));
  EXPECT_EQ(operations(), (Lines{"5:2", "6:2"}));
  EXPECT_EQ(refreshes(), 1u);
}

TEST_P(ListClick, OneBillOfAClosedPeriodAmongTenStopsTheUncheckBeforeTheFirst) {
  for (std::int32_t nBillID = 1; nBillID <= 10; ++nBillID) {
    have(nBillID, {.nStatus = 1, .sDate = nBillID == 7 ? "2023-12-31" : "2024-01-01"});
    select({nBillID});
  }
  EXPECT_TRUE(list->click("UnCheck"));
  EXPECT_EQ(boxes(), warning("不能反审核以前期间的单据，反审核失败。"));
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListClick, ASubtotalLineEndsTheUncheckSilently) {
  select_ready({5, 0}, 1);
  EXPECT_FALSE(list->click("UnCheck"));
  EXPECT_EQ(box_count(), 0);
  EXPECT_TRUE(operations().empty());
}

TEST_P(ListClick, NothingSelectedCancelsWithoutAWord) {
  for (const char* sTool : {"mnuEditDelete", "Check", "UnCheck"}) EXPECT_TRUE(list->click(sTool)) << sTool;
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_EQ(box_count(), 0);
}

TEST_P(ListClick, WithRefreshAfterAddTheListIsNotRefreshed) {
  session.system_values[{"IC", "RefreshAfterAdd"}] = "1";
  select_ready({5});
  list->click("Check");
  EXPECT_EQ(operations(), Lines{"5:1"});
  EXPECT_EQ(refreshes(), 0u);
}

TEST_P(ListClick, EveryCommandReadsTheSelectionAndTheRefreshValue) {
  trace().set_detail(Trace::Detail::All);
  EXPECT_FALSE(list->click("mnuFilePrint"));
  EXPECT_EQ(trace().count("SelectedRows"), 1u);
  EXPECT_EQ(session.server("NUVBillDataAccess.SysInfo").count(Member::GetSysValue), 1u);
}

TEST_P(ListClick, ToolNamesAreComparedWithoutRegardToCase) {
  select_ready({5});
  list->click("CHECK");
  EXPECT_EQ(operations(), Lines{"5:1"});
}

TEST_P(ListClick, TheFirstVoucherOfTheSelectionOpens) {
  have(5);
  have(6, {.vVoucher = std::int32_t{77}});
  have(7, {.vVoucher = std::int32_t{88}});
  select({5, 6, 7});
  EXPECT_FALSE(list->click("Voucher"));
  const auto aArgs = session.server("NUVMVEdit.MVoucherEdit").last(Member::LoadVoucher);
  ASSERT_EQ(aArgs.size(), 4u);
  EXPECT_EQ(plain_number(aArgs[0]), 1);
  EXPECT_EQ(plain_number(aArgs[1]), 77);
}

TEST_P(ListClick, BillsWithoutAVoucherAreNotPosted) {
  have(5);
  have(6, {.vVoucher = Null{}});
  select({5, 6});
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_EQ(boxes(), notice("单据未记账。"));
}

TEST_P(ListClick, AVoucherOfAnotherSystemIsSaidToBeThere) {
  have(5, {.vVoucher = std::int32_t{-1}});
  select({5});
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_EQ(boxes(), notice("关联的凭证不在当前系统中"));
}

TEST_P(ListClick, ASubtotalLineEndsTheVoucherCommand) {
  have(5);
  select({5, 0});
  EXPECT_FALSE(list->click("Voucher"));
  EXPECT_EQ(box_count(), 0);
}

TEST_P(ListClick, AVoucherWithAnAccountOutsideTheUsersRightsIsRefused) {
  auto oRight = dictionary({{"UserText", "16394"}, {"InUse", true}});
  session.server("NUVLPSGLItem.ItemInfo").answers(Member::GetDataRight, oRight);
  session.commands.answer("select FVoucherID from t_VoucherEntry", recordset({"FVoucherID"}, {{std::int32_t{77}}}));
  have(5, {.vVoucher = std::int32_t{77}});
  select({5});
  EXPECT_TRUE(list->click("Voucher"));
  EXPECT_EQ(boxes(), notice("存在您无科目权限的会计科目，请系统管理员授权后再进入。"));
  EXPECT_EQ(session.server("NUVMVEdit.MVoucherEdit").count(Member::LoadVoucher), 0u);
}

TEST_P(ListClick, ViewBillFindsNoOpenBillBehindAList) {
  EXPECT_FALSE(list->click("viewBill"));
  EXPECT_EQ(box_count(), 0);
}

TEST_P(ListClick, ViewBillWithABillOpenRaisesOnTheReceiptOnly) {
  bill->head("FBillID", 9);
  bill->define("FInterId", 1, std::int32_t{9});
  if (receive()) {
    EXPECT_THROW(list->click("viewBill"), AutomationError);
  } else {
    EXPECT_FALSE(list->click("viewBill"));
  }
}

TEST_P(ListClick, TheListIsHeardAfterItsMemberWasSetByTheHost) {
  plugin->put(Member::m_LstInterface, Ref<Object>());
  select_ready({5});
  EXPECT_FALSE(list->click("Check"));
  EXPECT_TRUE(operations().empty());
  plugin->put(Member::m_LstInterface, list);
  list->click("Check");
  EXPECT_EQ(operations(), Lines{"5:1"});
}

TEST_P(ListClick, TheReadRowsOfTheListAreNoBusinessOfTheClass) {
  list->fire(Event::AfterGetData);
  EXPECT_TRUE(trace().lines().empty());
}

}  // namespace
}  // namespace arap::testing

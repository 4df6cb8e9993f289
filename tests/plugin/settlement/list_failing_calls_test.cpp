#include <algorithm>

#include "plugin/settlement/list_fixture.h"

/// Every host call of the list commands fails once. The error of one bill is that bill's line and the batch goes on; a
/// question of the frame answers its default; any other error goes to the host. Every task comes back.
namespace arap::testing {
namespace {

/// Three bills on a list of their own.
struct World {
  World(Side eSide, std::int32_t nStatus)
      : side(names_of(eSide)), list(make_object<TestList>(side.nBillClass)), plugin(CreatePublicObject(side.sClass)) {
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    session.commands.answer("select 1 from", recordset({"1"}, {{std::int32_t{1}}}));
    const std::int32_t nInvoice = eSide == Side::Receive ? 1000000 : 1000003;
    for (const std::int32_t nBillID : {5, 6, 7}) {
      list->details[nBillID] =
          recordset({"FStatus", "FDate", "FVoucherId", "FCheckAmountFor", "FClassID_SRC", "FInterID"},
                    {{nStatus, "2024-01-15", std::int32_t{77}, 0.0, nInvoice, nBillID}});
      list->select({{"FBillID", nBillID}});
    }
    plugin->call(Member::Show, list);
    trace().clear();
  }

  /// The lines of the result window; none when it wasn't shown.
  std::vector<std::string> lines() {
    ServerStub& grid = session.server("NUVDisplayer.DispBuilder");
    std::vector<std::string> aLines;
    if (grid.count(Member::Show) == 0) return aLines;
    for (const ServerStub::Call& call : grid.calls_of(Member::Add)) aLines.push_back(plain_text(call.args[0]));
    return aLines;
  }

  TestSession session;
  const SideNames& side;
  Ref<TestList> list;
  Ref<Object> plugin;
};

class ListFailingCalls : public ::testing::TestWithParam<Side> {
 protected:
  /// Runs a command with each of its host calls failing once. Answers how often one bill's line told the error.
  int run(const char* sTool, std::int32_t nStatus, bool bBatch) {
    int nLinesWithError = 0;
    const int nFaults = FailEachCall([&](const std::function<void()>& arm) {
      World world(GetParam(), nStatus);
      arm();
      bool bThrown = false;
      try {
        world.list->click(sTool);
      } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), Trace::kFaultNumber);
        bThrown = true;
      }
      const std::vector<std::string> aLines = world.lines();
      const auto nErrors = std::count(aLines.begin(), aLines.end(), "host call failed|");
      EXPECT_LE(nErrors, 1);
      nLinesWithError += static_cast<int>(nErrors);
      const bool bRefused = world.session.platform.last_message() == "没有权限,请与系统管理员联系";
      if (bBatch && !bThrown && !bRefused) {
        EXPECT_EQ(aLines.size(), 3u);
      }
      world.plugin = nullptr;
      EXPECT_TRUE(world.session.held_tasks.empty());
    });
    EXPECT_GT(nFaults, 15) << sTool;
    return nLinesWithError;
  }
};
INSTANTIATE_BOTH_SIDES(ListFailingCalls);

TEST_P(ListFailingCalls, CheckGoesOnBehindABillThatFailed) { EXPECT_GE(run("Check", 0, true), 15); }

TEST_P(ListFailingCalls, UncheckGoesOnBehindABillThatFailed) { EXPECT_GE(run("UnCheck", 1, true), 15); }

TEST_P(ListFailingCalls, DeleteGoesOnBehindABillThatFailed) { EXPECT_GE(run("mnuEditDelete", 0, true), 15); }

TEST_P(ListFailingCalls, VoucherEndsWithItsError) { EXPECT_EQ(run("Voucher", 1, false), 0); }

}  // namespace
}  // namespace arap::testing

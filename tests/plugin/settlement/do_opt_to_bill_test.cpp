#include "plugin/settlement/settlement_fixture.h"

namespace arap::testing {
namespace {

class OperationTraces : public SettlementTest {
 protected:
  void check() {
    trace().clear();
    plugin->call(Member::DoOptToBill, side.nBillClass, 31, 1);
  }
};
INSTANTIATE_BOTH_SIDES(OperationTraces);

TEST_P(OperationTraces, EachCodeHasItsApprovedCalls) {
  for (const std::int32_t nCode : {-1, 0, 1, 5}) {
    session.simple_answers[31] = {nCode, "说明", "SK31"};
    check();
    expect_golden(nCode == -1 ? "do_opt_refused" : "do_opt_code_" + std::to_string(nCode));
  }
}

TEST_P(OperationTraces, AConflictHasItsApprovedCalls) {
  session.next_task = 0;
  check();
  expect_golden("do_opt_conflict");
}

}  // namespace
}  // namespace arap::testing

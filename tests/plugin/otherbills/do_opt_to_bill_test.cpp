#include "other_bill_fixture.h"

namespace arap::testing {
namespace {

class OtherOperationTraces : public OtherBillTest {
 protected:
  void operate(std::int32_t nCheckType) {
    trace().clear();
    plugin->call(Member::DoOptToBill, side.nBillClass, 31, nCheckType);
  }
};
INSTANTIATE_OTHER_SIDES(OtherOperationTraces);

TEST_P(OtherOperationTraces, EachCodeHasItsApprovedCalls) {
  struct Example {
    std::int32_t nCheckType;
    TestSession::SimpleAnswer answer;
    const char* sGolden;
  };
  for (const Example& example : {Example{1, {0, "完成", "QT31"}, "operation_done"},
                                 {0, {1, "原因", "QT31"}, "operation_failed"},
                                 {2, {-1, "状态不对", "QT31"}, "operation_refused"},
                                 {1, {5, "x", "y"}, "operation_with_another_code"}}) {
    session.simple_answers[31] = example.answer;
    session.next_task = 501;
    operate(example.nCheckType);
    expect_golden(example.sGolden);
  }
}

TEST_P(OtherOperationTraces, AConflictHasItsApprovedCalls) {
  session.next_task = 0;
  operate(1);
  expect_golden("operation_conflict");
}

}  // namespace
}  // namespace arap::testing

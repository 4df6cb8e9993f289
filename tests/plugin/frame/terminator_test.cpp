#include <gtest/gtest.h>

#include "inouttypes/type_bill.h"
#include "otherbills/other_bill.h"
#include "settlement/settlement_classes.h"
#include "support/test_bill.h"
#include "support/test_session.h"

/// Terminators of the five classes with a bill, on objects that hold a bill and a task.
namespace arap::testing {
namespace {

using Codes = std::vector<std::string>;

template <class Base>
class Holding : public Base {
 public:
  template <class... Args>
  Holding(std::int32_t nBillId, std::int32_t nTaskId, const Args&... args) : Base(args...) {
    this->m_lBillId = nBillId;
    this->m_lTaskId = nTaskId;
  }
  std::string CodeOf(int nIndex) const { return std::string(this->GetTaskCode(nIndex)); }
};

struct BillClassCase {
  const char* sName;
  bool bSettlement;
  Codes aCodes;  // GetTaskCode by index
  std::function<Ref<Object>(std::int32_t nBillId, std::int32_t nTaskId)> make;
  std::function<std::string(Object& oClass, int nIndex)> code;
};

template <class Base, class... Args>
BillClassCase CaseOf(const char* sName, bool bSettlement, Codes aCodes, const Args&... args) {
  using Class = Holding<Base>;
  return {sName, bSettlement, std::move(aCodes),
          [&args...](std::int32_t nBillId, std::int32_t nTaskId) {
            return Ref<Object>(make_object<Class>(nBillId, nTaskId, args...));
          },
          [](Object& oClass, int nIndex) { return static_cast<Class&>(oClass).CodeOf(nIndex); }};
}

std::vector<BillClassCase> Cases() {
  return {
      CaseOf<SettlementBill>("clsReceiveBill", true,
                             {"AR0225", "AR0226", "AR0227", "", "", "AR0224", "AR0228", "AR0223"}, kReceiveSide),
      CaseOf<SettlementBill>("clsPayBill", true, {"AP0225", "AP0226", "AP0227", "", "", "AP0224", "AP0228", "AP0223"},
                             kPaySide),
      CaseOf<OtherBill>("clsROtherBill", false, {"AR0303", "AR0304", "AR0305", "", "", "AR0302", "AR0306", "AR0301"},
                        kROtherSide),
      CaseOf<OtherBill>("clsPOtherBill", false, {"AP0303", "AP0304", "AP0305", "", "", "AP0302", "AP0306", "AP0301"},
                        kPOtherSide),
      CaseOf<clsRPInOutType>("clsRPInOutType", false, {"pu0552", "", "", "", "", "pu0551", "pu0553", "pu0550"}),
  };
}

class TerminatorTest : public ::testing::TestWithParam<BillClassCase> {
 protected:
  TerminatorTest() {
    session.set_props("p;");
    mutex().answers(Member::GetTaskIdByUserInfo, tasks);
    session.held_tasks = {88};
  }
  ServerStub& mutex() { return session.server("NUVNetControl.Mutex"); }
  /// Makes the class, shows it the bill and lets it go.
  void Release(std::int32_t nBillId, std::int32_t nTaskId) {
    const Ref<Object> oClass = GetParam().make(nBillId, nTaskId);
    oClass->call(Member::Show, oBill);
    ASSERT_EQ(oBill->events.size(), 1u);
    trace().clear();
  }
  std::string TaskQuery(int nBillId) const {
    return "NUVNetControl.Mutex.GetTaskIdByUserInfo(\"p;\", \"" + GetParam().aCodes[5] + "\", " +
           std::to_string(nBillId) + ")";
  }

  TestSession session;
  Ref<TestBill> oBill = make_object<TestBill>();
  Ref<TestVector> tasks = make_object<TestVector>(std::vector<Variant>{501});
};

INSTANTIATE_TEST_SUITE_P(Classes, TerminatorTest, ::testing::ValuesIn(Cases()),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST_P(TerminatorTest, TaskCodesNameTheOperations) {
  const Ref<Object> oClass = GetParam().make(0, 0);
  for (int nIndex = 0; nIndex < 8; ++nIndex) {
    EXPECT_EQ(GetParam().code(*oClass, nIndex), GetParam().aCodes[static_cast<std::size_t>(nIndex)]) << nIndex;
  }
  EXPECT_EQ(GetParam().code(*oClass, 8), "");
  EXPECT_EQ(GetParam().code(*oClass, -1), "");
}

TEST_P(TerminatorTest, StepsRunInTheirOrder) {
  Release(12, 88);
  std::vector<std::string> aExpected{"NUVObjectFactory.Factory.CreateServerObject(\"NUVNetControl.Mutex\")",
                                     TaskQuery(12),
                                     "NUVNetControl.Mutex.BatchCommitTask(\"p;\", " + show(tasks) + ") -> True"};
  if (GetParam().bSettlement) {
    aExpected.emplace_back("NUVLPCGLView.GLData.DeleteOptions = False");
    aExpected.emplace_back("CurrencySet.Refresh()");
  }
  aExpected.emplace_back("Login.CommitTask(88) -> True");
  EXPECT_EQ(trace().lines(), aExpected);
}

TEST_P(TerminatorTest, SettlementBillsLeaveTheirSourcesAfterTheTasksTheOthersBefore) {
  std::size_t nHeard = 99;
  mutex().on(Member::GetTaskIdByUserInfo, [&](Arguments) -> Variant {
    nHeard = oBill->events.size();
    return tasks;
  });
  Release(12, 0);
  EXPECT_EQ(nHeard, GetParam().bSettlement ? 1u : 0u);
  EXPECT_EQ(oBill->events.size(), 0u);
}

TEST_P(TerminatorTest, WithoutAnObjectOfTasksThereIsNothingToCommitInOneGo) {
  for (const Variant& vAnswer : {Variant(), Variant(Ref<Object>()), Variant(false)}) {
    mutex().answers(Member::GetTaskIdByUserInfo, vAnswer);
    session.held_tasks = {88};
    Release(12, 88);
    EXPECT_TRUE(trace().has(TaskQuery(12)));
    EXPECT_FALSE(trace().has("BatchCommitTask"));
    EXPECT_TRUE(session.held_tasks.empty());
  }
}

TEST_P(TerminatorTest, BillThatWasNeverLoadedMakesNoCallToTheMutex) {
  for (const std::int32_t nBillId : {0, -5}) {
    session.held_tasks = {88};
    Release(nBillId, 88);
    EXPECT_FALSE(trace().has("NUVNetControl.Mutex")) << nBillId;
    EXPECT_TRUE(trace().has("Login.CommitTask(88)")) << nBillId;
  }
}

TEST_P(TerminatorTest, WithoutATaskNothingIsCommitted) {
  Release(12, 0);
  EXPECT_FALSE(trace().has("Login.CommitTask"));
}

TEST_P(TerminatorTest, FailingStepNeitherEscapesNorKeepsTheOthersFromRunning) {
  mutex().fails(Member::GetTaskIdByUserInfo, 1004, "gone");
  session.ledger().lacks(Member::DeleteOptions);
  Release(12, 88);
  EXPECT_EQ(oBill->events.size(), 0u);
  EXPECT_TRUE(session.held_tasks.empty());
  EXPECT_EQ(trace().count("CurrencySet.Refresh"), GetParam().bSettlement ? 1u : 0u);
}

TEST_P(TerminatorTest, EveryHostCallMayFail) {
  const int nFaults = FailEachCall([&](const auto& arm) {
    Ref<Object> oClass = GetParam().make(12, 88);
    oClass->call(Member::Show, oBill);
    arm();
    EXPECT_NO_THROW(oClass = nullptr);
    EXPECT_EQ(oBill->events.size(), 0u);
  });
  EXPECT_GE(nFaults, 4);
}

}  // namespace
}  // namespace arap::testing

#include "frame/server_objects.h"

#include <gtest/gtest.h>

#include "frame/open_choices.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class ServerObjectsTest : public ::testing::Test {
 protected:
  TestSession session;
  ServerStub& factory() { return session.server(open_choices::kObjectFactory); }
};

template <class Body>
std::int32_t ErrorOf(Body&& body) {
  try {
    body();
    return 0;
  } catch (const AutomationError& error) {
    return error.number();
  }
}

TEST_F(ServerObjectsTest, FactoryIsMadeOnceAndAskedWithoutAServerName) {
  trace().set_detail(Trace::Detail::All);
  CreateServerObject("NUVMSystem.System");
  CreateServerObject("NUVMSystem.System");
  EXPECT_EQ(trace().count("CreateObject("), 1u);
  EXPECT_EQ(factory().count(Member::CreateServerObject), 2u);
  EXPECT_EQ(factory().last(Member::CreateServerObject).size(), 1u);
}

TEST_F(ServerObjectsTest, FactoryErrorReachesTheCaller) {
  EXPECT_EQ(ErrorOf([] { CreateServerObject("NUVNone.None"); }), 429);
}

TEST_F(ServerObjectsTest, FactoryThatGivesNothingCanNotMakeTheObject) {
  factory().answers(Member::CreateServerObject, Ref<Object>());
  EXPECT_EQ(ErrorOf([] { CreateServerObject("NUVMSystem.System"); }), 429);
}

TEST_F(ServerObjectsTest, SharedPropertyIsAskedForThisProcess) {
  session.platform.process_id = 77;
  session.shared().set("Language", "chs");
  EXPECT_EQ(GetSharedProperty("Language").text(), "chs");
  const std::vector<Variant> args = session.server("NUVPropsMgr.ShareProps").last(Member::GetProperty);
  ASSERT_EQ(args.size(), 2u);
  EXPECT_EQ(args[0].as<std::int32_t>(), 77);
  EXPECT_EQ(args[1].text(), "Language");
}

TEST_F(ServerObjectsTest, SharedPropertyCanBeAnObject) {
  EXPECT_EQ(GetSharedProperty("NUVLogin").object().get(), &session.login());
}

TEST_F(ServerObjectsTest, LoginObjectIsAskedForEachTime) {
  GetLoginObject();
  GetLoginObject();
  EXPECT_EQ(session.server("NUVPropsMgr.ShareProps").count(Member::GetProperty), 2u);
}

TEST_F(ServerObjectsTest, SessionWithoutALoginObjectRaises91) {
  session.shared().set("NUVLogin", Ref<Object>());
  EXPECT_EQ(ErrorOf([] { GetLoginObject(); }), 91);
}

TEST_F(ServerObjectsTest, PropsStringComesFromTheSharedProperties) {
  session.shared().set("PropsString", "shared;");
  session.login().property(Member::PropsString, "login;");
  EXPECT_EQ(GetPropsString(), "shared;");
}

TEST_F(ServerObjectsTest, PropsStringOfAHeldLoginObjectComesFirst) {
  session.shared().set("PropsString", "shared;");
  const auto oHeld = make_object<ServerStub>("Login");
  oHeld->property(Member::PropsString, "held;");
  Module().oLogin = oHeld;
  EXPECT_EQ(GetPropsString(), "held;");
}

TEST_F(ServerObjectsTest, LedgerServicesAreMadeDirectlyAndKept) {
  trace().set_detail(Trace::Detail::All);
  GetGLData();
  GetGLData();
  EXPECT_EQ(trace().count("CreateObject(\"NUVLPCGLView.GLData\")"), 1u);
  EXPECT_FALSE(trace().has("CreateServerObject"));
}

TEST_F(ServerObjectsTest, TaskIsTakenUnderTheMachineNameAndKindThree) {
  EXPECT_EQ(ExecFunc(kTaskSystem, "AR0225", 0, 0), 501);
  EXPECT_EQ(trace().lines_with("TaskExec"),
            std::vector<std::string>{"Login.TaskExec(21, \"AR0225\", \"SEAT-1\", 3, 0, 0) -> 501"});
}

TEST_F(ServerObjectsTest, GuardedThingIsTheSeventhArgument) {
  ExecFunc(kTaskSystem, "AR0225", 0, 0, std::int32_t{12});
  EXPECT_EQ(trace().lines_with("TaskExec"),
            std::vector<std::string>{"Login.TaskExec(21, \"AR0225\", \"SEAT-1\", 3, 0, 0, 12) -> 501"});
}

class TaskConflictTest : public ServerObjectsTest, public ::testing::WithParamInterface<int> {};

TEST_P(TaskConflictTest, ResultBelowOneRaisesTheConflict) {
  session.login().answers(Member::TaskExec, GetParam());
  try {
    ExecFunc(kTaskSystem, "AP0225", 0, 0, std::int32_t{12});
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 16390);
    EXPECT_EQ(error.source(), "MNetControl.ExecFunc");
    EXPECT_EQ(error.description(), "当前使用的功能与其他用户有冲突,目前无法使用!");
  }
}

INSTANTIATE_TEST_SUITE_P(Results, TaskConflictTest, ::testing::Values(0, -1));

TEST_F(ServerObjectsTest, CommittedTaskBecomesZero) {
  std::int32_t nTaskID = ExecFunc(kTaskSystem, "AR0225", 0, 0);
  EXPECT_TRUE(CommitTask(nTaskID));
  EXPECT_EQ(nTaskID, 0);
  EXPECT_TRUE(session.held_tasks.empty());
}

TEST_F(ServerObjectsTest, TaskThatTheHostKeepsKeepsItsId) {
  session.login().answers(Member::CommitTask, false);
  std::int32_t nTaskID = 9;
  EXPECT_FALSE(CommitTask(nTaskID));
  EXPECT_EQ(nTaskID, 9);
}

TEST_F(ServerObjectsTest, AnyIdButZeroIsCommitted) {
  session.login().answers(Member::CommitTask, true);
  std::int32_t nTaskID = -3;
  EXPECT_TRUE(CommitTask(nTaskID));
  EXPECT_EQ(nTaskID, 0);
}

TEST_F(ServerObjectsTest, CommitOfNoTaskAnswersFalseWithoutACall) {
  std::int32_t nTaskID = 0;
  EXPECT_FALSE(CommitTask(nTaskID));
  EXPECT_EQ(session.server("NUVPropsMgr.ShareProps").count(Member::GetProperty), 0u);
}

TEST_F(ServerObjectsTest, MachineNameEndsAtItsTerminatorOrAfter39Characters) {
  session.platform.computer_name = std::string("DESK\0\0rest", 10);
  EXPECT_EQ(GetMachineName(), "DESK");
  session.platform.computer_name = std::string(50, 'x');
  EXPECT_EQ(GetMachineName(), std::string(39, 'x'));
  std::string sLong;
  for (int i = 0; i < 45; ++i) sLong += "收";
  session.platform.computer_name = sLong;
  EXPECT_EQ(GetMachineName(), sLong.substr(0, 39 * std::string("收").size()));
  session.platform.computer_name = "收款台";
  EXPECT_EQ(GetMachineName(), "收款台");
}

TEST_F(ServerObjectsTest, MachineThatCanNotTellItsNameHasNoName) {
  session.platform.computer_name = std::nullopt;
  EXPECT_EQ(GetMachineName(), "NoName");
}

TEST_F(ServerObjectsTest, PointerChangesAtTheFirstWaitCursorAndTheLastRelease) {
  {
    const WaitCursor outer;
    { const WaitCursor inner; }
    EXPECT_EQ(session.platform.pointers, std::vector<int>{11});
  }
  EXPECT_EQ(session.platform.pointers, (std::vector<int>{11, 0}));
}

TEST_F(ServerObjectsTest, PointerComesBackWhenAnErrorLeavesTheProcedure) {
  EXPECT_NE(ErrorOf([] {
              const WaitCursor wait;
              CreateServerObject("NUVNone.None");
            }),
            0);
  EXPECT_EQ(session.platform.pointers, (std::vector<int>{11, 0}));
}

TEST_F(ServerObjectsTest, NewContainersAreEmpty) {
  EXPECT_EQ(NewDictionary().Size(), 0);
  EXPECT_EQ(NewVector().Size(), 0);
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include <algorithm>

#include "frame/plugin_entry.h"
#include "support/test_bill.h"
#include "support/test_session.h"
#include "support/test_windows.h"

namespace arap::testing {
namespace {

Ref<Object> Create(std::string_view sClass) {
  return CreatePublicObject(std::string(kLibraryName) + "." + std::string(sClass));
}

template <class Body>
std::int32_t ErrorOf(Body&& body) {
  try {
    body();
    return 0;
  } catch (const AutomationError& error) {
    return error.number();
  }
}

class EntryTest : public ::testing::Test {
 protected:
  TestSession session;
};

TEST_F(EntryTest, LibraryHasEightClasses) {
  const auto aNames = PublicClassNames();
  EXPECT_EQ(std::vector<std::string>(aNames.begin(), aNames.end()),
            (std::vector<std::string>{"clsReceiveBill", "clsPayBill", "clsROtherBill", "clsPOtherBill",
                                      "clsRPInOutType", "clsRPInOutTypeView", "clsInvoice", "clsRPInitial"}));
}

TEST_F(EntryTest, ProgIdIsComparedWithoutRegardToCase) {
  for (const std::string_view sName : PublicClassNames()) EXPECT_EQ(Create(sName)->type_name(), sName);
  EXPECT_EQ(CreatePublicObject("nuvarapbillinterface.CLSPAYBILL")->type_name(), "clsPayBill");
}

TEST_F(EntryTest, AnotherProgIdRaises429) {
  for (const char* sProgID : {"", "NUVARAPBillInterface", "NUVARAPBillInterface.", "NUVARAPBillInterface.clsOther",
                              "Other.clsPayBill", "NUVARAPBillInterfaceXclsPayBill", "clsPayBill"}) {
    EXPECT_EQ(ErrorOf([&] { CreatePublicObject(sProgID); }), 429) << sProgID;
  }
}

class EveryClassTest : public EntryTest, public ::testing::WithParamInterface<std::string_view> {
 protected:
  bool Is(std::initializer_list<std::string_view> aNames) const {
    return std::find(aNames.begin(), aNames.end(), GetParam()) != aNames.end();
  }
  bool HearsBill() const { return !Is({"clsInvoice", "clsRPInitial", "clsRPInOutTypeView"}); }
  bool HearsBaseClass() const { return Is({"clsRPInOutType", "clsRPInOutTypeView"}); }
  bool HearsList() const { return !HearsBaseClass(); }
  bool CastsItsSource() const { return !HearsBill(); }
  bool HasTypes() const { return Is({"clsROtherBill", "clsPOtherBill", "clsRPInOutType"}); }
  /// Shows the source and tells whether the class hears it; a failed cast must be error 13.
  bool Hears(const Ref<Object>& oSource, const EventSourceList& events) {
    const Ref<Object> oClass = Create(GetParam());
    const std::int32_t nError = ErrorOf([&] { oClass->call(Member::Show, oSource); });
    EXPECT_EQ(nError, events.size() == 0 && CastsItsSource() ? 13 : 0);
    return events.size() == 1;
  }
};

INSTANTIATE_TEST_SUITE_P(Classes, EveryClassTest, ::testing::ValuesIn(PublicClassNames()),
                         [](const auto& test) { return std::string(test.param); });

TEST_P(EveryClassTest, HearsTheSourcesThatItKnows) {
  const auto oBill = make_object<TestBill>();
  const auto oList = make_object<TestList>();
  const auto oBase = make_object<TestBaseClass>();
  EXPECT_EQ(Hears(oBill, oBill->events), HearsBill());
  EXPECT_EQ(Hears(oList, oList->events), HearsList());
  EXPECT_EQ(Hears(oBase, oBase->events), HearsBaseClass());
}

TEST_P(EveryClassTest, ObjectOfAnUnknownTypeLeavesItSilentOrFailsTheCast) {
  const Ref<Object> oClass = Create(GetParam());
  // The comparison is exact.
  for (const char* sType : {"Dictionary", "billevent", "LISTEVENTS", "BaseClassEvent2"}) {
    const Ref<Object> oStranger = make_object<ServerStub>(sType);
    EXPECT_EQ(ErrorOf([&] { oClass->call(Member::Show, oStranger); }), CastsItsSource() ? 13 : 0) << sType;
  }
}

TEST_P(EveryClassTest, NothingIsNoSource) {
  EXPECT_EQ(ErrorOf([&] { Create(GetParam())->call(Member::Show, Ref<Object>()); }), 0);
}

TEST_P(EveryClassTest, ReleaseLeavesEverySource) {
  const auto oBill = make_object<TestBill>();
  const auto oList = make_object<TestList>();
  const auto oBase = make_object<TestBaseClass>();
  {
    const Ref<Object> oClass = Create(GetParam());
    for (const Ref<Object>& oSource : {Ref<Object>(oBill), Ref<Object>(oList), Ref<Object>(oBase)}) {
      ErrorOf([&] { oClass->call(Member::Show, oSource); });
    }
    EXPECT_GT(oBill->events.size() + oList->events.size() + oBase->events.size(), 0u);
  }
  EXPECT_EQ(oBill->events.size() + oList->events.size() + oBase->events.size(), 0u);
}

TEST_P(EveryClassTest, ClassWithoutABillGivesNoTasksBack) {
  Create(GetParam());
  EXPECT_FALSE(trace().has("NUVNetControl.Mutex"));
  EXPECT_FALSE(trace().has("CommitTask"));
}

TEST_P(EveryClassTest, OnlyTheClassesWithTypesAskTheServerAtTheirCreation) {
  session.set_props("p;");
  const Ref<Object> oClass = Create(GetParam());
  const ServerStub& types = session.server("NUVlpsArApBill.clsInOutType");
  ASSERT_EQ(types.count(Member::GetRPInOutTypeInfo), HasTypes() ? 1u : 0u);
  if (HasTypes()) {
    EXPECT_EQ(types.last(Member::GetRPInOutTypeInfo)[0].text(), "p;");
  }
}

TEST_P(EveryClassTest, FailingInitialiserFailsTheCreation) {
  session.server("NUVlpsArApBill.clsInOutType").fails(Member::GetRPInOutTypeInfo, 1004, "gone");
  EXPECT_EQ(ErrorOf([&] { Create(GetParam()); }), HasTypes() ? 1004 : 0);
}

TEST_P(EveryClassTest, ListSourceIsPublicWhereTheClassSaysSo) {
  const Ref<Object> oClass = Create(GetParam());
  const auto oList = make_object<TestList>();
  if (HearsBaseClass()) {
    EXPECT_EQ(ErrorOf([&] { oClass->get(Member::m_LstInterface); }), 438);
    return;
  }
  EXPECT_TRUE(oClass->get(Member::m_LstInterface).is_nothing());
  oClass->put(Member::m_LstInterface, oList);
  EXPECT_EQ(oClass->get(Member::m_LstInterface).object().get(), oList.get());
  EXPECT_EQ(oList->events.size(), 1u);
  EXPECT_EQ(ErrorOf([&] { oClass->put(Member::m_LstInterface, Ref<Object>(make_object<TestBill>())); }), 13);
  EXPECT_EQ(oList->events.size(), 1u);
  oClass->put(Member::m_LstInterface, Ref<Object>());
  EXPECT_EQ(oList->events.size(), 0u);
}

TEST_P(EveryClassTest, MemberThatItLacksRaises438) {
  const Ref<Object> oClass = Create(GetParam());
  EXPECT_EQ(ErrorOf([&] { oClass->call(Member::SaveBill); }), 438);
  EXPECT_EQ(ErrorOf([&] { oClass->put(Member::Show, 1); }), 438);
  EXPECT_EQ(ErrorOf([&] { oClass->call(Member::Show); }), 450);
}

TEST_F(EntryTest, SettlementClassesKeepTheDataOfTheirList) {
  for (const char* sClass : {"clsReceiveBill", "clsPayBill"}) {
    trace().reset();
    trace().set_detail(Trace::Detail::All);
    const Ref<Object> oClass = Create(sClass);
    oClass->call(Member::Show, Ref<Object>(make_object<TestList>()));
    EXPECT_EQ(trace().lines_with("ListEvents."),
              (std::vector<std::string>{"ListEvents.ListData", "ListEvents.ListDataServer"}))
        << trace().text();
  }
}

TEST_F(EntryTest, SettlementClassesRefreshTheCurrenciesAtTheirEnd) {
  for (const char* sClass : {"clsReceiveBill", "clsPayBill"}) {
    trace().reset();
    Create(sClass);
    EXPECT_EQ(trace().lines(),
              (std::vector<std::string>{"NUVLPCGLView.GLData.DeleteOptions = False", "CurrencySet.Refresh()"}));
  }
}

TEST_F(EntryTest, OtherClassesDoNotTouchTheCurrencies) {
  for (const char* sClass : {"clsROtherBill", "clsPOtherBill", "clsRPInOutType", "clsInvoice", "clsRPInitial"}) {
    Create(sClass);
  }
  EXPECT_FALSE(trace().has("DeleteOptions"));
  EXPECT_FALSE(trace().has("CurrencySet"));
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include "bridge/bridge.h"
#include "bridge/wide_text.h"
#include "com/scenarios/server_under_test.h"
#include "com/server/client.h"
#include "com/server/rough_source.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// Callers that do it wrong, and sources that don't keep their promise: an error with a number, and nothing left
/// behind.
namespace arap::testing {
namespace {

class BadCallers : public ::testing::Test {
 protected:
  ~BadCallers() override { EXPECT_TRUE(ServerUnderTest::can_unload()); }
  Outcome& run(const com::ComPtr<IDispatch>& object, std::wstring_view sName, std::vector<VARIANT> aArgs,
               WORD flags = DISPATCH_METHOD) {
    invoke(outcome, object.get(), sName, flags, std::move(aArgs));
    return outcome;
  }

  TestSession session;
  Outcome outcome;
};

TEST_F(BadCallers, WrongNumberOfArguments) {
  const auto oClass = create("clsReceiveBill");
  EXPECT_EQ(run(oClass, L"Show", {}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(run(oClass, L"Show", {object_value(nullptr), number(1)}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(run(oClass, L"Inside", {}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(run(oClass, L"DoOptToBill", {number(1), number(2)}).code, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(run(oClass, L"DoOptToBill", std::vector<VARIANT>(7, number(1))).code, DISP_E_BADPARAMCOUNT);
}

TEST_F(BadCallers, WrongTypes) {
  const auto oClass = create("clsReceiveBill");
  const com::Bstr sText = com::to_bstr("no number");
  EXPECT_EQ(run(oClass, L"Show", {number(1)}).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(run(oClass, L"Show", {text_value(sText.get())}).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(run(oClass, L"DoOptToBill", {text_value(sText.get()), number(1), number(1)}).code, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(run(oClass, L"m_LstInterface", {number(1)}, DISPATCH_PROPERTYPUT).code, DISP_E_TYPEMISMATCH);
}

TEST_F(BadCallers, NumericTextIsANumber) {
  const com::Bstr sClass = com::to_bstr("1000201");
  run(create("clsReceiveBill"), L"DoOptToBill", {text_value(sClass.get()), number(31), number(1)});
  EXPECT_EQ(outcome.code, S_OK);
}

TEST_F(BadCallers, UnknownMembers) {
  const auto oClass = create("clsRPInOutType");
  EXPECT_EQ(id_of(oClass.get(), L"Inside"), DISPID_UNKNOWN);
  EXPECT_EQ(id_of(oClass.get(), L"SaveBill"), DISPID_UNKNOWN);
  invoke(outcome, oClass.get(), DISPID{4711}, DISPATCH_METHOD, {});
  EXPECT_EQ(outcome.code, DISP_E_MEMBERNOTFOUND);
  const DISPID show = id_of(oClass.get(), L"SHOW");
  ASSERT_NE(show, DISPID_UNKNOWN);
  invoke(outcome, oClass.get(), show, DISPATCH_PROPERTYPUT, {number(1)});
  EXPECT_EQ(outcome.code, DISP_E_MEMBERNOTFOUND);
}

TEST_F(BadCallers, NoPlaceForTheAnswer) {
  const auto oClass = create("clsReceiveBill");
  VARIANT arg = number(6);
  DISPPARAMS params{&arg, nullptr, 1, 0};
  EXPECT_EQ(oClass->Invoke(id_of(oClass.get(), L"Inside"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params,
                           nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(oClass->Invoke(id_of(oClass.get(), L"Inside"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr,
                           nullptr, nullptr, nullptr),
            E_POINTER);
  EXPECT_EQ(oClass->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
}

TEST_F(BadCallers, ShowTwiceLeavesTheFirstSource) {
  const auto oClass = create("clsReceiveBill");
  const auto oFirst = make_settlement_bill(Side::Receive);
  const auto oSecond = make_settlement_bill(Side::Receive);
  run(oClass, L"Show", {object_value(com::dispatch_of(oFirst).get())});
  run(oClass, L"Show", {object_value(com::dispatch_of(oFirst).get())});
  EXPECT_EQ(oFirst->events.size(), 1u);
  run(oClass, L"Show", {object_value(com::dispatch_of(oSecond).get())});
  EXPECT_EQ(oFirst->events.size(), 0u);
  EXPECT_EQ(oSecond->events.size(), 1u);
}

TEST_F(BadCallers, SourceWithoutTypeInformationIsAStranger) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::None));
  EXPECT_EQ(run(create("clsReceiveBill"), L"Show", {object_value(oSource.get())}).code, S_OK);
  EXPECT_EQ(oSource->sinks(), 0);
  run(create("clsInvoice"), L"Show", {object_value(oSource.get())});
  EXPECT_EQ(outcome.code, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.scode, static_cast<SCODE>(0x800A000D));
}

TEST_F(BadCallers, SourceThatTellsItsTypeWithoutAClassIsHeard) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::Interface));
  const auto oClass = create("clsReceiveBill");
  EXPECT_EQ(run(oClass, L"Show", {object_value(oSource.get())}).code, S_OK);
  EXPECT_EQ(oSource->sinks(), 1);
}

TEST_F(BadCallers, SourceOfTheRightTypeWithoutEventsIsAnError) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::Class));
  oSource->mute = true;
  EXPECT_EQ(run(create("clsReceiveBill"), L"Show", {object_value(oSource.get())}).code, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.scode, static_cast<SCODE>(0x800A01CB));
}

TEST_F(BadCallers, SourceThatRefusesTheConnectionIsAnError) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::Class));
  oSource->refuse = true;
  EXPECT_EQ(run(create("clsReceiveBill"), L"Show", {object_value(oSource.get())}).code, DISP_E_EXCEPTION);
}

TEST_F(BadCallers, SourceThatHasVanishedIsLeftInPeace) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::Class));
  {
    const auto oClass = create("clsReceiveBill");
    ASSERT_EQ(run(oClass, L"Show", {object_value(oSource.get())}).code, S_OK);
    ASSERT_EQ(oSource->sinks(), 1);
    oSource->vanish();
  }
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

TEST_F(BadCallers, EventAfterTheReleaseReachesNobody) {
  const auto oBill = make_settlement_bill(Side::Receive);
  create("clsReceiveBill");
  {
    const auto oClass = create("clsReceiveBill");
    run(oClass, L"Show", {object_value(com::dispatch_of(oBill).get())});
  }
  EXPECT_EQ(oBill->events.size(), 0u);
  trace().clear();
  oBill->fire(Event::AfterLoadBill, {});
  EXPECT_EQ(trace().lines(), std::vector<std::string>());
}

TEST_F(BadCallers, SinkThatIsStillHeldAfterTheReleaseHearsNothing) {
  const auto oSource = com::ComPtr<RoughSource>::adopt(new RoughSource(RoughSource::Info::Class));
  oSource->keeps_sinks = true;
  {
    const auto oClass = create("clsReceiveBill");
    run(oClass, L"Show", {object_value(oSource.get())});
  }
  trace().clear();
  EXPECT_TRUE(SUCCEEDED(oSource->fire_after_load_bill()));
  EXPECT_EQ(trace().lines(), std::vector<std::string>());
  oSource->vanish();
}

TEST_F(BadCallers, ErrorOfTheHostInTheMiddleOfAHandlerComesBackToTheHost) {
  const auto oBill = make_settlement_bill(Side::Receive);
  const auto oClass = create("clsReceiveBill");
  run(oClass, L"Show", {object_value(com::dispatch_of(oBill).get())});
  trace().fail_at(10);
  try {
    oBill->save();
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), Trace::kFaultNumber);
    EXPECT_EQ(error.source(), "Host");
    EXPECT_EQ(error.description(), "host call failed");
  }
  // The class lives on.
  EXPECT_FALSE(oBill->click("mnuNothing"));
}

TEST_F(BadCallers, ClassThatIsReleasedByItsOwnEventEndsAfterIt) {
  const auto oBill = make_settlement_bill(Side::Receive);
  auto oClass = create("clsReceiveBill");
  run(oClass, L"Show", {object_value(com::dispatch_of(oBill).get())});
  oBill->add_action("FAmountFor", "x", [](TestBill&, int) {});
  session.platform.while_open = [&](const TestPlatform::Message&) { oClass = nullptr; };
  oBill->save();  // refused with a box: the host lets go of the class while it is open
  EXPECT_FALSE(oClass);
  EXPECT_EQ(session.platform.messages.size(), 1u);
  EXPECT_EQ(oBill->events.size(), 0u);
}

}  // namespace
}  // namespace arap::testing

#include <gtest/gtest.h>

#include <array>

#include "bridge/bridge.h"
#include "com/server/client.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// The event source that a host gets from the bridge: what anybody can ask about its connections.
namespace arap::testing {
namespace {

class Connections : public ::testing::Test {
 protected:
  Connections() {
    com::ComPtr<IEnumConnectionPoints> points;
    EXPECT_EQ(container()->EnumConnectionPoints(points.put()), S_OK);
    ULONG nFetched = 0;
    EXPECT_EQ(points->Next(1, point.put(), &nFetched), S_OK);
    EXPECT_EQ(nFetched, 1u);
  }
  com::ComPtr<IConnectionPointContainer> container() { return com::query<IConnectionPointContainer>(source.get()); }
  com::ComPtr<IDispatch> heard_by(const char* sClass) {
    const auto oClass = create(sClass);
    Outcome outcome;
    invoke(outcome, oClass.get(), L"Show", DISPATCH_METHOD, {object_value(source.get())});
    return oClass;
  }
  com::ComPtr<IEnumConnections> connections() {
    com::ComPtr<IEnumConnections> found;
    EXPECT_EQ(point->EnumConnections(found.put()), S_OK);
    return found;
  }

  TestSession session;
  Ref<TestBill> bill = make_settlement_bill(Side::Receive);
  com::ComPtr<IDispatch> source = com::dispatch_of(bill);
  com::ComPtr<IConnectionPoint> point;
};

TEST_F(Connections, APointLeadsToItsContainerAndIsFoundByItsInterface) {
  IID id{};
  ASSERT_EQ(point->GetConnectionInterface(&id), S_OK);
  com::ComPtr<IConnectionPoint> found;
  EXPECT_EQ(container()->FindConnectionPoint(id, found.put()), S_OK);
  EXPECT_EQ(found.get(), point.get());
  com::ComPtr<IConnectionPointContainer> holder;
  EXPECT_EQ(point->GetConnectionPointContainer(holder.put()), S_OK);
  EXPECT_EQ(com::query<IUnknown>(holder.get()).get(), com::query<IUnknown>(source.get()).get());
}

TEST_F(Connections, EverySinkIsListedWithTheCookieThatEndsIt) {
  const auto oFirst = heard_by("clsReceiveBill");
  const auto oSecond = heard_by("clsPayBill");
  const auto found = connections();
  std::array<CONNECTDATA, 3> aFound{};
  ULONG nFetched = 0;
  EXPECT_EQ(found->Next(3, aFound.data(), &nFetched), S_FALSE);
  ASSERT_EQ(nFetched, 2u);
  for (ULONG i = 0; i < nFetched; ++i) {
    EXPECT_NE(aFound[i].pUnk, nullptr);
    aFound[i].pUnk->Release();
    EXPECT_EQ(point->Unadvise(aFound[i].dwCookie), S_OK);
  }
  EXPECT_EQ(bill->events.size(), 0u);
  EXPECT_EQ(connections()->Skip(1), S_FALSE);
}

TEST_F(Connections, ListIsThatOfTheMomentAndCanBeReadAgain) {
  auto oClass = heard_by("clsReceiveBill");
  const auto found = connections();
  oClass = nullptr;
  EXPECT_EQ(found->Skip(1), S_OK);
  com::ComPtr<IEnumConnections> rest;
  EXPECT_EQ(found->Clone(rest.put()), S_OK);
  EXPECT_EQ(rest->Skip(1), S_FALSE);
  EXPECT_EQ(found->Reset(), S_OK);
  EXPECT_EQ(found->Skip(1), S_OK);
  EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
}

}  // namespace
}  // namespace arap::testing

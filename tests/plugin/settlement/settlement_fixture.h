#pragma once

#include <string>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/side_test.h"

namespace arap::testing {

/// The approved traces are one file a side.
inline std::string GoldenOf(const std::string& sName, Side side) {
  return sName + (side == Side::Receive ? "_receive" : "_pay");
}
inline std::string ReadGolden(const std::string& sName, Side side) {
  return ReadGolden("settlement", GoldenOf(sName, side));
}

/// An open bill of one side with the plug-in's class on it.
class BothSides : public SideTest {
 protected:
  BothSides() {
    plugin->call(Member::Show, bill);
    trace().clear();
  }

  void expect_golden(const std::string& sName) const { ExpectGolden("settlement", GoldenOf(sName, GetParam())); }

  const SideNames& side = names_of(GetParam());
  const SideNames& other = names_of(GetParam() == Side::Receive ? Side::Pay : Side::Receive);
  Ref<TestBill> bill = make_settlement_bill(GetParam());
  Ref<Object> plugin = CreatePublicObject(side.sClass);
};

/// The bill with its bars set up and every field of the source map, pushed by no other module.
class SettlementTest : public BothSides {
 protected:
  SettlementTest() {
    for (const char* sKey :
         {"FAmountFor", "FAmount", side.sReceivedFor, side.sReceived, "FDiscountAmountFor", "FDiscount"}) {
      bill->bill_map->set(sKey, sKey);
    }
    session.server("NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{0});
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    trace().clear();
  }

  /// The last box: its text, or "" when there was none; and its style.
  std::string message() const { return session.platform.last_message(); }
  int style() const { return session.platform.messages.empty() ? 0 : session.platform.messages.back().nButtons; }
  void use_type(std::int32_t nType) { bill->head(side.sType, nType); }
  void use_currency(std::int32_t nCurrency, const char* sCode = "") { bill->head("FCurrencyID", nCurrency, "", sCode); }
  int lock_position(const std::string& sKey, bool bLock) const {
    return static_cast<int>(trace().position("LockCell(" + sKey + ", -1, " + (bLock ? "True" : "False") + ")"));
  }
  bool locked(const char* sKey) const { return bill->cell_locked(sKey); }
};

inline std::string SideName(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receipt" : "Payment";
}

}  // namespace arap::testing

#define INSTANTIATE_BOTH_SIDES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive, Side::Pay), SideName)
#define INSTANTIATE_RECEIPT(suite) INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive), SideName)

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "settlement/settlement_classes.h"
#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::testing {

/// A settlement bill of one side, shown to its class in a session of its own.
class SettlementTest : public ::testing::TestWithParam<Side> {
 protected:
  SettlementTest() {
    if (GetParam() == Side::Receive) {
      plugin = make_object<clsReceiveBill>();
    } else {
      plugin = make_object<clsPayBill>();
    }
    for (const char* sKey :
         {"FAmountFor", "FAmount", side.sReceivedFor, side.sReceived, "FDiscountAmountFor", "FDiscount"}) {
      bill->bill_map->set(sKey, sKey);
    }
    session.server("NUVMARAPPush.clsPush").answers(Member::GetBillTypeID, std::int32_t{0});
    plugin->call(Member::Show, Ref<Object>(bill));
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    trace().clear();
  }

  bool receive() const { return GetParam() == Side::Receive; }
  /// The value of this side.
  template <class T>
  T pick(T receiveValue, T payValue) const {
    return receive() ? receiveValue : payValue;
  }
  const char* pick(const char* sReceive, const char* sPay) const { return receive() ? sReceive : sPay; }
  /// The last box: its text, or "" when there was none; and its style.
  std::string message() const { return session.platform.last_message(); }
  int style() const { return session.platform.messages.empty() ? 0 : session.platform.messages.back().nButtons; }
  std::size_t boxes() const { return session.platform.messages.size(); }
  void use_type(std::int32_t nType) { bill->head(side.sType, nType); }
  void use_currency(std::int32_t nCurrency, const char* sCode = "") { bill->head("FCurrencyID", nCurrency, "", sCode); }
  int lock_position(const std::string& sKey, bool bLock) const {
    return static_cast<int>(trace().position("LockCell(" + sKey + ", -1, " + (bLock ? "True" : "False") + ")"));
  }
  bool locked(const char* sKey) const { return bill->cell_locked(sKey); }
  /// Compares the trace with the approved one; with ARAP_APPROVE set it becomes the approved one.
  void expect_golden(const std::string& sName) const {
    const std::string sPath =
        std::string(TEST_DATA_DIR) + "/plugin/settlement/golden/" + sName + pick("_receive.txt", "_pay.txt");
    if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(sPath) << trace().text();
    std::ifstream file(sPath);
    std::stringstream text;
    text << file.rdbuf();
    EXPECT_EQ(trace().text(), text.str()) << sPath;
  }

  TestSession session;
  const SideNames& side = names_of(GetParam());
  Ref<TestBill> bill = make_settlement_bill(GetParam());
  Ref<Object> plugin;
};

inline std::string name_of_side(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receive" : "Pay";
}

#define INSTANTIATE_SIDES(Suite) \
  INSTANTIATE_TEST_SUITE_P(Sides, Suite, ::testing::Values(Side::Receive, Side::Pay), name_of_side)

}  // namespace arap::testing

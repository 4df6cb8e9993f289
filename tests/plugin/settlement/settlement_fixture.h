#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::testing {

/// The approved traces, one file a side.
inline std::string GoldenPath(const std::string& sName, Side side) {
  return std::string(TEST_DATA_DIR) + "/plugin/settlement/golden/" + sName +
         (side == Side::Receive ? "_receive.txt" : "_pay.txt");
}
inline std::string ReadGolden(const std::string& sName, Side side) {
  std::ifstream file(GoldenPath(sName, side), std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

/// An open bill of one side with the plug-in's class on it: receipt and payment run the same tests.
class BothSides : public ::testing::TestWithParam<Side> {
 protected:
  using Lines = std::vector<std::string>;
  struct Box {
    std::string sText;
    int nButtons;
    std::string sTitle;
    friend bool operator==(const Box&, const Box&) = default;
  };

  BothSides() {
    plugin->call(Member::Show, bill);
    trace().clear();
  }

  /// What the test expects of the receipt, and what of the payment.
  template <class T>
  T pick(T receive, T pay) const {
    return GetParam() == Side::Receive ? receive : pay;
  }
  std::string pick(const char* sReceive, const char* sPay) const { return pick<std::string>(sReceive, sPay); }

  /// The boxes that were shown.
  std::vector<Box> boxes() const {
    std::vector<Box> aBoxes;
    for (const auto& message : session.platform.messages) {
      aBoxes.push_back({message.sText, message.nButtons, message.sTitle});
    }
    return aBoxes;
  }
  static std::vector<Box> notice(const std::string& sText) { return {{sText, 64, "青柚提示"}}; }
  int box_count() const { return static_cast<int>(session.platform.messages.size()); }
  static std::vector<Box> warning(const std::string& sText) { return {{sText, 48, "青柚提示"}}; }

  /// Compares the trace with the approved one; with ARAP_APPROVE set it becomes the approved one.
  void expect_golden(const std::string& sName) const {
    const std::string sPath = GoldenPath(sName, GetParam());
    if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(sPath) << trace().text();
    EXPECT_EQ(trace().text(), ReadGolden(sName, GetParam())) << sPath;
  }

  const SideNames& side = names_of(GetParam());
  const SideNames& other = names_of(GetParam() == Side::Receive ? Side::Pay : Side::Receive);
  TestSession session;
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

  bool receive() const { return GetParam() == Side::Receive; }
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

inline void PrintTo(Side side, std::ostream* pStream) { *pStream << (side == Side::Receive ? "Receipt" : "Payment"); }
inline std::string SideName(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receipt" : "Payment";
}

}  // namespace arap::testing

#define INSTANTIATE_BOTH_SIDES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive, Side::Pay), SideName)
#define INSTANTIATE_RECEIPT(suite) INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive), SideName)

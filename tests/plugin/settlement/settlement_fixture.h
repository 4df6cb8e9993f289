#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "settlement/settlement_classes.h"
#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::testing {

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
    if (GetParam() == Side::Receive) {
      plug_in = make_object<clsReceiveBill>();
    } else {
      plug_in = make_object<clsPayBill>();
    }
    plug_in->call(Member::Show, bill);
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
  static std::vector<Box> warning(const std::string& sText) { return {{sText, 48, "青柚提示"}}; }

  const SideNames& side = names_of(GetParam());
  const SideNames& other = names_of(GetParam() == Side::Receive ? Side::Pay : Side::Receive);
  TestSession session;
  Ref<TestBill> bill = make_settlement_bill(GetParam());
  Ref<Object> plug_in;
};

inline void PrintTo(Side side, std::ostream* pStream) { *pStream << (side == Side::Receive ? "Receipt" : "Payment"); }
inline std::string SideName(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receipt" : "Payment";
}

}  // namespace arap::testing

#define INSTANTIATE_BOTH_SIDES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive, Side::Pay), SideName)
#define INSTANTIATE_RECEIPT(suite) INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive), SideName)

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/other_bill_host.h"
#include "support/test_session.h"

namespace arap::testing {

/// The approved traces, one file a side.
inline std::string GoldenPath(const std::string& sName, Side side) {
  return std::string(TEST_DATA_DIR) + "/plugin/otherbills/golden/" + sName +
         (side == Side::Receive ? "_receivable.txt" : "_payable.txt");
}
inline std::string ReadGolden(const std::string& sName, Side side) {
  std::ifstream file(GoldenPath(sName, side), std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

/// An open other bill of one side with the plug-in's class on it: both sides run the same tests.
class OtherBillTest : public ::testing::TestWithParam<Side> {
 protected:
  struct Box {
    std::string sText;
    int nButtons;
    std::string sTitle;
    friend bool operator==(const Box&, const Box&) = default;
    friend void PrintTo(const Box& box, std::ostream* pStream) { *pStream << box.sText << " " << box.nButtons; }
  };

  OtherBillTest() {
    add_in_out_types(session);
    plugin = CreatePublicObject(side.sClass);
    plugin->call(Member::Show, bill);
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    trace().clear();
  }

  /// What the test expects of the receivable bill, and what of the payable bill.
  template <class T>
  T pick(T receivable, T payable) const {
    return receivable_side() ? receivable : payable;
  }
  std::string pick(const char* sReceivable, const char* sPayable) const {
    return pick<std::string>(sReceivable, sPayable);
  }
  bool receivable_side() const { return GetParam() == Side::Receive; }

  /// The boxes that were shown.
  std::vector<Box> boxes() const {
    std::vector<Box> aBoxes;
    for (const auto& message : session.platform.messages) {
      aBoxes.push_back({message.sText, message.nButtons, message.sTitle});
    }
    return aBoxes;
  }
  static std::vector<Box> box(const std::string& sText, int nButtons) { return {{sText, nButtons, "青柚提示"}}; }
  static std::vector<Box> notice(const std::string& sText) { return box(sText, 64); }
  static std::vector<Box> warning(const std::string& sText) { return box(sText, 48); }

  void use_credit() { bill->head("FBillTypeId", side.nCreditType); }
  void use_currency(std::int32_t nCurrency) { bill->head("FCurrencyId", nCurrency); }
  bool locked(const char* sKey) const { return bill->cell_locked(sKey); }
  std::optional<bool> enabled(const char* sTool) const { return bill->bar_status(sTool, "Enabled"); }
  std::optional<bool> visible(const char* sTool) const { return bill->bar_status(sTool, "Visible"); }
  void answer_credit(const char* sText) {
    session.server("NUVBills.clsCredit").answers(Member::GetStatusMoneyAndCredit, sText);
  }
  /// The partner whose credit was asked last; "" when nobody asked.
  std::string credit_asked() {
    const std::vector<Variant> args = session.server("NUVBills.clsCredit").last(Member::GetStatusMoneyAndCredit);
    return args.empty() ? "" : plain_text(args[0]);
  }

  /// Compares the trace with the approved one; with ARAP_APPROVE set it becomes the approved one.
  void expect_golden(const std::string& sName) const {
    const std::string sPath = GoldenPath(sName, GetParam());
    if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(sPath) << trace().text();
    EXPECT_EQ(trace().text(), ReadGolden(sName, GetParam())) << sPath;
  }

  const OtherNames& side = other_names_of(GetParam());
  TestSession session;
  Ref<TestBill> bill = make_other_bill(GetParam());
  Ref<Object> plugin;
};

inline std::string OtherSideName(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receivable" : "Payable";
}

}  // namespace arap::testing

#define INSTANTIATE_OTHER_SIDES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive, Side::Pay), OtherSideName)

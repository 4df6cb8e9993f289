#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/other_bill_host.h"
#include "support/side_test.h"

namespace arap::testing {

/// The approved traces are one file a side.
inline std::string GoldenOf(const std::string& sName, Side side) {
  return sName + (side == Side::Receive ? "_receivable" : "_payable");
}
inline std::string ReadGolden(const std::string& sName, Side side) {
  return ReadGolden("otherbills", GoldenOf(sName, side));
}

/// An open other bill of one side with the plug-in's class on it.
class OtherBillTest : public SideTest {
 protected:
  OtherBillTest() {
    add_in_out_types(session);
    plugin = CreatePublicObject(side.sClass);
    plugin->call(Member::Show, bill);
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    trace().clear();
  }

  bool receivable_side() const { return receive(); }
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

  void expect_golden(const std::string& sName) const { ExpectGolden("otherbills", GoldenOf(sName, GetParam())); }

  const OtherNames& side = other_names_of(GetParam());
  Ref<TestBill> bill = make_other_bill(GetParam());
  Ref<Object> plugin;
};

inline std::string OtherSideName(const ::testing::TestParamInfo<Side>& info) {
  return info.param == Side::Receive ? "Receivable" : "Payable";
}

}  // namespace arap::testing

#define INSTANTIATE_OTHER_SIDES(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::Values(Side::Receive, Side::Pay), OtherSideName)

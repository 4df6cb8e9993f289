#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <memory>
#include <string>

#include "data/demo.h"
#include "desk/services/small_book.h"
#include "frame/conversions.h"
#include "services/bill_kinds.h"
#include "services/seat_host.h"

namespace desk::testing {

/// What a test of the other bills on the demo book needs of a side.
struct OtherSide {
  const char* sKind;
  const char* sPartner;
  const char* sFirst;       // partner of 30 days' terms with a limit of 50000
  const char* sSecond;      // partner of the monthly pay day 25
  const char* sType;        // a detail type
  const char* sAccount;     // the account of open balances
  const char* sSettlement;  // kind of the bill that settles
  const char* sSelect;
  const char* sProfileKey;
  const char* sNumber;  // of the demo's own bill
};

inline constexpr OtherSide kOtherSides[] = {
    {"receivable", "FCustomerID", "C001", "C002", "1.01", "1122", "receipt", "mnuSelectBill_2000001", "CreditDegree",
     "QTSR000001"},
    {"payable", "FSupplyID", "S001", "S002", "2.01", "2202", "payment", "mnuSelectBill_2000002", "CreditDegreeCG",
     "FYZC000001"},
};
inline std::string other_side_name(const ::testing::TestParamInfo<OtherSide>& info) { return info.param.sKind; }

/// A seat on a demo book of November 2026, with windows of one side's other bills.
class OtherBillWorld : public ::testing::TestWithParam<OtherSide> {
 protected:
  void SetUp() override {
    need_application();
    database = Database::create(folder_.filePath(QStringLiteral("other.book")).toStdString());
    create_demo(*database, "2026-11-01");
    session = std::make_unique<Session>(*database, "demo");
    window = open(GetParam().sKind);
  }
  void TearDown() override {
    window.reset();
    session.reset();
  }

  const OtherTables& tables() const { return *find_bill_kind(GetParam().sKind)->other; }
  OpenBillWindow open(const char* sKind) {
    return open_bill_window(seat_host(*session, "2026-11-10"), BillTemplate::shipped(find_bill_kind(sKind)->sTemplate));
  }
  void degree(const char* sDegree) {
    database->exec("UPDATE t_SystemProfile SET FValue = ? WHERE FKey = ?",
                   {Bind(sDegree), Bind(GetParam().sProfileKey)});
  }
  /// A new bill of one row, not saved yet.
  void fill(std::int32_t nType, const std::string& sPartner, const std::string& sAmount) {
    window->new_bill();
    ASSERT_TRUE(window->type_field("FBillTypeID", -1, std::to_string(nType)));
    ASSERT_TRUE(window->type_field(GetParam().sPartner, -1, sPartner));
    ASSERT_TRUE(window->type_field("FAcctID", -1, GetParam().sAccount));
    ASSERT_TRUE(window->press("mnuEditAddRow"));
    ASSERT_TRUE(window->type_field("FInOutTypeID", 1, GetParam().sType));
    ASSERT_TRUE(window->type_field("FBillAmountFor", 1, sAmount));
  }
  void fill_credit(const std::string& sPartner, const std::string& sAmount) {
    fill(tables().nCreditType, sPartner, sAmount);
  }
  std::string text(std::string_view sKey) { return arap::Concat(window->value(sKey)); }
  std::string last_message() const {
    const auto& messages = session->platform().messages();
    return messages.empty() ? "" : messages.back().sText;
  }
  bool told(std::string_view sPart) const {
    for (const ShownMessage& message : session->platform().messages())
      if (message.sText.find(sPart) != std::string::npos) return true;
    return false;
  }

  std::unique_ptr<Database> database;
  std::unique_ptr<Session> session;
  OpenBillWindow window;

 private:
  QTemporaryDir folder_;
};

}  // namespace desk::testing

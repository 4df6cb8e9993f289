#pragma once

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "frame/plugin_entry.h"
#include "support/boxes.h"
#include "support/other_bill_host.h"
#include "support/settlement_host.h"

namespace arap::testing {

/// One of the four bill classes, as the tests of what all four do alike see it.
struct BillClassCase {
  const char* sName;
  Ref<TestBill> (*make_bill)(Side);
  Side side;
  const char* sService;
  std::int32_t nBillClass;
  const char* sBillTable;
  std::array<const char*, 3> aTaskCodes;  // delete, check, uncheck
  // The action log of DoOptToBill for the codes 0, -1 and 1; "" for none.
  const char* sDoneLog;
  const char* sRefusedLog;
  const char* sFailedLog;
  std::int32_t nFailedResult;
};

inline void PrintTo(const BillClassCase& example, std::ostream* pStream) { *pStream << example.sName; }

/// A log line of a receipt that failed stands as a success, and a refused receipt under the payment's code.
inline const std::array<BillClassCase, 4> kBillClasses{{
    {"clsReceiveBill",
     make_settlement_bill,
     Side::Receive,
     "NUVlpsArApBill.clsArBill",
     1000201,
     "t_RP_RBill",
     {"AR0225", "AR0226", "AR0227"},
     "RP1000201A",
     "RP1000202A",
     "RP1000201A",
     1},
    {"clsPayBill",
     make_settlement_bill,
     Side::Pay,
     "NUVlpsArApBill.clsApBill",
     1000202,
     "t_RP_PBill",
     {"AP0225", "AP0226", "AP0227"},
     "RP1000202A",
     "RP1000202A",
     "",
     0},
    {"clsROtherBill",
     make_other_bill,
     Side::Receive,
     "NUVlpsArApBill.clsArOtherBill",
     1000205,
     "t_RP_ROtherBill",
     {"AR0303", "AR0304", "AR0305"},
     "RP1000205B",
     "RP1000205B",
     "RP1000205B",
     2},
    {"clsPOtherBill",
     make_other_bill,
     Side::Pay,
     "NUVlpsArApBill.clsApOtherBill",
     1000206,
     "t_RP_POtherBill",
     {"AP0303", "AP0304", "AP0305"},
     "RP1000206B",
     "RP1000206B",
     "RP1000206B",
     2},
}};

/// A stored bill of one class, with the id 9, in a window of its own.
class BillClassTest : public ::testing::TestWithParam<BillClassCase> {
 protected:
  BillClassTest() {
    add_in_out_types(session);
    plugin = CreatePublicObject("NUVARAPBillInterface." + std::string(names.sName));
    plugin->call(Member::Show, bill);
    bill->fire(Event::MenuBarInitialize, {bill->bar});
    bill->head("FBillId", 9);
    bill->inter_id = 9;
    trace().clear();
  }

  std::vector<Box> boxes() const { return boxes_of(session.platform); }
  ServerStub& service() { return session.server(names.sService); }

  const BillClassCase& names = GetParam();
  TestSession session;
  Ref<TestBill> bill = names.make_bill(names.side);
  Ref<Object> plugin;
};

}  // namespace arap::testing

#define INSTANTIATE_BILL_CLASSES(suite)                                \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::ValuesIn(kBillClasses), \
                           [](const auto& test) { return std::string(test.param.sName); })

#pragma once

#include <string>
#include <vector>

#include "other_bill_fixture.h"
#include "support/test_windows.h"

namespace arap::testing {

/// The list of one side with the plug-in's class on it, and a current period from January 2024 on.
class OtherListTest : public OtherBillTest {
 protected:
  using Ids = std::vector<std::int32_t>;

  OtherListTest() {
    plugin = CreatePublicObject(side.sClass);
    plugin->call(Member::Show, list);
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    trace().clear();
  }

  /// What GetBillDetail answers for a bill.
  void stored(std::int32_t nBillID, Variant vStatus, const char* sDate = "2024-01-15", Variant vVoucher = 0) {
    list->details[nBillID] = recordset({"FStatus", "FDate", "FVoucherId"}, {{vStatus, sDate, vVoucher}});
  }
  /// A stored bill with one selected line.
  void select(std::int32_t nBillID, Variant vStatus, const char* sDate = "2024-01-15", Variant vVoucher = 0) {
    stored(nBillID, std::move(vStatus), sDate, std::move(vVoucher));
    select_line(nBillID);
  }
  void select_line(std::int32_t nBillID) { list->select({{"FBillID", nBillID}, {"FClassTypeID", side.nBillClass}}); }
  void select_subtotal() { list->select({{"FAmount", 100.0}}); }
  void refuse_right(std::int32_t nRight) {
    session.access = [nRight](std::int32_t, std::int32_t, std::int32_t nAsked) { return nAsked != nRight; };
  }
  ServerStub& service() { return session.server(side.sService); }
  /// The bills that the service was asked about, in order.
  Ids operated() {
    Ids aIds;
    for (const auto& call : service().calls_of(Member::CheckBillSimple)) {
      const auto& oData = static_cast<const TestDictionary&>(*call.args[0].object());
      aIds.push_back(static_cast<std::int32_t>(plain_number(oData.at("InterID"))));
    }
    return aIds;
  }
  /// The lines of the grid of results, and whether it was shown.
  std::vector<std::string> grid_lines() {
    std::vector<std::string> aLines;
    for (const auto& call : grid().calls_of(Member::Add)) aLines.push_back(plain_text(call.args[0]));
    return aLines;
  }
  bool grid_shown() { return grid().count(Member::Show) > 0; }
  ServerStub& grid() { return session.server("NUVDisplayer.DispBuilder"); }
  bool refreshed() const { return list->form->count(Member::RefreshList) > 0; }

  Ref<TestList> list = make_object<TestList>(side.nBillClass);
};

}  // namespace arap::testing

#pragma once

#include "frame/host_contract.h"
#include "plugin/settlement/settlement_fixture.h"
#include "support/test_windows.h"

namespace arap::testing {

/// A bill as the list's server tells it.
struct ListedBill {
  std::int32_t nStatus = 0;
  const char* sDate = "2024-01-15";
  Variant vVoucher = std::int32_t{0};
  Variant vCheckAmount = 0.0;
  /// Class and id of each entry's source.
  std::vector<std::pair<Variant, Variant>> aSources = {{std::int32_t{999}, std::int32_t{1}}};
};

/// The list of one side with the plug-in's class on it: bills by id, and lines of them that are selected.
class SettlementList : public BothSides {
 protected:
  SettlementList() {
    plugin->call(Member::Show, list);
    session.system_data.answer("declare @Per", recordset({"FStartDate", "FEndDate"}, {{"2024-01-01", "2024-01-31"}}));
    trace().clear();
  }

  void have(std::int32_t nBillID, const ListedBill& listed = {}) {
    std::vector<std::vector<Variant>> aRows;
    for (const auto& [vClass, vID] : listed.aSources) {
      aRows.push_back({listed.nStatus, listed.sDate, listed.vVoucher, listed.vCheckAmount, vClass, vID});
    }
    list->details[nBillID] =
        recordset({"FStatus", "FDate", "FVoucherId", "FCheckAmountFor", "FClassID_SRC", "FInterID"}, aRows);
  }
  /// Selects one line of each of these bills; 0 is a subtotal line.
  void select(const std::vector<std::int32_t>& aBills) {
    for (const std::int32_t nBillID : aBills) {
      if (nBillID == 0) {
        list->select({{"FAmount", 1.0}});
      } else {
        list->select({{"FBillID", nBillID}});
      }
    }
  }
  /// Bills that an operation can be done on, each with one selected line.
  void select_ready(const std::vector<std::int32_t>& aBills, std::int32_t nStatus = 0) {
    for (const std::int32_t nBillID : aBills) {
      if (nBillID != 0) have(nBillID, {.nStatus = nStatus});
    }
    select(aBills);
  }
  /// The ids and operations that reached the service, in order: "5:1".
  Lines operations() {
    Lines aFound;
    for (const ServerStub::Call& call : session.server(side.sService).calls_of(Member::CheckBillSimple)) {
      const Dictionary oData(call.args[0]);
      aFound.push_back(plain_text(oData.Value("InterID"_key)) + ":" + plain_text(oData.Value("CheckType"_key)));
    }
    return aFound;
  }
  /// The lines of the result window that was shown; none when it wasn't.
  Lines result_window() {
    ServerStub& grid = session.server("NUVDisplayer.DispBuilder");
    if (grid.count(Member::Show) == 0) return {};
    Lines aLines;
    for (const ServerStub::Call& call : grid.calls_of(Member::Add)) aLines.push_back(plain_text(call.args[0]));
    return aLines;
  }
  std::size_t refreshes() const { return list->form->count(Member::RefreshList); }

  Ref<TestList> list = make_object<TestList>(names_of(GetParam()).nBillClass);
};

}  // namespace arap::testing

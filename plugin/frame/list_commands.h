#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "frame/bill_operation.h"
#include "frame/host_contract.h"

/// What the lists of the four bill classes do alike with the rows that the user selected. No function here has a trap:
/// errors pass to the caller.
namespace arap {

/// A column of a selected row: the stored value where the row holds records. Nothing for a row without that key.
std::optional<Variant> SelectedValue(const Variant& vRow, Key sColumn);
/// A row's FBillID; a subtotal line has none.
std::optional<Variant> SelectedBillId(const Variant& vRow);
/// True for a list without a selection.
bool IsSelectionEmpty(const Vector& oRows);

/// How a walk over the selected rows ended.
enum class RowWalk : std::uint8_t { AllRows, RowWithoutId, Stopped };
/// Visits the selected bills row by row, until a row has no FBillID or the visitor answers false.
RowWalk WalkSelectedBills(const Vector& oRows, const std::function<bool(const Variant& vBillID)>& visit);

/// False when the system value IC, RefreshAfterAdd is on: then the host refreshes its list by itself.
bool MustRefreshList();
/// RefreshList with the flag of the class, then letmessage.
void RefreshList(const ListEvents& oList, bool bFlag);

/// The tests of one bill by what GetBillDetail answered: that it is still there, and that its status allows the
/// operation. False after the notice.
bool PassesStatusTests(const Recordset& rs, BillOperation operation);

/// One operation on one bill, as the public DoOptToBill does it.
using OperateOnBill = std::function<void(std::int32_t nTransType, std::int32_t nInterID, std::int32_t nCheckType,
                                         Variant& vCode, Variant& vMessage)>;
/// Operates on the selected bills, on lines of one bill that follow each other only once. The text of a single
/// operation is shown as a notice, those of several in the grid of results, one line a bill. False for an empty
/// selection and at a row without FBillID, which shows nothing.
bool RunOnSelected(const ListDataServer& oServer, const Vector& oRows, BillOperation operation,
                   const OperateOnBill& operate);

/// False when a selected bill is before the current period: its warning is shown and vCancel is true. False without
/// both at a row without FBillID.
bool SelectedBillsAreInPeriod(const ListDataServer& oServer, const Vector& oRows, Variant& vCancel);

/// Opens the voucher of the first selected bill that has one.
void ShowVoucherOfSelected(const ListDataServer& oServer, const Vector& oRows, Variant& vCancel);

}  // namespace arap

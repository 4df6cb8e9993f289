#pragma once

#include "frame/contract_bars.h"
#include "frame/contract_containers.h"

namespace arap {

/// The list's data object.
class ListDataServer : public View {
 public:
  using View::View;
  std::int32_t ClassTypeId() const { return LongOf(get(Member::ClassTypeId)); }
  /// One record per entry of the bill.
  Recordset GetBillDetail(const Variant& vBillID) const { return Recordset(call(Member::GetBillDetail, vBillID)); }
};

/// The list window's event source and operations.
class ListEvents : public View {
 public:
  using View::View;
  Variant ListData() const { return get(Member::ListData); }
  Variant ListDataServer() const { return get(Member::ListDataServer); }
  Vector SelectedRows() const { return Vector(get(Member::SelectedRows)); }
  Variant ListForm() const { return get(Member::ListForm); }
  ActiveBar BarControl() const { return ActiveBar(get(Member::BarControl)); }
};

}  // namespace arap

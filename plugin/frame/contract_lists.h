#pragma once

#include <string>

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

/// The base-data window's event source and operations: a tree, and a grid of the records under its selected node.
class BaseClassEvent : public View {
 public:
  using View::View;
  /// Tells the tree its root: the id in all three places.
  void SetRootNode(std::int32_t nRoot) const { call(Member::SetRootNode, nRoot, nRoot, nRoot, ""_key); }
  std::int32_t SelectedNodeID() const { return LongOf(get(Member::SelectedNodeID)); }
  /// Id of the current record of the grid; 0 or less when none.
  std::int32_t CurrentItemID() const { return LongOf(get(Member::CurrentItemID)); }
  /// Name of the control that has the focus; "" when none has it.
  std::string ActiveControlName() const {
    const Variant vControl = get(Member::ActiveControl);
    if (!vControl.is_object() || vControl.is_nothing()) return {};
    return Concat(vControl.object()->get(Member::Name));
  }
  /// Reloads the grid. nMode is the host's own number of a way; the rules give 1.
  void RefreshItems(std::int32_t nMode) const { call(Member::RefreshItems, nMode); }
  ActiveBar BarControl() const { return ActiveBar(get(Member::BarControl)); }
};

}  // namespace arap

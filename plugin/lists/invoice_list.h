#pragma once

#include <cstdint>

#include "frame/public_class.h"

namespace arap {

/// The invoice list: trimmed to this module's commands, with one more that shows the bill behind a row in the host's
/// bill list window.
class clsInvoice final : public ListClass {
 public:
  clsInvoice() : ListClass("clsInvoice") {}

 protected:
  ~clsInvoice() override { m_LstInterface.clear(); }
  void OnListEvent(Event event, Arguments args) override;

 private:
  void m_LstInterface_BarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarClick(const Tool& oTool);

  void ViewSourceBill() const;
  /// Id of the bill behind the first selected row; 0 when none is selected.
  std::int32_t SelectedBill() const;
};

}  // namespace arap

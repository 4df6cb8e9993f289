#pragma once

#include <string_view>

#include "frame/public_class.h"

namespace arap {

/// The tree of income and expense types and its record.
class clsRPInOutType : public BillClass {
 public:
  /// Fetches the types; passes on what that raises.
  clsRPInOutType();

 protected:
  ~clsRPInOutType() override;

  /// Binds by the exact type name; a source of another type leaves the class silent.
  void Show(const Ref<Object>& oSource) override;
  std::string_view GetTaskCode(int nIndex) const override;

 private:
  void OnBaseEvent(Event, Arguments) {}

  EventMember<clsRPInOutType> m_BaseInterface{*this, &clsRPInOutType::OnBaseEvent};
  Recordset m_rsInOutType;
};

}  // namespace arap

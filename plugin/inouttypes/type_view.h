#pragma once

#include "frame/public_class.h"

namespace arap {

/// The read-only list of income and expense types. Its source has the member name of a list but the type of a tree.
class clsRPInOutTypeView final : public PublicClass {
 public:
  clsRPInOutTypeView() : PublicClass("clsRPInOutTypeView") {}

 protected:
  ~clsRPInOutTypeView() override { m_LstInterface.clear(); }

  /// No test of the type name: another object than BaseClassEvent raises 13.
  void Show(const Ref<Object>& oSource) override { m_LstInterface.set(CastTo(oSource, kBaseClassEvent)); }

 private:
  void OnBaseEvent(Event event, Arguments args);

  void m_LstInterface_AfterGetData();
  void m_LstInterface_BarInitialize(const ActiveBar& oBar);
  void m_LstInterface_MenuBarClick(const Tool& oTool);

  EventMember<clsRPInOutTypeView> m_LstInterface{*this, &clsRPInOutTypeView::OnBaseEvent};
};

}  // namespace arap

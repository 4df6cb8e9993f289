#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/public_class.h"

namespace arap {

class TypeServer;
struct TypeEntry;

/// The tree of income and expense types and the small bill that edits one of them. The base class's bill id is the id
/// of the type that is open in the bill; the task that it holds is the one of a type being modified.
class clsRPInOutType : public BillClass {
 public:
  /// Fetches the types; passes on what that raises.
  clsRPInOutType();

 protected:
  ~clsRPInOutType() override;

  /// Binds by the exact type name; a source of another type leaves the class silent.
  void Show(const Ref<Object>& oSource) override;
  std::string_view GetTaskCode(int nIndex) const override;
  void OnBillEvent(Event event, Arguments args) override;

 private:
  void OnBaseEvent(Event event, Arguments args);
  BaseClassEvent Tree() const { return BaseClassEvent(m_BaseInterface.source()); }

  // --- type_tree: the window of the tree ---
  void m_BaseInterface_BarInitialize(const ActiveBar& oBar);
  void m_BaseInterface_MenuBarInitialize();
  void m_BaseInterface_ClassGroupSelected(std::int32_t nClassID);
  void m_BaseInterface_AfterGetData();
  void m_BaseInterface_MenuBarClick(const Tool& oTool, Variant& vCancel);
  /// Writes the task it takes into nTask; the handler gives it back.
  void DeleteCommand(Variant& vCancel, std::int32_t& nTask);
  void NewItemCommand(Variant& vCancel);
  void ModifyCommand(Variant& vCancel);
  void DisableCommand(Variant& vCancel);
  bool LockTypeForEdit(std::int32_t nID);
  void TakeEditTask(std::int32_t nID);
  static void ShowTypeHelp();

  // --- type_bill: the small bill ---
  void m_BillInterface_MenuBarInitialize(const ActiveBar& oBar);
  void m_BillInterface_AfterNewBill();
  void m_BillInterface_AfterNewEmptyData();
  void m_BillInterface_AfterLoadBill();
  void m_BillInterface_AfterSave();
  void m_BillInterface_SaveBillFailed(const Variant& vDct);
  void m_BillInterface_MenuBarClick(const Tool& oTool);

  // --- type_save: the tests of its save ---
  void m_BillInterface_BeforeSave(Variant& vCancel);
  void TestAndOffer(Variant& vCancel);
  TypeEntry ReadEntry() const;
  bool KeepsNameApart(const TypeServer& oServer, const TypeEntry& entry, std::string_view sParent) const;
  bool MayTakeOverBusiness(const TypeServer& oServer, const std::string& sParent) const;

  EventMember<clsRPInOutType> m_BaseInterface{*this, &clsRPInOutType::OnBaseEvent};
  Recordset m_rsInOutType;
  std::string m_sLastNumber;  // number of the type saved last; "" at the start
};

}  // namespace arap

#include "frame/failure.h"
#include "frame/server_objects.h"
#include "frame/text_utils.h"
#include "inouttypes/type_bill.h"
#include "inouttypes/type_server.h"

namespace arap {

namespace {

void Refuse(std::string_view sText, Variant& vCancel) {
  ShowInfo(LoadText(sText));
  vCancel = true;
}

}  // namespace

/// Resume next. The tree has no groups besides its two branches.
void clsRPInOutType::m_BaseInterface_BarInitialize(const ActiveBar& oBar) {
  for (const Key sTool : {"mnuFileNewGroup"_key, "mnuEditDelGroup"_key, "mnuOption"_key}) {
    ResumeNext([&] { oBar.Tools(sTool).SetVisible(false); });
  }
}

void clsRPInOutType::m_BaseInterface_MenuBarInitialize() { Tree().SetRootNode(kTypeRoot); }

/// Under the root itself stand only the branches, which nobody makes or changes.
void clsRPInOutType::m_BaseInterface_ClassGroupSelected(std::int32_t nClassID) {
  const ActiveBar oBar = Tree().BarControl();
  oBar.Tools("mnuFileNewItem"_key).SetVisible(nClassID != kTypeRoot);
  oBar.Tools("mnuEditModify"_key).SetVisible(nClassID != kTypeRoot);
}

/// The filter stays set, and the parent is read and not used; both are required.
void clsRPInOutType::m_BaseInterface_AfterGetData() {
  m_rsInOutType.SetFilter("FId='" + std::to_string(Tree().CurrentItemID()) + "'");
  if (!m_rsInOutType.Eof()) m_rsInOutType.Value("FParentid"_key);
}

/// A trap without a message: the task goes back and the host does nothing.
void clsRPInOutType::m_BaseInterface_MenuBarClick(const Tool& oTool, Variant& vCancel) {
  std::int32_t nTask = 0;
  try {
    const std::string sName = Concat(oTool.Name());
    if (EqualsNoCase(sName, "mnuEditDel")) DeleteCommand(vCancel, nTask);
    if (EqualsNoCase(sName, "mnuFileNewItem")) NewItemCommand(vCancel);
    if (EqualsNoCase(sName, "mnuEditModify")) ModifyCommand(vCancel);
    if (EqualsNoCase(sName, "mnuHelpDetail")) ShowTypeHelp();
    if (EqualsNoCase(sName, "mnuEditUnuse")) DisableCommand(vCancel);
    CommitTask(nTask);
  } catch (const AutomationError&) {
    ResumeNext([&] { CommitTask(nTask); });
    vCancel = true;
  }
}

void clsRPInOutType::DeleteCommand(Variant& vCancel, std::int32_t& nTask) {
  const std::int32_t nID = Tree().CurrentItemID();
  if (nID <= 0) return Refuse("请选择需要删除的具体类别！", vCancel);
  if (!CheckTypeUsable(nID, LoadText("删除失败"))) {
    vCancel = true;
    return;
  }
  nTask = ExecFunc(kTaskSystem, GetTaskCode(0), 0, 0, nID);
  if (TypeServer().IsUsed(nID)) return Refuse("该类别具有下级节点或被单据使用，不允许删除！", vCancel);
}

void clsRPInOutType::NewItemCommand(Variant& vCancel) {
  if (Tree().SelectedNodeID() != kTypeRoot) return;
  Refuse("请选择具体的需要新增类别的节点（收入类别或支出类别）！", vCancel);
}

/// Required: without the lock the host is stopped, but the steps go on; and the task of a refused command stays held
/// until the window ends or a new bill is opened.
void clsRPInOutType::ModifyCommand(Variant& vCancel) {
  const std::int32_t nID = Tree().CurrentItemID();
  if (!CheckTypeUsable(nID, LoadText("修改失败"))) {
    vCancel = true;
    return;
  }
  if (!LockTypeForEdit(nID)) vCancel = true;
  const std::string sControl = Tree().ActiveControlName();
  const bool bOnGrid = sControl == "grid" || sControl == "GridResult";
  if (bOnGrid && Tree().CurrentItemID() > 0) return;
  Refuse("请选择具体的需要修改的类别信息！", vCancel);
}

/// Enabling a type has no rule.
void clsRPInOutType::DisableCommand(Variant& vCancel) {
  if (!CheckTypeUsable(Tree().CurrentItemID(), LoadText("操作失败"))) vCancel = true;
}

/// Trap and show. Answers whether the edit of the type is this user's now.
bool clsRPInOutType::LockTypeForEdit(std::int32_t nID) {
  if (nID <= 0) return false;
  try {
    const Recordset rs = TypeServer().ById(nID);
    if (rs.Eof() || rs.Bof()) {
      ShowInfo(LoadText("数据可能已经被删除,请刷新!"));
      return false;
    }
    TakeEditTask(nID);
    return true;
  } catch (const AutomationError& error) {
    if (error.number() != 0) ShowMessage(error.description(), kNotice, LoadText(kTitle));
    return false;
  }
}

void clsRPInOutType::TakeEditTask(std::int32_t nID) {
  CommitTask(m_lTaskId);
  m_lTaskId = ExecFunc(kTaskSystem, GetTaskCode(5), 0, 0, nID);
}

void clsRPInOutType::ShowTypeHelp() { ShowHelpTopic("RP1000207"_key); }

}  // namespace arap

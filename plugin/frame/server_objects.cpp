#include "frame/server_objects.h"

#include "frame/failure.h"
#include "frame/module_state.h"
#include "frame/open_choices.h"
#include "frame/platform.h"
#include "frame/session.h"
#include "frame/text_utils.h"

namespace arap {

namespace {

constexpr std::int32_t kTaskKind = 3;
constexpr std::size_t kMachineNameLength = 39;
constexpr int kDefaultPointer = 0;
constexpr int kHourglass = 11;

/// A creation that gives Nothing is a failed one.
Ref<Object> Made(Ref<Object> object, std::string_view sProgID) {
  if (!object) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  return object;
}

/// The first nLength characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view sText, std::size_t nLength) {
  std::size_t nCharacters = 0;
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const bool bContinues = (static_cast<unsigned char>(sText[i]) & 0xC0) == 0x80;
    if (!bContinues && nCharacters++ == nLength) return sText.substr(0, i);
  }
  return sText;
}

}  // namespace

Ref<Object> CreateServerObject(std::string_view sProgID) {
  Ref<Object>& oFactory = Module().oFactory;
  if (!oFactory) oFactory = CreateLocalObject(open_choices::kObjectFactory);
  return Made(oFactory->call(Member::CreateServerObject, sProgID).object(), sProgID);
}

Ref<Object> CreateLocalObject(std::string_view sProgID) {
  return Made(CurrentPlatform().CreateObject(sProgID), sProgID);
}

Dictionary NewDictionary() { return Dictionary(CreateLocalObject(open_choices::kDictionary)); }
Vector NewVector() { return Vector(CreateLocalObject(open_choices::kVector)); }

Variant GetSharedProperty(std::string_view sName) {
  const Ref<Object> oShareProps = CreateLocalObject("NUVPropsMgr.ShareProps");
  return oShareProps->call(Member::GetProperty, CurrentPlatform().ProcessId(), sName);
}

Ref<Object> GetLoginObject() {
  Ref<Object> oLogin = GetSharedProperty("NUVLogin").object();
  if (!oLogin) throw AutomationError(ErrorNumber::ObjectNotSet, "NUVLogin");
  return oLogin;
}

std::string GetPropsString() {
  const Ref<Object>& oLogin = Module().oLogin;
  return TextOf(oLogin ? oLogin->get(Member::PropsString) : GetSharedProperty("PropsString"));
}

GLData GetGLData() {
  Ref<Object>& oGLData = Module().oGLData;
  if (!oGLData) oGLData = CreateLocalObject("NUVLPCGLView.GLData");
  return GLData(oGLData);
}

Variant ExecuteCommand(std::string_view sSql) {
  ParsePropsString(GetPropsString());
  const Ref<Object> oConnection = CreateLocalObject("NUVConnection.AppConnection");
  return oConnection->call(Member::Execute, ConnectString(), sSql);
}

void ShowHelpTopic(Key sTopic) {
  const Ref<Object> oHelp = CreateLocalObject("NUVCHMResTool.ClsCHMHelp");
  oHelp->call(Member::ShowHelp, "NUVV11.chm"_key, sTopic, std::int32_t{0});
}

std::int32_t ExecFunc(std::int32_t nSystem, std::string_view sFunction, std::int32_t nA, std::int32_t nB,
                      const Variant& vExtra) {
  const Ref<Object> oLogin = GetLoginObject();
  const std::string sMachine = GetMachineName();
  const Variant vTask = vExtra.is_missing()
                            ? oLogin->call(Member::TaskExec, nSystem, sFunction, sMachine, kTaskKind, nA, nB)
                            : oLogin->call(Member::TaskExec, nSystem, sFunction, sMachine, kTaskKind, nA, nB, vExtra);
  const std::int32_t nTaskID = LongOf(vTask);
  if (nTaskID < 1) {
    throw AutomationError(static_cast<std::int32_t>(ErrorNumber::FunctionInUse), "MNetControl.ExecFunc",
                          LoadText("当前使用的功能与其他用户有冲突,目前无法使用!"));
  }
  return nTaskID;
}

bool CommitTask(std::int32_t& nTaskID) {
  if (nTaskID == 0) return false;
  const bool bCommitted = ToBoolean(GetLoginObject()->call(Member::CommitTask, nTaskID));
  if (bCommitted) nTaskID = 0;
  return bCommitted;
}

std::string GetMachineName() {
  const std::optional<std::string> sName = CurrentPlatform().ComputerName();
  if (!sName) return "NoName";
  const std::string_view sWhole(*sName);
  return std::string(FirstCharacters(sWhole.substr(0, sWhole.find('\0')), kMachineNameLength));
}

WaitCursor::WaitCursor() {
  ModuleState& module = Module();
  if (module.nWaitCursors == 0) CurrentPlatform().SetMousePointer(kHourglass);
  ++module.nWaitCursors;
}

WaitCursor::~WaitCursor() {
  ResumeNext([] {
    if (--Module().nWaitCursors == 0) CurrentPlatform().SetMousePointer(kDefaultPointer);
  });
}

}  // namespace arap

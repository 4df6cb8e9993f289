#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// Makes a server object through the host's object factory. The caller releases it before it leaves.
Ref<Object> CreateServerObject(std::string_view sProgID);
/// Makes a local object directly.
Ref<Object> CreateLocalObject(std::string_view sProgID);
/// A new, empty Dictionary of the host.
Dictionary NewDictionary();
/// A new, empty Vector of the host.
Vector NewVector();

/// A login property of this process, object or value, from NUVPropsMgr.ShareProps.
Variant GetSharedProperty(std::string_view sName);
/// The session's login object.
Ref<Object> GetLoginObject();
/// The props string: the connection and the login in one text, first argument of nearly every server call.
std::string GetPropsString();
/// The general-ledger client services, made on first use and kept for the life of the thread.
GLData GetGLData();

/// Runs a statement over the session's own connection; a Recordset for a query.
Variant ExecuteCommand(std::string_view sSql);
/// Opens the online help at a topic.
void ShowHelpTopic(Key sTopic);

/// The subsystem under which every task is taken.
inline constexpr std::int32_t kTaskSystem = 21;

/// Takes a task for a guarded function and answers its id, above 0. vExtra is the guarded thing: an id, a Vector of
/// ids, or Missing. Raises 16390 when the function is in use by another user.
std::int32_t ExecFunc(std::int32_t nSystem, std::string_view sFunction, std::int32_t nA, std::int32_t nB,
                      const Variant& vExtra = Missing{});
/// Gives a task back; nTaskID is 0 afterwards, or keeps its value when the host answers false. 0 answers false.
bool CommitTask(std::int32_t& nTaskID);
/// At most 39 characters, cut at the first NUL; "NoName" when the system can't tell.
std::string GetMachineName();

/// Holds the hourglass for the length of a procedure; the first one sets it, the last one takes it away.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace arap

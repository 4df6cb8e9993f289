#include "data/automation_names.h"
#include "frame/contract_containers.h"
#include "frame/conversions.h"
#include "frame/open_choices.h"
#include "services/component.h"
#include "services/session.h"

namespace desk {

namespace {

// The guarded thing of TaskExec: nothing, one id, or a Vector of ids.
std::vector<std::int32_t> guarded_records(Arguments args, std::size_t nIndex) {
  if (nIndex >= args.size() || args[nIndex].is_missing()) return {};
  if (!args[nIndex].is_object()) return {arap::LongOf(args[nIndex])};
  const arap::Vector oIds(args[nIndex]);
  std::vector<std::int32_t> aIds;
  for (std::int32_t i = 1; i <= oIds.Size(); ++i) aIds.push_back(arap::LongOf(oIds.Item(i)));
  return aIds;
}

// The login of this seat: the props string and the tasks.
class Login final : public Component {
 public:
  explicit Login(Session& session) : Component("clsLogin") {
    on(Member::PropsString, [&session](Arguments) { return Variant(session.props_string()); });
    // TaskExec(nSystem, sFunction, sMachine, 3, nA, nB[, vExtra])
    on(Member::TaskExec, [&session](Arguments args) {
      return Variant(session.tasks().take(long_argument(args, 0), text_argument(args, 1), guarded_records(args, 6)));
    });
    on(Member::CommitTask,
       [&session](Arguments args) { return Variant(session.tasks().commit(long_argument(args, 0))); });
  }
};

Variant shared_property(Session& session, const Ref<arap::Object>& oLogin, std::string_view sName) {
  if (arap::EqualsNoCase(sName, "NUVLogin")) return oLogin;
  if (arap::EqualsNoCase(sName, "PropsString")) return session.props_string();
  if (arap::EqualsNoCase(sName, "UserName")) return session.user_name();
  if (arap::EqualsNoCase(sName, "UserID")) return session.user_id();
  if (arap::EqualsNoCase(sName, "Language")) return "chs";
  return "";
}

Variant tasks_as_vector(const std::vector<std::int32_t>& aTasks) {
  if (aTasks.empty()) return Ref<arap::Object>();
  const arap::Vector oTasks(arap::CurrentPlatform().CreateObject(arap::open_choices::kVector));
  for (const std::int32_t nTask : aTasks) oTasks.Add(nTask);
  return oTasks;
}

Variant commit_tasks(Session& session, const Variant& vTasks) {
  const arap::Vector oTasks(vTasks);
  bool bAll = true;
  for (std::int32_t i = 1; i <= oTasks.Size(); ++i) bAll = session.tasks().commit(arap::LongOf(oTasks.Item(i))) && bAll;
  return bAll;
}

}  // namespace

void register_login(Session& session) {
  const Ref<arap::Object> oLogin = arap::make_object<Login>(session);
  ObjectRegistry& registry = session.registry();
  // It keeps nothing of its caller, and every statement of a rule asks it: one serves all.
  const Ref<arap::Object> oShareProps =
      make_component("ShareProps", {{Member::GetProperty, [&session, oLogin](Arguments args) {
                                       return shared_property(session, oLogin, text_argument(args, 1));
                                     }}});
  registry.add("NUVPropsMgr.ShareProps", [oShareProps] { return oShareProps; });
  registry.add(arap::open_choices::kObjectFactory, [&registry] {
    return make_component("Factory", {{Member::CreateServerObject, [&registry](Arguments args) {
                                         return Variant(registry.create(text_argument(args, 0)));
                                       }}});
  });
  registry.add("NUVNetControl.Mutex", [&session] {
    return make_component(
        "Mutex",
        {{Member::GetTaskIdByUserInfo,
          [&session](Arguments args) {
            return tasks_as_vector(session.tasks().tasks_of(text_argument(args, 1), long_argument(args, 2)));
          }},
         {Member::BatchCommitTask, [&session](Arguments args) { return commit_tasks(session, argument(args, 1)); }}});
  });
}

}  // namespace desk

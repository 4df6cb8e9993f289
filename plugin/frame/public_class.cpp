#include "frame/public_class.h"

#include <algorithm>

#include "frame/failure.h"
#include "frame/server_objects.h"

namespace arap {

namespace {

/// The public, readable and writable source member of a class.
template <class Owner>
Variant AccessListMember(EventMember<Owner>& member, Access access, Arguments args) {
  if (access == Access::Get || access == Access::Call) return Variant(member.source());
  member.set(CastTo(argument(args, 0).object(), kListEvents));
  return {};
}

}  // namespace

bool Inside(const Variant& itm, std::span<const Variant> Col) {
  return std::any_of(Col.begin(), Col.end(), [&itm](const Variant& vValue) { return Equals(vValue, itm); });
}

std::string TypeNameOf(const Ref<Object>& object) { return object ? object->type_name() : "Nothing"; }

const Ref<Object>& CastTo(const Ref<Object>& object, std::string_view sTypeName) {
  if (object && object->type_name() != sTypeName) {
    throw AutomationError(ErrorNumber::TypeMismatch, object->type_name());
  }
  return object;
}

Recordset FetchInOutTypes() {
  const Ref<Object> oTypes = CreateServerObject("NUVlpsArApBill.clsInOutType");
  return Recordset(oTypes->call(Member::GetRPInOutTypeInfo, GetPropsString()));
}

void ReleaseEditTasks(std::int32_t nBillId, std::string_view sFunctionCode) {
  if (nBillId <= 0) return;
  const Ref<Object> oMutex = CreateServerObject("NUVNetControl.Mutex");
  const std::string sProps = GetPropsString();
  const Variant vTasks = oMutex->call(Member::GetTaskIdByUserInfo, sProps, sFunctionCode, nBillId);
  if (vTasks.is_object() && !vTasks.is_nothing()) oMutex->call(Member::BatchCommitTask, sProps, vTasks);
}

Variant PublicClass::invoke(Member member, Access access, Arguments args) {
  if (member != Member::Show || access == Access::Put || access == Access::PutRef) no_such_member(member);
  Show(argument(args, 0).object());
  return {};
}

void BillClass::ReleaseEditTasksOfBill() noexcept {
  ResumeNext([this] { ReleaseEditTasks(m_lBillId, GetTaskCode(5)); });
}

void BillClass::CommitHeldTask() noexcept {
  if (m_lTaskId == 0) return;
  ResumeNext([this] { CommitTask(m_lTaskId); });
}

Variant ListedBillClass::invoke(Member member, Access access, Arguments args) {
  if (member == Member::m_LstInterface) return AccessListMember(m_LstInterface, access, args);
  if (member == Member::Inside) return Inside(argument(args, 0), std::span<const Variant>(args.subspan(1)));
  if (member != Member::DoOptToBill || access == Access::Put || access == Access::PutRef) {
    return BillClass::invoke(member, access, args);
  }
  Variant vCode = std::int16_t{0};
  Variant vDesc = "";
  Variant vOk = false;
  const bool bOk = DoOptToBill(ToLong(argument(args, 0)), ToLong(argument(args, 1)), ToLong(argument(args, 2)),
                               OptionalArgument(args, 3, vCode), OptionalArgument(args, 4, vDesc));
  OptionalArgument(args, 5, vOk) = bOk;
  return bOk;
}

void ListedBillClass::Show(const Ref<Object>& oSource) {
  const std::string sTypeName = TypeNameOf(oSource);
  if (sTypeName == kBillEvent) m_BillInterface.set(oSource);
  if (sTypeName == kListEvents) m_LstInterface.set(oSource);
}

Variant ListClass::invoke(Member member, Access access, Arguments args) {
  if (member == Member::m_LstInterface) return AccessListMember(m_LstInterface, access, args);
  return PublicClass::invoke(member, access, args);
}

void ListClass::Show(const Ref<Object>& oSource) { m_LstInterface.set(CastTo(oSource, kListEvents)); }

}  // namespace arap

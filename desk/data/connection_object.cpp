#include "data/connection_object.h"

#include "data/automation_names.h"
#include "data/recordset.h"
#include "data/trace.h"
#include "frame/conversions.h"

namespace desk {

Variant DataServerObject::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  if (member != Member::OpenQuery) no_such_member(member);
  return open_recordset(database_, arap::Concat(argument(args, 0)), type_name());
}

Variant AppConnectionObject::invoke(Member member, Access access, Arguments args) {
  if (tracing()) trace_call(*this, member, access, args);
  if (member != Member::Execute) no_such_member(member);
  if (args.empty() || args.size() > 2) throw arap::AutomationError(arap::ErrorNumber::WrongNumberOfArguments);
  return open_recordset(database_, arap::Concat(args.back()), type_name());
}

}  // namespace desk

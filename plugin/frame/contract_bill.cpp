#include "frame/contract_bill.h"

namespace arap {

ActiveCell BillEvent::GetActiveCell() const {
  std::array<Variant, 3> args{Ref<Object>(), std::int32_t{0}, std::int32_t{0}};
  invoke(Member::GetActiveCell, Access::Call, args);
  return {FieldInfo(args[0]), LongOf(args[1]), LongOf(args[2])};
}

ScreenField BillEvent::HeadScreenField(const Variant& vKey) const {
  const Ref<Object> oHead = get(Member::BillEntrys).object()->get(Member::Item, std::int32_t{1}).object();
  return ScreenField(oHead->get(Member::MDKFields).object()->get(Member::Item, vKey));
}

}  // namespace arap

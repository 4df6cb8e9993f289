#include "frame/partner_credit.h"

#include "frame/conversions.h"
#include "frame/public_class.h"
#include "frame/server_objects.h"

namespace arap {

std::string GetCreditText(const Variant& vPartner, std::int32_t nClassType) {
  if (!Inside(nClassType, 1000201, 1000202, 1000205, 1000206)) return "";
  const Ref<Object> oCredit = CreateLocalObject("NUVBills.clsCredit");
  return Concat(oCredit->call(Member::GetStatusMoneyAndCredit, vPartner, nClassType));
}

}  // namespace arap

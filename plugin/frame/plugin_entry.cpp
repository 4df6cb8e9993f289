#include "frame/plugin_entry.h"

#include <algorithm>
#include <array>

#include "frame/conversions.h"
#include "inouttypes/type_bill.h"
#include "inouttypes/type_view.h"
#include "lists/invoice_list.h"
#include "lists/opening_balances_list.h"
#include "otherbills/other_bill.h"
#include "settlement/settlement_classes.h"

namespace arap {

namespace {

using Maker = Ref<Object> (*)();

template <class PublicClassType>
Ref<Object> Make() {
  return make_object<PublicClassType>();
}

constexpr std::array<std::string_view, 8> kClassNames{
    "clsReceiveBill", "clsPayBill",         "clsROtherBill", "clsPOtherBill",
    "clsRPInOutType", "clsRPInOutTypeView", "clsInvoice",    "clsRPInitial",
};
/// In the order of the names.
constexpr std::array<Maker, 8> kMakers{
    Make<clsReceiveBill>, Make<clsPayBill>,         Make<clsROtherBill>, Make<clsPOtherBill>,
    Make<clsRPInOutType>, Make<clsRPInOutTypeView>, Make<clsInvoice>,    Make<clsRPInitial>,
};

/// The class name of a ProgID of this library; "" for any other ProgID.
std::string_view ClassNameOf(std::string_view sProgID) {
  const std::size_t nPoint = kLibraryName.size();
  if (sProgID.size() <= nPoint || sProgID[nPoint] != '.') return {};
  return EqualsNoCase(sProgID.substr(0, nPoint), kLibraryName) ? sProgID.substr(nPoint + 1) : std::string_view{};
}

}  // namespace

std::span<const std::string_view> PublicClassNames() { return kClassNames; }

Ref<Object> CreatePublicObject(std::string_view sProgID) {
  const std::string_view sClass = ClassNameOf(sProgID);
  const auto found = std::find_if(kClassNames.begin(), kClassNames.end(),
                                  [sClass](std::string_view sName) { return EqualsNoCase(sName, sClass); });
  if (found == kClassNames.end()) throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
  return kMakers[found - kClassNames.begin()]();
}

}  // namespace arap

#pragma once

#include <string_view>

#include "frame/public_class.h"
#include "otherbills/other_bill_sides.h"

namespace arap {

/// An other bill and its list: income and expense outside the sales and purchase documents. One class for both sides;
/// what differs is read from the side.
class OtherBill : public ListedBillClass {
 protected:
  /// Fetches the income and expense types; passes on what that raises.
  explicit OtherBill(const OtherBillSide& side);
  ~OtherBill() override;

  std::string_view GetTaskCode(int nIndex) const override;

  const OtherBillSide& side_;

 private:
  Recordset m_rsInOutType;
};

/// The other receivable bill: a claim on a customer.
class clsROtherBill final : public OtherBill {
 public:
  clsROtherBill() : OtherBill(kROtherSide) {}
};

/// The other payable bill: a debt to a supplier.
class clsPOtherBill final : public OtherBill {
 public:
  clsPOtherBill() : OtherBill(kPOtherSide) {}
};

}  // namespace arap

#pragma once

#include "settlement/settlement_bill.h"

namespace arap {

/// The receipt bill: money received from a customer.
class clsReceiveBill final : public SettlementBill {
 public:
  clsReceiveBill() : SettlementBill(kReceiveSide) {}
};

/// The payment bill: money paid to a supplier.
class clsPayBill final : public SettlementBill {
 public:
  clsPayBill() : SettlementBill(kPaySide) {}

 private:
  void LockExternalPayment() override;
};

}  // namespace arap

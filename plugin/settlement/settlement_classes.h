#pragma once

#include <string>

#include "frame/collection.h"
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

  /// Finds the rows that take back only part of an earlier payment; always Empty. No command and no event calls it.
  /// Raises nothing: an error ends it with what it has collected.
  Variant CollectPartialRefunds();
  /// The rows whose payment has a single source, a Dictionary each with FBackAmountFor, FClassID_SRC and FInterId.
  /// Nothing before the first CollectPartialRefunds.
  const Ref<Collection>& Refunds() const { return m_vctRefunds; }
  /// Id of the last payment that the user chose to refund in part, without its last digit; "" for none.
  const std::string& RefundID() const { return m_sRefundID; }

 private:
  void LockExternalPayment() override;

  // --- partial_refund ---
  void CollectPartialRefund(std::int32_t nRow);
  void AddSingleSource(const Recordset& rsSources, double dAmount);
  void AskForPartialRefund(std::int32_t nRow, std::int32_t nPayment);
  /// The hook for a payment that is refunded in part. It does nothing; required.
  void ShowPartialRefund(std::int32_t /*nRow*/) {}

  Ref<Collection> m_vctRefunds;
  std::string m_sRefundID;
};

}  // namespace arap

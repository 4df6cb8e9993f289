#pragma once

#include "engine/record_list.h"

namespace desk {

/// The classes of invoices: 1000000 and 1000002 of sale, 1000003 and 1000004 of purchase.
inline constexpr std::int32_t kInvoiceClasses[] = {1000000, 1000002, 1000003, 1000004};

/// The invoices of one class, without opening balances. Raises DeskError for another class.
RecordListContent invoice_list(std::int32_t nClassType);

/// The opening balances of sale (receivables) or purchase (payables).
enum class OpeningSide : std::uint8_t { Receivables, Payables };
RecordListContent opening_list(OpeningSide side);

}  // namespace desk

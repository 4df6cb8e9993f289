#pragma once

#include <string>
#include <string_view>

#include "services/settlement_tables.h"

/// The lists of a book that the command line prints and the windows show. Each picks its own columns and captions.
namespace desk {

/// What is open on one side, by partner and due date: FPartner and FPartnerName, FBillNo ("" for an opening balance)
/// and FShownNo (never ""), FDate, FDueDate, FCurrency and FCurrencyName, and the amounts FAmountFor, FSettledFor,
/// FOpenFor and, in base currency, FOpen.
std::string open_items_sql(const SettlementTables& tables);

/// Invoices and opening balances of one side, in no order: FInterID, FTranType, FClass, FBillNo, FDate, FDueDate,
/// FPartner and FPartnerName, FCurrency and FCurrencyName, FAmountFor, FReceiveAmountFor, FOpenFor, FNote. The
/// condition names the invoice as `s`.
std::string invoices_sql(const SettlementTables& tables, std::string_view sCondition);

/// Every logged action: FTime, FUser, FMachine, FCode, FResult, FText.
enum class LogOrder : std::uint8_t { OldestFirst, NewestFirst };
std::string action_log_sql(LogOrder order);

}  // namespace desk

#pragma once

#include "services/settlement_tables.h"

namespace desk::testing {

/// Which of the two sides the tables belong to, for what a test says of one side alone.
inline bool money_comes_in(const SettlementTables& tables) { return tables.nClass == kReceiptTables.nClass; }

}  // namespace desk::testing

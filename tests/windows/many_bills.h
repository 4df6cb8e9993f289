#pragma once

#include <string>
#include <tuple>
#include <utility>

#include "data/database.h"
#include "desk/sides.h"
#include "services/other_tables.h"
#include "services/settlement_tables.h"

namespace desk::testing {

/// The first of the numbers that many_bills gives to its bills and invoices.
inline constexpr std::int32_t kFirstNew = 1001;

inline std::string partner_column(const SettlementTables& tables) {
  return money_comes_in(tables) ? "FCustID" : "FSupplyID";
}

/// Open invoices of 100.00 of the partner, "N1001" and so on.
inline void add_invoices(Database& database, const SettlementTables& tables, std::int32_t nCount,
                         std::int32_t nPartner = 1) {
  Transaction transaction(database);
  for (std::int32_t n = kFirstNew; n < kFirstNew + nCount; ++n) {
    database.exec("INSERT INTO " + std::string(tables.sInvoice) +
                      " (FInterID, FClassTypeID, FBillNo, FDate, FDueDate, " + partner_column(tables) +
                      ", FAmountFor, FAmount) VALUES (?, ?, ?, '2026-11-02', '2026-12-02', ?, ?, ?)",
                  {Bind(n), Bind(std::int32_t{money_comes_in(tables) ? 1000002 : 1000004}),
                   Bind("N" + std::to_string(n)), Bind(nPartner), Bind(Money{1'000'000}), Bind(Money{1'000'000})});
  }
  transaction.commit();
}

/// Unchecked bills "B1001" and so on of two entries, 60.00 and 40.00 of an invoice each.
inline void add_bills(Database& database, const SettlementTables& tables, std::int32_t nCount) {
  add_invoices(database, tables, 2 * nCount);
  Transaction transaction(database);
  const std::int32_t nType = money_comes_in(tables) ? 1001 : 1003;
  const std::string sHead =
      side_sql(tables,
               "INSERT INTO {bill} (FBillID, FBillNo, FDate, {partner}, {type}, FAcctID, FAmountFor,"
               " FAmount, F{got}AmountFor, F{got}Amount) VALUES"
               " (?, ?, '2026-11-05', 1, ?, 2, 1000000, 1000000, 1000000, 1000000)");
  const std::string sEntry = side_sql(tables,
                                      "INSERT INTO {entry} (FBillID, FIndex, FClassID_SRC, FInterID, FEntryID_SRC,"
                                      " {number}, FBillUn{got}AmountFor, FBillUn{got}Amount, FBillSettleAmountFor,"
                                      " FBillSettleAmount) VALUES (?, ?, ?, ?, 1, ?, 1000000, 1000000, ?, ?)");
  const std::int32_t nClass = money_comes_in(tables) ? 1000002 : 1000004;
  for (std::int32_t n = kFirstNew; n < kFirstNew + nCount; ++n) {
    database.exec(sHead, {Bind(n), Bind("B" + std::to_string(n)), Bind(nType)});
    for (const auto& [nIndex, nSource, units] : {std::tuple(1, n, 600'000), std::tuple(2, n + nCount, 400'000)})
      database.exec(sEntry, {Bind(n), Bind(nIndex), Bind(nClass), Bind(nSource), Bind("N" + std::to_string(nSource)),
                             Bind(Money{units}), Bind(Money{units})});
  }
  transaction.commit();
}

/// Unchecked other bills "B1001" and so on of the second partner, paid at once: one entry of 60.00 and one of 40.00.
inline void add_other_bills(Database& database, const OtherTables& tables, std::int32_t nCount) {
  Transaction transaction(database);
  const std::string sHead =
      side_sql(tables.side,
               "INSERT INTO {other} (FBillID, FBillNo, FDate, FLimitDate, FBillTypeID, {partner}, FAcctID, FAmountFor,"
               " FAmount) VALUES (?, ?, '2026-11-05', '2026-11-05', ?, 2, 1, 1000000, 1000000)");
  const std::string sEntry =
      side_sql(tables.side,
               "INSERT INTO {other}Entry (FBillID, FIndex, FInOutTypeID, FBillAmountFor, FBillAmount) VALUES"
               " (?, ?, ?, ?, ?)");
  const std::int32_t nFirstType = money_comes_in(tables.side) ? 3 : 5;
  for (std::int32_t n = kFirstNew; n < kFirstNew + nCount; ++n) {
    database.exec(sHead, {Bind(n), Bind("B" + std::to_string(n)), Bind(tables.side.nImmediateType)});
    for (const auto& [nIndex, units] : {std::pair(1, 600'000), std::pair(2, 400'000)})
      database.exec(sEntry,
                    {Bind(n), Bind(nIndex), Bind(nFirstType + nIndex - 1), Bind(Money{units}), Bind(Money{units})});
  }
  transaction.commit();
}

}  // namespace desk::testing

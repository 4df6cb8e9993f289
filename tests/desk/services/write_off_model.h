#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace desk::testing {

/// What other bills and the settlement bills over them must come to, told without a database: amounts are whole cents,
/// and what was written off is added up anew from the checked settlement bills at every question. Each operation
/// answers whether it goes through.
class WriteOffModel {
 public:
  struct Bill {
    bool bCredit = false;
    std::int64_t nCents = 0;
    bool bChecked = false;
  };
  /// Rows of other bill and cents.
  struct Settlement {
    std::vector<std::pair<std::int32_t, std::int64_t>> aRows;
    bool bChecked = false;
  };

  void add(std::int32_t nBill, bool bCredit, std::int64_t nCents) { bills[nBill] = {bCredit, nCents, false}; }
  void add_settlement(std::int32_t nID, std::vector<std::pair<std::int32_t, std::int64_t>> aRows) {
    settlements[nID] = {std::move(aRows), false};
  }

  bool edit(std::int32_t nBill, bool bCredit, std::int64_t nCents) {
    if (!bills.contains(nBill) || bills[nBill].bChecked) return false;
    bills[nBill] = {bCredit, nCents, false};
    return true;
  }
  bool check(std::int32_t nBill) {
    if (!bills.contains(nBill) || bills[nBill].bChecked) return false;
    return bills[nBill].bChecked = true;
  }
  bool uncheck(std::int32_t nBill) {
    if (!bills.contains(nBill) || !bills[nBill].bChecked) return false;
    if (is_drawn(nBill, true)) return false;
    bills[nBill].bChecked = false;
    return true;
  }
  bool remove(std::int32_t nBill) {
    if (!bills.contains(nBill) || bills[nBill].bChecked || is_drawn(nBill, false)) return false;
    return bills.erase(nBill) == 1;
  }

  bool check_settlement(std::int32_t nID) {
    if (!settlements.contains(nID) || settlements[nID].bChecked || !fits(nID, 1)) return false;
    return settlements[nID].bChecked = true;
  }
  bool uncheck_settlement(std::int32_t nID) {
    if (!settlements.contains(nID) || !settlements[nID].bChecked || !fits(nID, -1)) return false;
    settlements[nID].bChecked = false;
    return true;
  }
  bool remove_settlement(std::int32_t nID) {
    if (!settlements.contains(nID) || settlements[nID].bChecked) return false;
    return settlements.erase(nID) == 1;
  }

  /// An immediate bill is written off by itself.
  std::int64_t written_off(std::int32_t nBill) const {
    if (!bills.at(nBill).bCredit) return bills.at(nBill).nCents;
    std::int64_t nCents = 0;
    for (const auto& [nID, settlement] : settlements) {
      if (settlement.bChecked) nCents += drawn(settlement, nBill);
    }
    return nCents;
  }
  std::int64_t open(std::int32_t nBill) const { return bills.at(nBill).nCents - written_off(nBill); }

  std::map<std::int32_t, Bill> bills;
  std::map<std::int32_t, Settlement> settlements;

 private:
  static std::int64_t drawn(const Settlement& settlement, std::int32_t nBill) {
    std::int64_t nCents = 0;
    for (const auto& [nSource, nRow] : settlement.aRows) nCents += nSource == nBill ? nRow : 0;
    return nCents;
  }
  bool is_drawn(std::int32_t nBill, bool bByCheckedOnly) const {
    for (const auto& [nID, settlement] : settlements) {
      if (bByCheckedOnly && !settlement.bChecked) continue;
      for (const auto& [nSource, nRow] : settlement.aRows) {
        if (nSource == nBill) return true;
      }
    }
    return false;
  }
  /// Whether every source is a checked credit bill, and between 0 and its amount afterwards.
  bool fits(std::int32_t nID, std::int64_t nSign) const {
    const Settlement& settlement = settlements.at(nID);
    for (const auto& [nSource, nRow] : settlement.aRows) {
      const auto bill = bills.find(nSource);
      if (bill == bills.end() || !bill->second.bChecked || !bill->second.bCredit) return false;
      const std::int64_t nAfter = written_off(nSource) + nSign * drawn(settlement, nSource);
      const std::int64_t nWhole = bill->second.nCents;
      if (nWhole >= 0 ? nAfter < 0 || nAfter > nWhole : nAfter > 0 || nAfter < nWhole) return false;
    }
    return true;
  }
};

}  // namespace desk::testing

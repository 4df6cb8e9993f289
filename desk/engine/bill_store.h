#pragma once

#include <cstdint>
#include <string>

#include "data/database.h"
#include "engine/bill_data.h"

namespace desk {

/// Stores and loads the bills of a template: the head under FBillID, the rows under FBillID and FIndex.
class BillStore {
 public:
  BillStore(Database& database, const BillTemplate& bill) : database_(database), template_(bill) {}

  struct Stored {
    std::int32_t nBillID = 0;
    std::string sBillNo;
  };

  /// Stores a bill in one transaction: nBillID 0 is a new one, which gets an id and the next number. Rows without a
  /// value in the body's key field aren't stored. Raises DeskError; nothing is half-written then.
  Stored save(const DataRow& head, const BodyPage& body, std::int32_t nBillID);

  /// Fills head and body with the stored values. False when there is no such bill.
  bool load(std::int32_t nBillID, DataRow& head, BodyPage& body);

  /// The id of the bill of that number; 0 when there is none.
  std::int32_t find_number(const std::string& sBillNo);

 private:
  std::string next_number();
  void insert_head(const DataRow& head, const Stored& stored);
  void update_head(const DataRow& head, std::int32_t nBillID);
  void insert_rows(const BodyPage& body, std::int32_t nBillID);
  void fill(DataRow& row, const Rows& rows, std::size_t nRow, const std::vector<int>& aColumns) const;
  std::vector<int> columns_of(const Rows& rows, std::int32_t nPage) const;

  Database& database_;
  const BillTemplate& template_;
};

}  // namespace desk

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "data/database.h"
#include "engine/bill_data.h"
#include "engine/record_store.h"

namespace desk {

/// Stores and loads the bills of a template: the head under FBillID, the rows under FBillID and FIndex.
class BillStore final : public RecordStore {
 public:
  BillStore(Database& database, const BillTemplate& bill) : database_(database), template_(bill) {}

  /// Stores a bill in one transaction: nBillID 0 is a new one, which gets an id and, unless the user has typed one, the
  /// next number. Rows without a value in the body's key field aren't stored, and rows that the book holds already
  /// aren't written again. Raises DeskError, also when the typed number is taken, or when another seat has stored or
  /// checked the bill since the body was read; nothing is half-written then. `guard` is asked first inside the
  /// transaction and raises what forbids the save.
  Stored save(const DataRow& head, BodyPage& body, std::int32_t nBillID,
              const std::function<void()>& guard = {}) override;

  /// Fills head and body with the stored values. False when there is no such bill. The rows of a body that is still the
  /// book's last one aren't read again.
  bool load(std::int32_t nBillID, DataRow& head, BodyPage& body) override;

  /// The id of the bill of that number; 0 when there is none.
  std::int32_t find_number(const std::string& sBillNo) override;

  std::int32_t neighbour(std::int32_t nBillID, Direction direction) override;

 private:
  std::string typed_number(const DataRow& head, std::int32_t nBillID);
  std::string next_number();
  std::string count_up();
  void insert_head(const DataRow& head, const Stored& stored);
  void update_head(const DataRow& head, std::int32_t nBillID, const BodyInBook& state);
  std::vector<DataRow*> used_rows(const BodyPage& body) const;
  void delete_former_rows(const std::vector<DataRow*>& aRows, const BodyInBook& state);
  void insert_rows(const std::vector<DataRow*>& aRows, const BodyInBook& state);
  static void note_stored(const std::vector<DataRow*>& aRows, const BodyInBook& state);
  void read_rows(const Rows& rows, BodyPage& body) const;
  void fill(DataRow& row, const Rows& rows, std::size_t nRow, const std::vector<int>& aColumns) const;
  std::vector<int> columns_of(const Rows& rows, std::int32_t nPage) const;

  Database& database_;
  const BillTemplate& template_;
};

}  // namespace desk

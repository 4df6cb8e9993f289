#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace desk {

class DataRow;
class BodyPage;

/// Keeps what a bill window edits: a head with its rows, under an id.
class RecordStore {
 public:
  struct Stored {
    std::int32_t nBillID = 0;
    std::string sBillNo;
  };

  enum class Direction { Previous, Next };

  RecordStore() = default;
  RecordStore(const RecordStore&) = delete;
  RecordStore& operator=(const RecordStore&) = delete;
  virtual ~RecordStore() = default;

  /// Stores in one transaction: nBillID 0 is a new record. `guard` is asked first inside it and raises what forbids the
  /// save. Raises DeskError; nothing is half-written then.
  virtual Stored save(const DataRow& head, BodyPage& body, std::int32_t nBillID,
                      const std::function<void()>& guard = {}) = 0;
  /// Fills head and body with the stored values. False when there is no such record.
  virtual bool load(std::int32_t nBillID, DataRow& head, BodyPage& body) = 0;
  /// The id of the record of that number; 0 when there is none.
  virtual std::int32_t find_number(const std::string& sNumber) = 0;
  /// The id of the record before or after that one in the order of the list; 0 when there is none. After id 0, a new
  /// record, comes nothing, and before it the last one. A store without an order knows no neighbours.
  virtual std::int32_t neighbour(std::int32_t, Direction) { return 0; }
};

}  // namespace desk

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/record_store.h"

namespace desk {

class BillTemplate;

/// A record of base data, and a node of its tree.
struct BaseItem {
  std::int32_t nID = 0;
  std::int32_t nParent = 0;  // id of the node above; the root of the tree is no record
  std::int32_t nBranch = 0;
  std::int32_t nLevel = 0;  // 1 is the top of a branch
  std::string sNumber;
  std::string sName;
  bool bLeaf = true;
  bool bDiscontinued = false;

  bool operator==(const BaseItem&) const = default;
};

/// The records behind a base-data window. Each member raises DeskError for what the book refuses or can't do.
class BaseData {
 public:
  BaseData() = default;
  BaseData(const BaseData&) = delete;
  BaseData& operator=(const BaseData&) = delete;
  virtual ~BaseData() = default;

  /// The id and name of the node above the branches.
  virtual std::int32_t root() const = 0;
  virtual std::string root_name() const = 0;
  /// All records in the order of their numbers.
  virtual std::vector<BaseItem> items() = 0;
  virtual void remove(std::int32_t nID) = 0;
  virtual void set_discontinued(std::int32_t nID, bool bDiscontinued) = 0;
  /// What keeps the records that are edited in that branch. The template outlives it.
  virtual std::unique_ptr<RecordStore> store(const BillTemplate& bill, std::int32_t nBranch) = 0;
  /// The condition that shows the records of that branch; the window's filter.
  virtual std::string filter(std::int32_t nBranch) const = 0;
};

}  // namespace desk

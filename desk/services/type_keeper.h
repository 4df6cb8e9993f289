#pragma once

#include "engine/base_window.h"
#include "services/session.h"

namespace desk {

/// The income and expense types of a book, as a seat works on them: the tree, its order and what may go. The rules of a
/// type's own entry are the plug-in's; here stands what no seat may break, whoever asks.
class TypeKeeper final : public BaseData {
 public:
  /// The session outlives the keeper.
  explicit TypeKeeper(Session& session) : session_(session) {}

  std::int32_t root() const override;
  std::string root_name() const override { return "收支类别"; }
  std::vector<BaseItem> items() override;
  /// Raises DeskError for a type in use, for one of the two branches, and while another seat works on it.
  void remove(std::int32_t nID) override;
  /// Raises DeskError for one of the two branches, and while another seat works on the type.
  void set_discontinued(std::int32_t nID, bool bDiscontinued) override;
  std::unique_ptr<RecordStore> store(const BillTemplate& bill, std::int32_t nBranch) override;
  std::string filter(std::int32_t nBranch) const override;

 private:
  void run_alone(std::string_view sFunction, std::int32_t nID, const std::function<void()>& work);

  Session& session_;
};

/// Keeps the types that are edited in one branch. A type's number says where it lies: the store computes parent, level
/// and leaves, and moves the bill lines of a detail type that gets its first child to that child.
class TypeStore final : public RecordStore {
 public:
  /// The database outlives the store.
  TypeStore(Database& database, const BillTemplate& bill, std::int32_t nBranch)
      : database_(database), template_(bill), branch_(nBranch) {}

  /// Raises DeskError for a type without number or name, a number that is there, a parent that isn't in the branch, a
  /// new number of a type with children, a fixed branch, and a type that is gone.
  Stored save(const DataRow& head, BodyPage& body, std::int32_t nID, const std::function<void()>& guard = {}) override;
  bool load(std::int32_t nID, DataRow& head, BodyPage& body) override;
  std::int32_t find_number(const std::string& sNumber) override;

 private:
  struct Place {
    std::int32_t nParent = 0;
    std::int32_t nLevel = 1;
  };
  struct Entry {
    std::string sNumber;
    std::string sName;
    std::int32_t nAcctID = 0;
    std::string sNote;
  };

  Entry read(const DataRow& head) const;
  void refuse_entry(const Entry& entry, std::int32_t nID);
  Place place_of(const std::string& sNumber, std::int32_t nID);
  std::int32_t insert(const Entry& entry, const Place& place);
  void update(const Entry& entry, const Place& place, std::int32_t nID);
  void move_business(std::int32_t nFrom, std::int32_t nTo);

  Database& database_;
  const BillTemplate& template_;
  std::int32_t branch_;
};

/// Opens the tree of types with the plug-in's class behind it, and its small bill.
OpenBaseWindow open_type_window(Session& session, const std::string& sToday);
/// Opens the read-only list of types.
OpenBaseWindow open_type_view(Session& session, const std::string& sToday);

}  // namespace desk

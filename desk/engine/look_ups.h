#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/database.h"
#include "engine/bill_template.h"

namespace desk {

/// An entry of a look-up field's list.
struct LookUpItem {
  Value vId;
  std::string sCode;
  std::string sName;
};

/// What a cell shows of an item; the texts are shared by all cells that do.
struct ShownItem {
  Value vName;
  Value vCode;
};

/// Finds base data for the look-up fields. Items found by id are kept until forget(), so that a body of thousands of
/// rows asks once for each partner and currency.
class LookUps {
 public:
  explicit LookUps(Database& database) : database_(database) {}

  /// nullptr when there is none.
  const ShownItem* by_id(const LookUpSource& source, std::int32_t nId);
  /// By exact code, then by name; sFilter is a condition in the words of the plug-in, "" for none.
  std::optional<LookUpItem> by_text(const LookUpSource& source, std::string_view sText, std::string_view sFilter);
  /// All entries under the filter, by code.
  std::vector<LookUpItem> list(const LookUpSource& source, std::string_view sFilter);
  void forget() { kept_.clear(); }

 private:
  Rows select(const LookUpSource& source, const std::string& sCondition, const Binds& binds, std::string_view sFilter);

  Database& database_;
  std::map<std::string, std::unordered_map<std::int32_t, std::optional<ShownItem>>> kept_;  // by table and id
};

}  // namespace desk

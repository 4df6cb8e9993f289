#pragma once

#include <cstdint>
#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// The root of the tree of types, and the class of base data that they are.
inline constexpr std::int32_t kTypeRoot = 1000207;

/// The server's questions about types: one call, and which of its arguments are given says what is asked. Raises what
/// the server raises.
class TypeServer {
 public:
  TypeServer();

  Recordset ById(std::int32_t nID) const;
  /// In both branches.
  Recordset ByNumber(std::string_view sNumber) const;
  Recordset ByNumberInBranch(std::string_view sNumber, std::int32_t nBranch) const;
  Recordset ByName(std::string_view sName) const;
  Recordset ByNameUnder(std::string_view sName, std::string_view sParentNumber) const;
  /// True when the type has children or bills use it.
  bool IsUsed(std::int32_t nID) const;
  bool IsNumberUsed(std::string_view sNumber) const;

 private:
  Ref<Object> server_;
};

/// False, with the reason in a box of that title, when the type is gone or disabled; false without a word after an
/// error.
bool CheckTypeUsable(std::int32_t nID, std::string_view sTitle);

}  // namespace arap

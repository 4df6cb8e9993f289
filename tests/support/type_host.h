#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/test_bill.h"
#include "support/test_session.h"

namespace arap::testing {

/// The income and expense types behind NUVlpsArApBill.clsInOutType: both queries with every choice of arguments.
class TypeTable {
 public:
  struct Type {
    std::int32_t nID;
    std::string sNumber;
    std::string sName;
    std::int32_t nParent;
    std::int32_t nLevels;  // 1 on the top of a branch
    bool bLeaf;
    std::int32_t nBranch;  // 1 income, 2 expense
    bool bUsed = false;
    bool bDiscontinued = false;
  };

  /// Takes over the session's stub, with these types:
  /// 1: 101 销售收入 (11) - 101.01 运费收入 (12); 102 其他收入 (13). 2: 201 办公费 (21); 202 差旅费 (22) - 202.01 机票
  /// (23).
  explicit TypeTable(TestSession& session);
  static std::vector<Type> standard();

  std::vector<Type> types = standard();
  /// Fails the test's assumption with error 9 when there is no such type.
  Type& at(std::int32_t nID);
  void erase(std::int32_t nID);

 private:
  Variant answer(Arguments args) const;
  bool is_used(Arguments args) const;
};

/// The small bill of a type: a new one in the branch of income.
Ref<TestBill> make_type_bill();

}  // namespace arap::testing

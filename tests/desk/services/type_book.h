#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "desk/services/small_book.h"
#include "frame/conversions.h"
#include "services/type_keeper.h"

namespace desk::testing {

/// A small book with the two branches and a few types: 收入 (1) - 101 销售 (11) - 101.01 运费 (12), 102 其他 (13);
/// 支出 (2) - 201 办公费 (21), 202 差旅费 (22). Bills use 运费, and 其他 with one line on either side.
class TypeBook : public ::testing::Test {
 protected:
  TypeBook() {
    book.database().exec_script(R"sql(
      INSERT INTO t_RP_InOutType (FID, FNumber, FName, FParentID, FLevels, FIsLeaf, FBranch) VALUES
        (1, '1', '收入', 1000207, 1, 0, 1), (2, '2', '支出', 1000207, 1, 0, 2), (11, '101', '销售', 1, 1, 0, 1),
        (12, '101.01', '运费', 11, 2, 1, 1), (13, '102', '其他', 1, 1, 1, 1), (21, '201', '办公费', 2, 1, 1, 2),
        (22, '202', '差旅费', 2, 1, 1, 2);
      INSERT INTO t_RP_ROtherBill (FBillID, FBillNo, FDate, FBillTypeID) VALUES (1, 'QT1', '2026-11-05', 1006);
      INSERT INTO t_RP_ROtherBillEntry (FBillID, FIndex, FInOutTypeID) VALUES (1, 1, 12), (1, 2, 13);
      INSERT INTO t_RP_POtherBill (FBillID, FBillNo, FDate, FBillTypeID) VALUES (1, 'FY1', '2026-11-05', 1008);
      INSERT INTO t_RP_POtherBillEntry (FBillID, FIndex, FInOutTypeID) VALUES (1, 1, 13);
    )sql");
    window = open_type_window(session, "2026-11-21");
  }

  /// Where a type lies: "101.01 < 101, level 2, leaf", with "disabled" where it is; "gone" for a number that isn't
  /// there.
  std::string place(const std::string& sNumber) {
    const Rows rows = book.database().query(
        "SELECT t.FNumber, COALESCE(p.FNumber, '') AS FAbove, t.FLevels, t.FIsLeaf, t.FDiscontinued FROM "
        "t_RP_InOutType t"
        " LEFT JOIN t_RP_InOutType p ON p.FID = t.FParentID WHERE t.FNumber = ?",
        {Bind(sNumber)});
    if (rows.empty()) return "gone";
    return rows.text(0, "FNumber") + " < " + rows.text(0, "FAbove") + ", level " + rows.text(0, "FLevels") + ", " +
           (rows.integer(0, "FIsLeaf") != 0 ? "leaf" : "parent") +
           (rows.integer(0, "FDiscontinued") != 0 ? ", disabled" : "");
  }
  /// How many bill lines of both sides name the type.
  std::int32_t lines(const std::string& sNumber) {
    return arap::LongOf(book.database().value(
        "SELECT (SELECT COUNT(*) FROM t_RP_ROtherBillEntry e WHERE e.FInOutTypeID = t.FID) + (SELECT COUNT(*) FROM"
        " t_RP_POtherBillEntry e WHERE e.FInOutTypeID = t.FID) FROM t_RP_InOutType t WHERE t.FNumber = ?",
        {Bind(sNumber)}, std::int32_t{-1}));
  }
  std::int32_t tasks() { return arap::LongOf(book.database().value("SELECT COUNT(*) FROM t_Task")); }

  /// Points at a type in the grid of its parent.
  void point_at(const std::string& sNumber) {
    const BaseItem* pItem = window->find_number(sNumber);
    ASSERT_NE(pItem, nullptr) << sNumber;
    const std::int32_t nID = pItem->nID;
    ASSERT_TRUE(window->select_node(pItem->nParent));
    ASSERT_TRUE(window->select_item(nID));
  }
  /// Begins a new type under a node and fills it in.
  void begin(std::int32_t nNode, const std::string& sNumber, const std::string& sName) {
    ASSERT_TRUE(window->select_node(nNode));
    ASSERT_TRUE(window->press("mnuFileNewItem"));
    fill(sNumber, sName);
  }
  void fill(const std::string& sNumber, const std::string& sName) {
    ASSERT_NE(window->bill(), nullptr);
    ASSERT_TRUE(window->bill()->type_field("FNumber", -1, sNumber));
    ASSERT_TRUE(window->bill()->type_field("FName", -1, sName));
  }
  Outcome save() { return window->bill()->save(); }
  std::string shown(std::string_view sKey) { return window->bill()->shown(sKey); }
  std::vector<std::string> told() {
    std::vector<std::string> aTexts;
    for (const ShownMessage& message : session.platform().messages()) aTexts.push_back(message.sText);
    session.platform().clear_messages();
    return aTexts;
  }
  using Texts = std::vector<std::string>;

  SmallBook book;
  Session session{book.database(), "li"};
  OpenBaseWindow window;
};

inline constexpr std::int32_t kIncome = 1;
inline constexpr std::int32_t kExpense = 2;

}  // namespace desk::testing

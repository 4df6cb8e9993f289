#include <functional>

#include "plugin/inouttypes/type_fixture.h"

namespace arap::testing {
namespace {

/// The chain of the save: for every set of faults the first one in order answers, and nothing behind it runs.
class TypeSaveLadder : public TypeTest {
 protected:
  struct Fault {
    std::string sText;
    int nStyle;
    std::function<void()> make;
  };

  /// The type 101.02 under 101; each fault changes the books so that one test alone fails.
  std::vector<Fault> faults() {
    return {
        {"编码重复，请更改！", 64,
         [this] {
           types.types.push_back({91, "101.02", "别的", 2, 2, true, 2});
         }},
        {"上级类别代码101 不存在！", 64, [this] { types.at(11).nBranch = 2; }},
        {"同级名称重复，不允许保存！", 64,
         [this] {
           types.types.push_back({92, "101.03", "装卸", 11, 2, true, 1});
         }},
        {"名称重复，是否保存？", 68,
         [this] {
           types.types.push_back({93, "102.03", "装卸", 13, 2, true, 1});
         }},
        {"上级收支类别 销售收入 是明细,并已有业务发生,不能直接新建子收支类别。是否将上级收支类别业务转到新建立的的收支"
         "类别上？",
         68, [this] { types.at(11).bUsed = true; }},
    };
  }
};

TEST_F(TypeSaveLadder, ForEverySetOfFaultsTheFirstInOrderAnswersAlone) {
  const std::size_t nFaults = faults().size();
  for (unsigned nSet = 1; nSet < (1u << nFaults); ++nSet) {
    types.types = TypeTable::standard();
    const std::vector<Fault> aFaults = faults();
    std::size_t nFirst = nFaults;
    for (std::size_t n = nFaults; n-- > 0;) {
      if ((nSet >> n & 1u) == 0) continue;
      aFaults[n].make();
      nFirst = n;
    }
    session.platform.messages.clear();
    session.platform.answer(7);  // for the questions; a notice has no answer to take
    enter(0, "101.02", "装卸");
    bill->head("FPreNumber", "before");
    ASSERT_TRUE(bill->save()) << nSet;
    EXPECT_EQ(boxes(), box(aFaults[nFirst].sText, aFaults[nFirst].nStyle)) << nSet;
    EXPECT_EQ(bill->text("FPreNumber"), nFirst == 0 ? "before" : "101") << nSet;
  }
}

TEST_F(TypeSaveLadder, WithEveryQuestionAnsweredYesOnlyTheRefusalsStop) {
  for (const Fault& fault : faults()) {
    types.types = TypeTable::standard();
    fault.make();
    enter(0, "101.02", "装卸");
    EXPECT_EQ(bill->save(), fault.nStyle == 64) << fault.sText;
  }
}

}  // namespace
}  // namespace arap::testing

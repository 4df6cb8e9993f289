#include "plugin/inouttypes/type_fixture.h"
#include "support/case_name.h"

namespace arap::testing {
namespace {

constexpr int kYes = 6;
constexpr int kNo = 7;

class TypeSave : public TypeTest {
 protected:
  static std::string transfer_of(const std::string& sParent) {
    return "上级收支类别 " + sParent +
           " 是明细,并已有业务发生,不能直接新建子收支类别。是否将上级收支类别业务转到新建立的的收支类别上？";
  }
  void branch(std::string_view sFilter) { bill->filter_values->set("FilterString", sFilter); }
};

TEST_F(TypeSave, ASoundTypeIsSavedWithoutAWord) {
  enter(0, "101.02", "装卸收入");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
  EXPECT_EQ(bill->text("FPreNumber"), "101");
  ExpectGolden("inouttypes", "before_save");
}

TEST_F(TypeSave, AParentThatIsMissingIsNamedAndStandsInTheBillAlready) {
  types.erase(11);
  types.erase(12);
  enter(0, "101.01", "运费");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("上级类别代码101 不存在！"));
  EXPECT_EQ(bill->text("FPreNumber"), "101");
}

TEST_F(TypeSave, ANumberWithATrailingPointHasAParentAndAnEmptyShortNumber) {
  enter(0, "101.", "尾点");
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->text("FPreNumber"), "101");
  enter(0, "109.", "尾点");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("上级类别代码109 不存在！"));
}

TEST_F(TypeSave, ATypeOnTheTopHasNoParent) {
  bill->head("FPreNumber", "101");
  enter(0, "103", "新增");
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(bill->text("FPreNumber"), "");
}

TEST_F(TypeSave, ATypeKeepsItsOwnNumber) {
  load(12);
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TypeSave, ATypeThatBecomesItsOwnParentIsMissingOne) {
  load(13);
  bill->head("FNumber", "102.01");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("上级类别代码102 不存在！"));
}

TEST_F(TypeSave, ANumberOfTheOtherBranchIsADuplicate) {
  enter(0, "201", "重复");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("编码重复，请更改！"));
  EXPECT_FALSE(trace().has("FPreNumber.FFLD"));
}

TEST_F(TypeSave, AnyRecordOfAnotherTypeMakesTheNumberADuplicate) {
  types.types.push_back({14, "102", "二重", 1, 1, true, 1});
  load(13);
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("编码重复，请更改！"));
}

TEST_F(TypeSave, AParentOfTheOtherBranchIsMissing) {
  enter(0, "202.05", "住宿");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("上级类别代码202 不存在！"));
  branch("FRootID=2 And FDeleted=0");
  EXPECT_FALSE(bill->save());
}

TEST_F(TypeSave, AnEmptyNumberIsNotTested) {
  types.types.push_back({14, "", "无码", 1, 1, true, 1});
  enter(0, "", "空码");
  EXPECT_FALSE(bill->save());
  EXPECT_FALSE(trace().has("GetRPInOutTypeInfo(\"p;\", missing, \"\")"));
}

TEST_F(TypeSave, ASiblingOfTheNameRefuses) {
  enter(0, "101.02", "运费收入");
  EXPECT_TRUE(bill->save());
  EXPECT_EQ(boxes(), box("同级名称重复，不允许保存！"));
}

TEST_F(TypeSave, ATypeElsewhereOfTheNameIsAskedAbout) {
  for (const int nAnswer : {kYes, kNo}) {
    session.platform.messages.clear();
    session.platform.answer(nAnswer);
    enter(0, "101.02", "机票");
    EXPECT_EQ(bill->save(), nAnswer == kNo);
    EXPECT_EQ(boxes(), box("名称重复，是否保存？", 68));
  }
}

TEST_F(TypeSave, TheNameOfATopLevelTypeIsSavedWithoutAQuestion) {
  enter(0, "103", "其他收入");
  EXPECT_FALSE(bill->save());
  enter(0, "101.02", "办公费");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TypeSave, OnlyTheFirstTypeOfTheNameIsLookedAt) {
  types.types.push_back({14, "103", "机票", 1, 1, true, 1});
  std::rotate(types.types.begin(), types.types.end() - 1, types.types.end());
  enter(0, "101.02", "机票");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TypeSave, AnEmptyNameIsNotTested) {
  types.types.push_back({14, "101.09", "", 11, 2, true, 1});
  enter(0, "101.02", "");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TypeSave, ChildOfAParentInUseAsksForTheTransfer) {
  types.at(13).bUsed = true;
  types.at(13).sName = "  其他收入 ";
  plugin = CreatePublicObject("NUVARAPBillInterface.clsRPInOutType");
  plugin->call(Member::Show, bill);
  for (const int nAnswer : {kYes, kNo, 2}) {
    session.platform.messages.clear();
    session.platform.answer(nAnswer);
    enter(0, "102.01", "利息");
    EXPECT_EQ(bill->save(), nAnswer != kYes) << nAnswer;
    EXPECT_EQ(boxes(), box(transfer_of("其他收入"), 68));
  }
  EXPECT_EQ(session.server("NUVlpsArApBill.clsInOutType").last(Member::CheckRPInOutTypeUsed).size(), 3u);
}

TEST_F(TypeSave, TheTransferIsAskedOnModifyingAChildToo) {
  types.at(11).bUsed = true;
  load(12);
  EXPECT_FALSE(bill->save());
  EXPECT_EQ(boxes(), box(transfer_of("销售收入"), 68));
}

TEST_F(TypeSave, AParentThatTheCacheLacksIsNotAskedAbout) {
  types.types.push_back({14, "103", "后来", 1, 1, true, 1, true});
  enter(0, "103.01", "子类");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
  EXPECT_FALSE(trace().has("CheckRPInOutTypeUsed"));
}

TEST_F(TypeSave, TheNumberCountsAsSavedEvenWhenTheTransferIsDeclined) {
  types.at(11).bUsed = true;
  session.platform.answer(kNo);
  enter(0, "101.05", "新增");
  ASSERT_TRUE(bill->save());
  bill->fire(Event::AfterNewEmptyData);
  EXPECT_EQ(bill->text("FNumber"), "101.06");
}

TEST_F(TypeSave, ARefusedNumberIsNotTheOneSavedLast) {
  enter(0, "201", "重复");
  ASSERT_TRUE(bill->save());
  bill->fire(Event::AfterNewEmptyData);
  EXPECT_EQ(bill->text("FNumber"), "");
}

struct BranchCase {
  const char* sFilter;
  std::int32_t nBranch;
};
void PrintTo(const BranchCase& example, std::ostream* pStream) { *pStream << example.sFilter; }
class TypeSaveBranch : public TypeSave, public ::testing::WithParamInterface<BranchCase> {};
INSTANTIATE_TEST_SUITE_P(Filters, TypeSaveBranch,
                         ::testing::Values(BranchCase{"FRootID=2 And FX=1", 2}, BranchCase{"FRootID= 1 AND F=2", 1},
                                           BranchCase{"FRootID=A", 0}, BranchCase{"3 And F=4 And", 4},
                                           BranchCase{"7A", 7}, BranchCase{"F=12AND", 12}, BranchCase{"F='2' And", 0},
                                           BranchCase{"F=1 and F=2 And", 1}),
                         [](const auto& test) { return case_name(test.index, test.param.sFilter); });

TEST_P(TypeSaveBranch, IsTheNumberBehindTheFirstEqualSignBeforeTheFirstA) {
  branch(GetParam().sFilter);
  enter(0, "101.02", "装卸");
  bill->save();
  EXPECT_TRUE(trace().has("GetRPInOutTypeInfo(\"p;\", missing, \"101\", missing, missing, " +
                          std::to_string(GetParam().nBranch) + ")"));
}

TEST_F(TypeSave, AConditionWithoutAnAndLetsTheSaveGoOnUntested) {
  for (const char* sFilter : {"FRootID=1", "", "FRootID=1 and"}) {
    branch(sFilter);
    enter(0, "201", "重复");
    EXPECT_FALSE(bill->save()) << sFilter;
    EXPECT_TRUE(boxes().empty());
    EXPECT_FALSE(trace().has("GetRPInOutTypeInfo"));
  }
}

TEST_F(TypeSave, AnErrorOfTheServerLetsTheSaveGoOnWithoutTheRemainingTests) {
  session.server("NUVlpsArApBill.clsInOutType").fails(Member::GetRPInOutTypeInfo, -5, "gone");
  enter(0, "201", "重复");
  EXPECT_FALSE(bill->save());
  EXPECT_TRUE(boxes().empty());
}

TEST_F(TypeSave, AnErrorLeavesCancelAsTheHostGaveIt) {
  session.remove_server("NUVlpsArApBill.clsInOutType");
  std::array<Variant, 1> args{true};
  bill->events.fire(Event::BeforeSave, args);
  EXPECT_TRUE(args[0].as<bool>());
}

}  // namespace
}  // namespace arap::testing

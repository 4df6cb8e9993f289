#include "frame/text_utils.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "frame/messages.h"
#include "frame/module_state.h"
#include "frame/platform.h"

namespace arap {
namespace {

class FontLoader final : public Object {
 public:
  explicit FontLoader(std::vector<std::string>& calls) : calls_(calls) {}
  std::string type_name() const override { return "FrmResLoader"; }
  Variant invoke(Member member, Access, Arguments args) override {
    if (member != Member::SetFrmFont) no_such_member(member);
    calls_.push_back(argument(args, 0).object()->type_name() + " " + Concat(argument(args, 1)));
    return {};
  }

 private:
  std::vector<std::string>& calls_;
};

class Login final : public Object {
 public:
  explicit Login(std::string sProps) : props_(std::move(sProps)) {}
  std::string type_name() const override { return "Login"; }
  Variant invoke(Member member, Access, Arguments) override {
    if (member != Member::PropsString) no_such_member(member);
    return props_;
  }

 private:
  std::string props_;
};

class Machine final : public Platform {
 public:
  Machine() { InstallPlatform(this); }
  ~Machine() override { InstallPlatform(nullptr); }
  int MsgBox(std::string_view sText, int nButtons, std::string_view sTitle) override {
    boxes.push_back(std::string(sText) + "|" + std::to_string(nButtons) + "|" + std::string(sTitle));
    return nAnswer;
  }
  void SetMousePointer(int) override {}
  Ref<Object> CreateObject(std::string_view sProgID) override {
    created.emplace_back(sProgID);
    if (sProgID != "NUVFrmRes.FrmResLoader") throw AutomationError(ErrorNumber::CannotCreateObject, sProgID);
    return make_object<FontLoader>(fonts);
  }
  std::optional<std::string> ComputerName() override { return std::nullopt; }
  std::int32_t ProcessId() override { return 1; }
  std::string ApplicationPath() override { return {}; }
  std::string LibraryPath() override { return {}; }
  void StartHelpViewer(std::string_view) override {}
  bool FileExists(std::string_view) override { return false; }
  int FileAttributes(std::string_view) override { return 0; }
  void SetFileAttributes(std::string_view, int) override {}
  Variant Picture(std::string_view) override { return {}; }

  int nAnswer = 1;
  std::vector<std::string> boxes;
  std::vector<std::string> created;
  std::vector<std::string> fonts;
};

using Pairs = std::vector<std::pair<std::string, std::string>>;

struct PropsCase {
  std::string_view sProps;
  Pairs aExpected;
};

class TextUtils : public ::testing::Test {
 protected:
  void log_in(std::string sProps) { Module().oLogin = make_object<Login>(std::move(sProps)); }

  Machine machine_;
  ModuleUse use_;
};

TEST_F(TextUtils, PropsStringIsReadIntoPairs) {
  const PropsCase aCases[] = {
      {"", {}},
      {"  ", {}},
      {"A=1;B={x=1;y=2};C=3", {{"A", "1"}, {"B", "x=1;y=2"}, {"C", "3"}}},
      {"A=1;", {{"A", "1"}}},
      {"abc", {{"abc", ""}}},
      {" abc ", {{"abc", ""}}},
      {"A=1;abc", {{"A", "1"}, {"abc", ""}}},
      {" A = 1 2 ; B =\t3", {{"A", "1 2"}, {"B", "\t3"}}},
      {"A=;B=2", {{"A", ""}, {"B", "2"}}},
      {"A=b=c;D=4", {{"A", "b=c"}, {"D", "4"}}},
      {"A= { x ; y } dropped ;B=2", {{"A", "x ; y"}, {"B", "2"}}},
      {"A={x}dropped", {{"A", "x"}}},
      {"A={x;y", {{"A", "x;y"}}},
      {"A={};B=2", {{"A", ""}, {"B", "2"}}},
      {"A=x{y;z}=2", {{"A", "x{y"}, {"z}", "2"}}},
      {"A={a{b}c};B=2", {{"A", "a{b"}, {"B", "2"}}},
      {"=1;A=2", {}},
      {"A=1;=2;B=3", {{"A", "1"}}},
      {"A=1;;B=3", {{"A", "1"}, {";B", "3"}}},
      {"用户=张三;B=2", {{"用户", "张三"}, {"B", "2"}}},
  };
  for (const auto& [sProps, aExpected] : aCases) {
    EXPECT_TRUE(ParsePropsString(sProps));
    EXPECT_EQ(Module().aProps, aExpected) << sProps;
    EXPECT_EQ(Module().sProps, sProps);
  }
}

TEST_F(TextUtils, RepeatedKeyInAnyCaseRaises457AndLeavesThePairsBeforeIt) {
  try {
    ParsePropsString("Key=1;Other=2;KEY=3;Last=4");
    FAIL();
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 457);
  }
  EXPECT_EQ(Module().aProps, (Pairs{{"Key", "1"}, {"Other", "2"}}));
}

TEST_F(TextUtils, PropsStringOfRandomPiecesKeepsEveryPair) {
  std::mt19937 random(784);
  for (int n = 0; n < 2000; ++n) {
    Pairs aPairs;
    std::string sProps;
    for (std::size_t i = 0, nPairs = random() % 6; i < nPairs; ++i) {
      std::string sValue;
      for (std::size_t k = 0, nSize = random() % 8; k < nSize; ++k) sValue.push_back("a1;={ ."[random() % 7]);
      sValue = Trim(sValue);
      aPairs.emplace_back("Key" + std::to_string(i), sValue);
      sProps += aPairs.back().first + "={" + sValue + "};";
    }
    ParsePropsString(sProps);
    ASSERT_EQ(Module().aProps, aPairs) << sProps;
  }
}

TEST_F(TextUtils, ParsingAgainReplacesTheTable) {
  ParsePropsString("A=1;B=2");
  ParsePropsString("A=3");
  EXPECT_EQ(Module().aProps, (Pairs{{"A", "3"}}));
}

TEST(ParsePropsString, NeedsALivingModule) { EXPECT_THROW(ParsePropsString("A=1"), AutomationError); }

TEST_F(TextUtils, PropsValueIsFoundByNameInAnyCase) {
  log_in("ConnectString={Provider=X;Data Source=db};UserName=张三;UserID=16394");
  EXPECT_EQ(GetPropsValueByName("username"), "张三");
  EXPECT_EQ(GetPropsValueByName("UserID"), "16394");
  EXPECT_EQ(GetPropsValueByName("Nobody"), "");
  EXPECT_EQ(GetPropsValueByName("Provider"), "X");
}

TEST_F(TextUtils, PropsValueIsCutAtTheNextSemicolonWithoutRegardToBraces) {
  log_in("ConnectString={Provider=X;Data Source=db};");
  EXPECT_EQ(GetPropsValueByName("ConnectString"), "{Provider=X");
}

TEST_F(TextUtils, PropsValueOfAShorterNameIsTheFirstThatEndsInIt) {
  log_in("UserName=a;Name=b");
  EXPECT_EQ(GetPropsValueByName("Name"), "a");
}

TEST_F(TextUtils, LanguageIsAlwaysSimplifiedChinese) {
  log_in("Language=en");
  EXPECT_EQ(GetPropsValueByName("Language"), "chs");
  EXPECT_EQ(GetPropsValueByName("LANGUAGE"), "chs");
  EXPECT_EQ(GetPropsValueByName("language"), "chs");
}

TEST_F(TextUtils, FontLoaderIsMadeOnceAndToldTheLanguage) {
  const auto oForm = make_object<Login>("");
  ApplyFormFont(oForm);
  ApplyFormFont(oForm);
  EXPECT_EQ(machine_.created, std::vector<std::string>{"NUVFrmRes.FrmResLoader"});
  EXPECT_EQ(machine_.fonts, (std::vector<std::string>{"Login chs", "Login chs"}));
  EXPECT_EQ(Module().sLanguage, "chs");
}

TEST_F(TextUtils, ALanguageThatIsHeldAlreadyIsKept) {
  Module().sLanguage = "cht";
  ApplyFormFont(make_object<Login>(""));
  EXPECT_EQ(machine_.fonts, std::vector<std::string>{"Login cht"});
}

TEST_F(TextUtils, MessageBoxPassesTextStyleTitleAndAnswer) {
  machine_.nAnswer = kAnswerYes;
  EXPECT_EQ(ShowMessage("是否删除数据 ?", kQuestion, kTitle), 6);
  machine_.nAnswer = 7;
  EXPECT_EQ(ShowMessage("第1行", kWarning, "标题"), 7);
  ShowInfo("单据未记账。");
  EXPECT_EQ(machine_.boxes,
            (std::vector<std::string>{"是否删除数据 ?|36|青柚提示", "第1行|48|标题", "单据未记账。|64|青柚提示"}));
}

TEST(LoadText, GivesItsTextBack) {
  EXPECT_EQ(LoadText("审核%1"), "审核%1");
  EXPECT_EQ(LoadText(""), "");
}

TEST(FormatText, ReplacesPlaceholdersInOnePass) {
  EXPECT_EQ(FormatText("单据[%1]失败!", {"RP1"}), "单据[RP1]失败!");
  EXPECT_EQ(FormatText("%2-%1-%2", {"a", "b"}), "b-a-b");
  EXPECT_EQ(FormatText("%1%2", {"%2", "x"}), "%2x");
  EXPECT_EQ(FormatText("%1", {""}), "");
  EXPECT_EQ(FormatText("", {"a"}), "");
}

TEST(FormatText, LeavesPlaceholdersWithoutAnArgument) {
  EXPECT_EQ(FormatText("第%1行"), "第%1行");
  EXPECT_EQ(FormatText("%1 %2 %0", {"a"}), "a %2 %0");
  EXPECT_EQ(FormatText("100%", {"a"}), "100%");
  EXPECT_EQ(FormatText("%% %x", {"a"}), "%% %x");
  EXPECT_EQ(FormatText("%99999999999999999999", {"a"}), "%99999999999999999999");
}

TEST(FormatText, ReadsAllDigitsOfAPlaceholder) {
  const std::vector<std::string> aArgs{"1", "2", "3", "4", "5", "6", "7", "8", "9", "ten"};
  EXPECT_EQ(FormatText("%10", aArgs), "ten");
  EXPECT_EQ(FormatText("%1,%9", aArgs), "1,9");
}

}  // namespace
}  // namespace arap

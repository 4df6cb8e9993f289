#include "frame/switch_file.h"

#include <gtest/gtest.h>

#include "support/server_stub.h"
#include "support/test_platform.h"

namespace arap::testing {
namespace {

constexpr const char* kFile = "C:\\Program\\ErpSwitch.sss";
constexpr const char* kJet351 = "PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=C:\\Program\\ErpSwitch.sss;";
constexpr const char* kJet40 = "PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Program\\ErpSwitch.sss;";

class SwitchFileTest : public ::testing::Test {
 protected:
  SwitchFileTest() {
    trace().reset();
    platform.add_object("ADODB.Connection", [this] { return connection; });
    connection->answers(Member::Open, {}).answers(Member::Close, {}).property(Member::ConnectionString, "Jet text");
  }

  /// Open fails for the texts that name one of these providers.
  void RefuseProviders(std::vector<std::string> aProviders) {
    connection->on(Member::Open, [aProviders = std::move(aProviders)](Arguments args) -> Variant {
      for (const std::string& sProvider : aProviders) {
        if (args[0].text().find(sProvider) != std::string_view::npos)
          throw AutomationError(3706, "ADODB", "no provider");
      }
      return {};
    });
  }

  TestPlatform platform;
  Ref<ServerStub> connection = make_object<ServerStub>("Connection");
};

TEST_F(SwitchFileTest, WithoutAFileTheAnswerIsEmptyAndNothingIsOpened) {
  EXPECT_EQ(GetSwitchFileConnection(), "");
  EXPECT_EQ(connection->count(Member::Open), 0u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(SwitchFileTest, FileBesideTheApplicationOpensWithTheOlderProvider) {
  platform.files[kFile] = 32;
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
  ASSERT_EQ(connection->count(Member::Open), 1u);
  const std::vector<Variant> args = connection->last(Member::Open);
  ASSERT_EQ(args.size(), 3u);
  EXPECT_EQ(plain_text(args[0]), kJet351);
  EXPECT_EQ(plain_text(args[1]), "");
  EXPECT_EQ(plain_text(args[2]), "");
}

TEST_F(SwitchFileTest, SeparatorAtTheEndOfTheFolderIsNotDoubled) {
  platform.application_path = "C:\\Program\\";
  platform.files[kFile] = 32;
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
  EXPECT_EQ(plain_text(connection->last(Member::Open)[0]), kJet351);
}

TEST_F(SwitchFileTest, FileInTheSystemFolderIsTheSecondChoice) {
  platform.files["C:\\Program\\erpSystem\\ErpSwitch.sss"] = 32;
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
  EXPECT_EQ(plain_text(connection->last(Member::Open)[0]),
            "PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=C:\\Program\\erpSystem\\ErpSwitch.sss;");
}

TEST_F(SwitchFileTest, FileBesideTheApplicationComesBeforeTheSystemFolder) {
  platform.files[kFile] = 32;
  platform.files["C:\\Program\\erpSystem\\ErpSwitch.sss"] = 32;
  GetSwitchFileConnection();
  EXPECT_EQ(plain_text(connection->last(Member::Open)[0]), kJet351);
}

TEST_F(SwitchFileTest, GivenFileIsTakenAsItIs) {
  platform.files[kFile] = 32;
  platform.files["D:\\other.sss"] = 32;
  EXPECT_EQ(GetSwitchFileConnection("D:\\other.sss"), "Jet text");
  EXPECT_EQ(plain_text(connection->last(Member::Open)[0]),
            "PROVIDER=Microsoft.Jet.OLEDB.3.51;Data Source=D:\\other.sss;");
}

TEST_F(SwitchFileTest, ReadOnlyFileBecomesAnArchiveBeforeItIsOpened) {
  platform.files[kFile] = 1 | 2;
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
  EXPECT_EQ(platform.files[kFile], 32);
  EXPECT_LT(trace().position("SetAttr"), trace().position("Connection.Open"));
}

TEST_F(SwitchFileTest, AttributesOfAWritableFileAreLeftAlone) {
  platform.files[kFile] = 2;
  GetSwitchFileConnection();
  EXPECT_EQ(platform.files[kFile], 2);
}

TEST_F(SwitchFileTest, FailingOlderProviderIsClosedAndTheNewerOneTried) {
  platform.files[kFile] = 32;
  RefuseProviders({"3.51"});
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
  const std::vector<std::string> aLines = trace().lines_with_any({"Connection.Open(", "Connection.Close("});
  ASSERT_EQ(aLines.size(), 3u);
  EXPECT_NE(aLines[0].find("3.51"), std::string::npos);
  EXPECT_NE(aLines[1].find("Close"), std::string::npos);
  EXPECT_NE(aLines[2].find("4.0"), std::string::npos);
  EXPECT_EQ(plain_text(connection->last(Member::Open)[0]), kJet40);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(SwitchFileTest, FailingCloseDoesNotKeepTheNewerProviderFromBeingTried) {
  platform.files[kFile] = 32;
  RefuseProviders({"3.51"});
  connection->fails(Member::Close, 3704, "closed");
  EXPECT_EQ(GetSwitchFileConnection(), "Jet text");
}

TEST_F(SwitchFileTest, WhenBothProvidersFailAWarningNamesTheFileAndTheAnswerIsEmpty) {
  platform.files[kFile] = 32;
  RefuseProviders({"3.51", "4.0"});
  EXPECT_EQ(GetSwitchFileConnection(), "");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].sText, "由于你的ODBC有误，系统不能与文件:'C:\\Program\\ErpSwitch.sss'建立连接。");
  EXPECT_EQ(platform.messages[0].nButtons, 48);
  EXPECT_EQ(platform.messages[0].sTitle, "青柚提示");
}

TEST_F(SwitchFileTest, MachineWithoutTheConnectionObjectIsToldTheSame) {
  platform.files[kFile] = 32;
  platform.remove_object("ADODB.Connection");
  EXPECT_EQ(GetSwitchFileConnection(), "");
  EXPECT_EQ(platform.last_message(), "由于你的ODBC有误，系统不能与文件:'C:\\Program\\ErpSwitch.sss'建立连接。");
}

TEST_F(SwitchFileTest, GivenFileThatIsNotThereFailsAtTheConnection) {
  RefuseProviders({"3.51", "4.0"});
  EXPECT_EQ(GetSwitchFileConnection("D:\\none.sss"), "");
  EXPECT_EQ(platform.last_message(), "由于你的ODBC有误，系统不能与文件:'D:\\none.sss'建立连接。");
}

}  // namespace
}  // namespace arap::testing

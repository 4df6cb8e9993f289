#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "desk/book_contents.h"
#include "desk/engine/engine_world.h"

namespace desk::testing {
namespace {

using arap::Event;
using arap::Member;

/// What goes wrong below an open window: it says so, and the book stays as it was.
class WindowFailure : public BillWorld {
 protected:
  /// A bill of so many rows that they need pages of their own.
  void fill_long_bill() {
    fill_bill();
    const BillTemplate& bill = window->bill();
    const auto place = [&bill](std::string_view sKey) { return bill.field(bill.find_key(sKey)).nPosition; };
    for (std::int32_t n = 1; n <= 400; ++n) {
      DataRow& row = window->body().add_row();
      row.put(place(bill.page(2).sKeyField), n);
      row.put(place(GetParam().sNumber), "INV" + std::to_string(n));
    }
  }
  std::int32_t pragma(const std::string& sName) { return arap::LongOf(database->value("PRAGMA " + sName)); }
};
INSTANTIATE_TEST_SUITE_P(BothSides, WindowFailure, ::testing::ValuesIn(kSides), side_name);

TEST_P(WindowFailure, AFullDiskRefusesTheSaveAndALaterOneSucceeds) {
  DESK_FILES_ONLY();
  fill_long_bill();
  const std::string sBefore = contents(*database);
  const std::int32_t nMost = pragma("max_page_count");
  pragma("max_page_count = " + std::to_string(pragma("page_count")));
  const Outcome refused = window->save();
  EXPECT_FALSE(refused);
  EXPECT_EQ(refused.sReason, "The disk is full; nothing was changed Make room and try again");
  EXPECT_EQ(plugin->aEvents.back(), "SaveBillFailed");
  EXPECT_EQ(window->bill_id(), 0);
  EXPECT_EQ(window->body().size(), 400u) << "what was typed is still there";
  EXPECT_FALSE(database->in_transaction());
  EXPECT_EQ(contents(*database), sBefore);
  pragma("max_page_count = " + std::to_string(nMost));
  EXPECT_TRUE(window->save());
  EXPECT_EQ(arap::Concat(window->value("FBillNo")), GetParam().sFirstNumber);
}

TEST_P(WindowFailure, AnUnknownFieldIsRefusedToTheUserAndNothingToThePlugin) {
  window->new_bill();
  EXPECT_EQ(window->type_field("FMoon", -1, "1").sReason, "单据没有字段“FMoon”。");
  EXPECT_TRUE(window->value("FMoon").is_empty());
  EXPECT_TRUE(window->call(Member::GetFieldInfoByKey, "FMoon", "", std::int32_t{0}).is_nothing());
  EXPECT_TRUE(window->call(Member::GetDataFldbyKey, "FMoon").is_nothing());
  EXPECT_TRUE(window->call(Member::GetFieldValue, "FMoon", std::int32_t{-1}, std::int32_t{1}).is_empty());
  EXPECT_NO_THROW(window->call(Member::SetFieldValue, "FMoon", 5, std::int32_t{-1}));
  EXPECT_THROW(window->call(Member::SetText, arap::Ref<arap::Object>(), "5", std::int32_t{-1}), arap::AutomationError);
  EXPECT_FALSE(window->has_changes());
}

TEST_P(WindowFailure, AFailureOfTheBookReachesThePluginAsAnAutomationError) {
  DESK_FILES_ONLY();
  fill_bill();
  ASSERT_TRUE(window->save());
  // A load asks for the head first; rows that the window has from its own store aren't read again.
  database->exec_script(std::string("DROP TABLE ") + GetParam().sTable + "Entry; DROP TABLE " + GetParam().sTable);
  std::string sHeard;
  plugin->handlers[Event::MenuBarClick] = [&](arap::Arguments) {
    try {
      window->call(Member::ShowBillByID, window->bill_id());
    } catch (const arap::AutomationError& error) {
      sHeard = error.source() + ": " + error.description();
      throw;
    }
  };
  const Outcome refused = window->press("mnuFileSave");
  EXPECT_FALSE(refused);
  EXPECT_EQ(sHeard.find("BillEvent: The book lacks a table: no such table"), 0u) << sHeard;
  EXPECT_NE(refused.sReason.find("Go back to a backup copy"), std::string::npos) << refused.sReason;
}

TEST_P(WindowFailure, ATemplateFileWithABrokenFormulaNamesFileFieldActionAndPosition) {
  const std::string sName = GetParam().sTemplate;
  std::ostringstream shipped;
  shipped << std::ifstream(std::string(TEST_DATA_DIR) + "/../desk/templates/" + sName + ".json").rdbuf();
  std::string sText = shipped.str();
  const std::string sGood = "/FAmountFor)*100";
  ASSERT_NE(sText.find(sGood), std::string::npos);
  sText.replace(sText.find(sGood), sGood.size(), "/FAmountFor*100");
  const std::string sPath = (std::filesystem::temp_directory_path() / ("broken_" + sName + ".json")).string();
  std::ofstream(sPath) << sText;
  try {
    BillTemplate::load(sPath);
    ADD_FAILURE() << "the template was read";
  } catch (const DeskError& error) {
    const std::string sError = error.what();
    EXPECT_EQ(error.kind(), ErrorKind::BadValue);
    for (const std::string& sPart : {sPath, std::string("field FAmountFor"), std::string("action \"FDiscount=("),
                                     std::string("position "), std::string("Mend the template file")})
      EXPECT_NE(sError.find(sPart), std::string::npos) << sPart << " in: " << sError;
  }
  std::filesystem::remove(sPath);
}

}  // namespace
}  // namespace desk::testing

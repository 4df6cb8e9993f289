#include "lists/bar_templates.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "frame/plugin_entry.h"
#include "support/test_bar.h"
#include "support/test_session.h"

namespace arap::testing {
namespace {

class BarTemplates : public ::testing::Test {
 protected:
  TestSession session;
};

std::string lines_of(const std::string& sControl, const TemplateBar& oBar) {
  std::string sLines;
  for (const TemplateTool& tool : oBar.All()) {
    std::string sLine = sControl + " | " + std::string(tool.sName.view()) + " | " + tool.sCaption + " | " +
                        tool.sToolTip + " | " + tool.sDescription;
    while (sLine.ends_with(' ')) sLine.pop_back();
    sLines += sLine + "\n";
  }
  return sLines;
}

std::string file_text(const std::string& sPath) {
  std::ifstream file(sPath, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST_F(BarTemplates, EveryToolHasItsTextsAfterTheLoad) {
  const FrmBar& oForm = LoadedFrmBar();
  EXPECT_EQ(lines_of("abReceiveBill", oForm.abReceiveBill) + lines_of("abReport", oForm.abReport) +
                lines_of("abInvoice", oForm.abInvoice),
            file_text(std::string(TEST_DATA_DIR) + "/plugin/lists/golden/bar_templates.txt"));
}

TEST_F(BarTemplates, TheOtherControlsHoldNoTool) {
  const FrmBar& oForm = LoadedFrmBar();
  for (const TemplateBar* pBar : {&oForm.ABar, &oForm.ActiveBar1, &oForm.abInitData, &oForm.abInstall}) {
    EXPECT_TRUE(pBar->All().empty());
  }
}

TEST_F(BarTemplates, AToolHasNoTextsBeforeInitControls) {
  const Ref<FrmBar> oForm = make_object<FrmBar>();
  EXPECT_EQ(oForm->abReport.Tools("Check").sCaption, "");
  oForm->call(Member::InitControls);
  EXPECT_EQ(oForm->abReport.Tools("Check").sCaption, "审核");
}

TEST_F(BarTemplates, APropertyWithoutATextKeepsWhatItHad) {
  const Ref<FrmBar> oForm = make_object<FrmBar>();
  oForm->abReport.Tools("Analize").sToolTip = "as designed";
  oForm->InitControls();
  EXPECT_EQ(oForm->abReport.Tools("Analize").sCaption, "分析");
  EXPECT_EQ(oForm->abReport.Tools("Analize").sToolTip, "as designed");
}

TEST_F(BarTemplates, ToolsAreFoundWithoutRegardToCase) {
  EXPECT_EQ(LoadedFrmBar().abInvoice.Tools("FCHECK").sCaption, "审核(&C)");
}

TEST_F(BarTemplates, AToolThatTheTemplateLacksIsAnError) {
  try {
    LoadedFrmBar().abReceiveBill.Tools("UnCheck");
    FAIL() << "no error";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::SubscriptOutOfRange));
  }
}

TEST_F(BarTemplates, TheFirstReferenceLoadsTheFormWithTheFontAndItStays) {
  FrmBar& oForm = LoadedFrmBar();
  ServerStub& font = session.server("NUVFrmRes.FrmResLoader");
  ASSERT_EQ(font.count(Member::SetFrmFont), 1u);
  EXPECT_EQ(font.last(Member::SetFrmFont)[0].object().get(), &oForm);
  EXPECT_EQ(plain_text(font.last(Member::SetFrmFont)[1]), "chs");
  EXPECT_EQ(&LoadedFrmBar(), &oForm);
  EXPECT_EQ(font.count(Member::SetFrmFont), 1u);
}

TEST_F(BarTemplates, AFailedLoadIsTriedAgainAtTheNextReference) {
  session.server("NUVFrmRes.FrmResLoader").fails(Member::SetFrmFont, -5, "no font");
  EXPECT_THROW(LoadedFrmBar(), AutomationError);
  session.server("NUVFrmRes.FrmResLoader").answers(Member::SetFrmFont, {});
  EXPECT_EQ(LoadedFrmBar().abReport.Tools("Voucher").sToolTip, "查看凭证");
}

TEST_F(BarTemplates, AFormThatWasTakenAwayIsLoadedAnew) {
  EXPECT_EQ(LoadedFrmBar().type_name(), "frmBar");
  const Ref<Object> oForm = Module().oFrmBar;
  Module().oFrmBar = nullptr;
  EXPECT_NE(&LoadedFrmBar(), oForm.get());
}

TEST_F(BarTemplates, BillTypeIsWriteOnly) {
  FrmBar& oForm = LoadedFrmBar();
  oForm.put(Member::BillType, 1000201);
  EXPECT_THROW(oForm.get(Member::BillType), AutomationError);
  EXPECT_THROW(oForm.get(Member::Caption), AutomationError);
}

TEST_F(BarTemplates, TheImageListAnswersThePicturesByTheirPlace) {
  std::map<int, std::string> aNames;
  for (int n = 1; n <= 8; ++n) aNames[n] = plain_text(FrmBar::Image(n));
  EXPECT_EQ(aNames[1], "SUM");
  EXPECT_EQ(aNames[2], "PART");
  EXPECT_EQ(aNames[4], "VIEW");
  EXPECT_THROW(FrmBar::Image(0), AutomationError);
  EXPECT_THROW(FrmBar::Image(9), AutomationError);
}

TEST_F(BarTemplates, AToolIsMadeOnTheHostsBarWithTextsAndPicture) {
  auto oBar = TestBar::with_tools({{"BandToolBar", {}}});
  AddTemplateTool(ActiveBar(Variant(oBar)), LoadedFrmBar().abReport.Tools("Voucher"));
  const TestTool& oTool = oBar->tool("Voucher");
  EXPECT_EQ(oTool.caption(), "凭证");
  EXPECT_EQ(plain_text(oTool.property(Member::ToolTipText)), "查看凭证");
  EXPECT_EQ(plain_text(oTool.property(Member::Description)), "凭证");
  EXPECT_EQ(plain_text(oTool.picture), "VOUCHER");
  EXPECT_EQ(plain_number(oTool.colour_key), kPictureColourKey);
}

TEST_F(BarTemplates, ATextThatTheBarRefusesDoesNotStopTheOthers) {
  auto oTool = make_object<ServerStub>("Tool");
  oTool->fails(Member::Caption, -3, "read-only").property(Member::ToolTipText).property(Member::Description);
  auto oTools = make_object<ServerStub>("Tools");
  oTools->answers(Member::Add, oTool);
  auto oBar = make_object<ServerStub>("ActiveBar");
  oBar->property(Member::Tools, oTools);
  AddTemplateTool(ActiveBar(Variant(oBar)), LoadedFrmBar().abReport.Tools("Voucher"));
  EXPECT_EQ(plain_text(oTool->value(Member::ToolTipText)), "查看凭证");
}

TEST_F(BarTemplates, ThePicturesAreDrawnForEveryNameOfTheImageList) {
  for (int n = 1; n <= 8; ++n) {
    std::string sName = plain_text(FrmBar::Image(n));
    for (char& c : sName) c = static_cast<char>(c - 'A' + 'a');
    const std::string sBytes = file_text(std::string(TEST_DATA_DIR) + "/../plugin/lists/pictures/" + sName + ".bmp");
    ASSERT_EQ(sBytes.size(), 54u + 16 * 16 * 3) << sName;
    EXPECT_EQ(sBytes.substr(0, 2), "BM");
  }
}

}  // namespace
}  // namespace arap::testing

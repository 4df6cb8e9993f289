#include "engine/formula.h"

#include <gtest/gtest.h>

#include <array>

#include "data/desk_error.h"
#include "engine/bill_template.h"

namespace desk {
namespace {

std::optional<std::size_t> field(std::string_view sName) {
  if (sName == "FDiscount") return 0;
  if (sName == "FReceiveAmountFor") return 1;
  if (sName == "FAmountFor") return 2;
  return std::nullopt;
}

std::vector<double> operands(const Formula& formula, double dReceived, double dAmount) {
  std::vector<double> aValues;
  for (const std::size_t nField : formula.operands()) aValues.push_back(nField == 1 ? dReceived : dAmount);
  return aValues;
}

TEST(Formula, ComputesItsTargetFromTheFieldsItNames) {
  const Formula formula("FDiscount=(FReceiveAmountFor/FAmountFor)*100", field);
  EXPECT_EQ(formula.target(), 0u);
  EXPECT_DOUBLE_EQ(*formula.evaluate(operands(formula, 950, 1000)), 95);
}

TEST(Formula, AnswersNothingWhenItDividesByZero) {
  const Formula formula("FDiscount=(FReceiveAmountFor/FAmountFor)*100", field);
  EXPECT_FALSE(formula.evaluate(operands(formula, 950, 0)));
  EXPECT_FALSE(formula.evaluate(operands(formula, 0, 0)));
  EXPECT_DOUBLE_EQ(*formula.evaluate(operands(formula, 1, 2)), 50);
}

TEST(Formula, NamesThePlaceOfAnUnknownField) {
  try {
    Formula("FDiscount=FReceiveAmountFor/FNowhere", field);
    FAIL() << "accepted";
  } catch (const FormulaError& error) {
    EXPECT_EQ(error.position(), 28u);
    EXPECT_NE(std::string(error.what()).find("FNowhere"), std::string::npos);
  }
}

TEST(Formula, RefusesATextThatIsNoFormula) {
  EXPECT_THROW(Formula("FDiscount", field), FormulaError);
  EXPECT_THROW(Formula("FDiscount=(FAmountFor", field), FormulaError);
  EXPECT_THROW(Formula("FDiscount=FAmountFor+*2", field), FormulaError);
}

TEST(Formula, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(round_half_away(1.005, 2), 1.01);
  EXPECT_EQ(round_half_away(-1.125, 2), -1.13);
  EXPECT_EQ(round_half_away(2.675, 2), 2.68);
  EXPECT_EQ(round_half_away(1.00499, 2), 1.0);
  EXPECT_EQ(round_half_away(33.3333335, 6), 33.333334);
}

constexpr std::string_view kSmall = R"({
  "bill": {"classType": 1, "caption": "单", "class": "clsX", "numberPrefix": "X", "partnerField": "FA", "typeField": "FA"},
  "pages": [{"table": "t_X"}, {"table": "t_XEntry"}],
  "fields": [%F],
  "selections": [], "tools": [{"name": "mnuFileSave"}], "bands": [{"name": "mnuFile", "tools": ["%T"]}]})";

std::shared_ptr<const BillTemplate> small(const std::string& sFields, const std::string& sTool = "mnuFileSave") {
  std::string sJson(kSmall);
  sJson.replace(sJson.find("%F"), 2, sFields);
  sJson.replace(sJson.find("%T"), 2, sTool);
  return BillTemplate::parse(sJson, "small.json");
}

std::string complaint(const std::function<void()>& read) {
  try {
    read();
  } catch (const DeskError& error) {
    return error.where() + " | " + error.problem();
  }
  return "accepted";
}

TEST(Template, NamesFileFieldAndPositionOfAFormulaThatCantBeRead) {
  const std::string sText = complaint([] { small(R"({"key":"FA","kind":"money","actions":["FA=FA*FB"]})"); });
  EXPECT_NE(sText.find("small.json: field FA, action \"FA=FA*FB\", position 6"), std::string::npos) << sText;
  EXPECT_NE(sText.find("FB"), std::string::npos) << sText;
}

TEST(Template, NamesTheFieldOfAnUnknownKindPageOrDoubledKey) {
  EXPECT_NE(complaint([] { small(R"({"key":"FA","kind":"colour"})"); }).find("field FA | unknown kind"),
            std::string::npos);
  EXPECT_NE(complaint([] { small(R"({"key":"FA","kind":"id","page":3})"); }).find("no page 3"), std::string::npos);
  EXPECT_NE(complaint([] { small(R"({"key":"FA","kind":"id"},{"key":"fa","kind":"id"})"); }).find("field fa"),
            std::string::npos);
}

TEST(Template, RefusesABandThatPlacesAToolWhichIsntThere) {
  EXPECT_NE(complaint([] { small("", "mnuNowhere"); }).find("band mnuFile | there is no tool mnuNowhere"),
            std::string::npos);
}

TEST(Template, TellsTheByteWhereTheJsonBreaks) {
  EXPECT_NE(complaint([] { BillTemplate::parse("{\"bill\": }", "broken.json"); }).find("broken.json: byte 10"),
            std::string::npos);
}

TEST(Template, BothShippedBillsHoldTheExactDiscountAction) {
  for (const auto& [sName, sGot, sAction] :
       {std::tuple("receipt", "FReceiveAmountFor", "FDiscount=(FReceiveAmountFor/FAmountFor)*100"),
        std::tuple("payment", "FPayAmountFor", "FDiscount=(FPayAmountFor/FAmountFor)*100")}) {
    const auto bill = BillTemplate::shipped(sName);
    for (const char* sKey : {"FAmountFor", sGot}) {
      const TemplateField& got = bill->field(bill->find_key(sKey));
      const auto says = [&](std::size_t nFormula) { return bill->formula(nFormula).text() == sAction; };
      EXPECT_TRUE(std::any_of(got.aActions.begin(), got.aActions.end(), says)) << sKey;
    }
    EXPECT_TRUE(bill->field(bill->find_key("fdiscount")).bInMap);
    EXPECT_EQ(bill->find_key("FDiscountAmountr"), BillTemplate::kNone);
  }
}

}  // namespace
}  // namespace desk

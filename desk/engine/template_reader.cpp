#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/desk_error.h"
#include "engine/bill_template.h"
#include "frame/conversions.h"

namespace desk {

using Json = nlohmann::json;

/// Builds a template from its JSON text.
class TemplateReader {
 public:
  TemplateReader(std::string_view sJson, const std::string& sFile) : file_(sFile) {
    try {
      root_ = Json::parse(sJson);
    } catch (const Json::parse_error& error) {
      fail("the template is no JSON: " + std::string(error.what()), "byte " + std::to_string(error.byte));
    }
  }

  std::shared_ptr<const BillTemplate> read() {
    read_identity();
    for (const Json& page : list("pages")) read_page(page);
    for (const Json& field : list("fields")) read_field(field);
    std::size_t nField = 0;
    for (const Json& field : list("fields")) read_actions(field, nField++);
    check_key_fields();
    for (const Json& selection : list("selections")) {
      template_->selections_.push_back(
          {number(selection, "type", 0), text(selection, "caption"), needed(selection, "view")});
    }
    read_bars();
    return template_;
  }

 private:
  [[noreturn]] void fail(const std::string& sWhat, const std::string& sPlace) const {
    throw DeskError(ErrorKind::BadValue, sWhat, file_ + ": " + sPlace, "Mend the template file.");
  }

  const Json& list(const char* sName) const {
    const auto found = root_.find(sName);
    if (found == root_.end() || !found->is_array()) fail(std::string("the list \"") + sName + "\" is missing", sName);
    return *found;
  }

  std::string text(const Json& item, const char* sName) const {
    const auto found = item.find(sName);
    if (found == item.end()) return {};
    if (!found->is_string()) fail(std::string("\"") + sName + "\" must be a text", place_);
    return found->get<std::string>();
  }

  std::string needed(const Json& item, const char* sName) const {
    std::string sText = text(item, sName);
    if (sText.empty()) fail(std::string("\"") + sName + "\" is missing", place_);
    return sText;
  }

  std::int32_t number(const Json& item, const char* sName, std::int32_t nDefault) const {
    const auto found = item.find(sName);
    if (found == item.end()) return nDefault;
    if (!found->is_number_integer()) fail(std::string("\"") + sName + "\" must be a whole number", place_);
    return found->get<std::int32_t>();
  }

  bool flag(const Json& item, const char* sName, bool bDefault) const {
    const auto found = item.find(sName);
    if (found == item.end()) return bDefault;
    if (!found->is_boolean()) fail(std::string("\"") + sName + "\" must be true or false", place_);
    return found->get<bool>();
  }

  void read_identity() {
    place_ = "bill";
    const auto bill = root_.find("bill");
    if (bill == root_.end()) fail("\"bill\" is missing", place_);
    template_->nClassType = number(*bill, "classType", 0);
    template_->sCaption = needed(*bill, "caption");
    template_->sPluginClass = needed(*bill, "class");
    // Base data has no numbers of its own, no partner and no type.
    const bool bBaseData = flag(*bill, "baseData", false);
    template_->sNumberPrefix = bBaseData ? "" : needed(*bill, "numberPrefix");
    template_->sPartnerField = bBaseData ? "" : needed(*bill, "partnerField");
    template_->sTypeField = bBaseData ? "" : needed(*bill, "typeField");
    template_->sNumberTwin = text(*bill, "numberTwin");
  }

  void read_page(const Json& item) {
    place_ = "page " + std::to_string(template_->pages_.size() + 1);
    template_->pages_.push_back({static_cast<std::int32_t>(template_->pages_.size()) + 1,
                                 text(item, "caption"),
                                 needed(item, "table"),
                                 text(item, "keyField"),
                                 arap::Text(text(item, "keyField")),
                                 {}});
  }

  FieldKind kind_of(const std::string& sKind) const {
    static const std::pair<const char*, FieldKind> kKinds[] = {
        {"id", FieldKind::Id},           {"text", FieldKind::Text},       {"money", FieldKind::Money},
        {"rate", FieldKind::Rate},       {"percent", FieldKind::Percent}, {"date", FieldKind::Date},
        {"integer", FieldKind::Integer},
    };
    for (const auto& [sName, kind] : kKinds) {
      if (sKind == sName) return kind;
    }
    fail("unknown kind \"" + sKind + "\" (id, text, money, rate, percent, date, integer)", place_);
  }

  void read_field(const Json& item) {
    place_ = "field number " + std::to_string(template_->fields_.size() + 1);
    TemplateField field;
    field.sKey = needed(item, "key");
    field.key = arap::Text(field.sKey);
    place_ = "field " + field.sKey;
    field.sCaption = text(item, "caption");
    field.sColumn = text(item, "column");
    field.sSource = text(item, "source");
    field.sDefault = text(item, "default");
    field.kind = kind_of(needed(item, "kind"));
    field.nPage = number(item, "page", 1);
    field.nControlType = number(item, "controlType", 0);
    field.nDecimals = number(item, "decimals", 0);
    field.bReadOnly = flag(item, "readOnly", false);
    field.bVisible = flag(item, "visible", true);
    field.bInMap = flag(item, "inMap", false);
    field.bStaysFree = flag(item, "staysFree", false);
    field.bKept = flag(item, "kept", false);
    if (const auto lookUp = item.find("lookUp"); lookUp != item.end()) {
      field.lookUp = LookUpSource{number(*lookUp, "sourceType", 1), needed(*lookUp, "table"),
                                  needed(*lookUp, "keyColumn"), needed(*lookUp, "codeColumn"), text(*lookUp, "filter")};
    }
    add_field(std::move(field));
  }

  void add_field(TemplateField field) {
    if (field.nPage < 1 || static_cast<std::size_t>(field.nPage) > template_->pages_.size()) {
      fail("there is no page " + std::to_string(field.nPage), place_);
    }
    const std::size_t nField = template_->fields_.size();
    if (!template_->by_key_.emplace(arap::LowerCase(field.sKey), nField).second) fail("the key is there twice", place_);
    std::vector<std::size_t>& aFields = template_->pages_[static_cast<std::size_t>(field.nPage) - 1].aFields;
    template_->by_body_.enter(field.key.body(), nField);
    field.nPosition = aFields.size();
    aFields.push_back(nField);
    template_->fields_.push_back(std::move(field));
  }

  void read_actions(const Json& item, std::size_t nField) {
    const auto actions = item.find("actions");
    if (actions == item.end()) return;
    TemplateField& field = template_->fields_[nField];
    place_ = "field " + field.sKey;
    const auto find = [this](std::string_view sName) -> std::optional<std::size_t> {
      const std::size_t nFound = template_->find_key(sName);
      return nFound == BillTemplate::kNone ? std::nullopt : std::optional(nFound);
    };
    for (const Json& action : *actions) {
      if (!action.is_string()) fail("an action must be a text", place_);
      const auto sText = action.get<std::string>();
      try {
        template_->formulas_.emplace_back(sText, find);
      } catch (const FormulaError& error) {
        fail(error.what(), place_ + ", action \"" + sText + "\", position " + std::to_string(error.position()));
      }
      field.aActions.push_back(template_->formulas_.size() - 1);
    }
  }

  void check_key_fields() {
    for (const TemplatePage& page : template_->pages_) {
      if (!page.sKeyField.empty() && template_->find_key(page.sKeyField) == BillTemplate::kNone) {
        fail("the key field " + page.sKeyField + " is no field", "page " + std::to_string(page.nPage));
      }
      template_->by_body_.enter(page.keyField.body(), template_->find_key(page.sKeyField));
    }
  }

  void read_bars() {
    for (const Json& item : list("tools")) {
      place_ = "tool number " + std::to_string(template_->tools_.size() + 1);
      template_->tools_.push_back({needed(item, "name"), text(item, "caption")});
    }
    for (const Json& item : list("bands")) {
      place_ = "band number " + std::to_string(template_->bands_.size() + 1);
      TemplateBand band{needed(item, "name"), text(item, "caption"), {}};
      for (const Json& tool : item.value("tools", Json::array())) {
        const auto sTool = tool.get<std::string>();
        check_tool(sTool, band.sName);
        band.aTools.push_back(sTool);
      }
      template_->bands_.push_back(std::move(band));
    }
  }

  void check_tool(const std::string& sTool, const std::string& sBand) const {
    for (const TemplateTool& tool : template_->tools_) {
      if (tool.sName == sTool) return;
    }
    fail("there is no tool " + sTool, "band " + sBand);
  }

  std::string file_;
  std::string place_;
  Json root_;
  std::shared_ptr<BillTemplate> template_ = std::make_shared<BillTemplate>();
};

std::shared_ptr<const BillTemplate> BillTemplate::parse(std::string_view sJson, const std::string& sFile) {
  return TemplateReader(sJson, sFile).read();
}

std::shared_ptr<const BillTemplate> BillTemplate::load(const std::string& sPath) {
  std::ifstream file(sPath, std::ios::binary);
  if (!file) throw DeskError(ErrorKind::MissingFile, "the template can't be read", sPath, "Check the installation.");
  std::ostringstream content;
  content << file.rdbuf();
  return parse(content.str(), sPath);
}

std::shared_ptr<const BillTemplate> BillTemplate::shipped(std::string_view sName) {
  return load(std::string(DESK_TEMPLATE_DIR "/").append(sName).append(".json"));
}

}  // namespace desk

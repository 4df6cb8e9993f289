#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/formula.h"
#include "engine/key_places.h"
#include "frame/variant.h"

namespace desk {

/// What a field's value is: a key of a table, a text, an amount in units of the bill's currency, an exchange rate, a
/// number of percent (97.5), a day as yyyy-mm-dd, a whole number.
enum class FieldKind : std::uint8_t { Id, Text, Money, Rate, Percent, Date, Integer };

/// Where a field gets its list from: table, key column, column of the code that a user types. The name is FName. What
/// can be chosen meets the filter, a condition in the book's SQL; "" for none.
struct LookUpSource {
  std::int32_t nSourceType = 1;  // told to the plug-in; the desk looks up every type alike
  std::string sTable;
  std::string sKeyColumn;
  std::string sCodeColumn;
  std::string sFilter;
};

/// A field of the head or a column of a body.
struct TemplateField {
  std::string sKey;
  arap::Text key;  // the same as a text of the door, one body for all who ask for it
  std::string sCaption;
  std::string sColumn;  // "" when the value isn't stored
  std::string sSource;  // column of the selection view that fills it; "" when none does
  std::string sDefault;
  FieldKind kind = FieldKind::Text;
  std::int32_t nPage = 1;
  std::size_t nPosition = 0;      // within its page, from 0
  std::int32_t nControlType = 0;  // told to the plug-in; the desk's own cells follow the kind
  int nDecimals = 0;              // shown ones, until the plug-in sets others
  bool bReadOnly = false;
  bool bVisible = true;
  bool bInMap = false;      // the plug-in fills it with sSource when source bills are selected
  bool bStaysFree = false;  // a page lock passes over it
  bool bKept = false;       // only services write it after the first store: a save must not put an older state back
  std::optional<LookUpSource> lookUp;
  std::vector<std::size_t> aActions;  // positions in BillTemplate::formulas()

  bool is_number() const { return kind != FieldKind::Text && kind != FieldKind::Date; }
};

/// A page of the bill: 1 is the head, the others are bodies.
struct TemplatePage {
  std::int32_t nPage = 1;
  std::string sCaption;
  std::string sTable;
  std::string sKeyField;  // marks a row as used
  arap::Text keyField;    // the same as a text of the door
  std::vector<std::size_t> aFields;
};

/// A kind of source bills that rows can be selected from.
struct SelectionSource {
  std::int32_t nType = 0;  // as the command that opens the selection names it
  std::string sCaption;
  std::string sView;  // of the book, a row a source
};

/// A command of the window's bar.
struct TemplateTool {
  std::string sName;
  std::string sCaption;
};

/// A menu or toolbar with the names of its commands, in order.
struct TemplateBand {
  std::string sName;
  std::string sCaption;
  std::vector<std::string> aTools;
};

/// What a bill is made of, read from a file and shared by its windows. A bad file raises DeskError with the file, the
/// field and the position.
class BillTemplate {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  static std::shared_ptr<const BillTemplate> load(const std::string& sPath);
  static std::shared_ptr<const BillTemplate> parse(std::string_view sJson, const std::string& sFile);
  /// One of the templates that come with the desk: "receipt", "payment", "other_receivable", "other_payable" or "type".
  static std::shared_ptr<const BillTemplate> shipped(std::string_view sName);

  /// The field's number, or kNone. Keys of the program and the template's own texts are found by their place, others by
  /// their lower case.
  std::size_t find(const arap::Variant& vKey) const;
  std::size_t find_key(std::string_view sKey) const;
  const TemplateField& field(std::size_t nField) const { return fields_[nField]; }
  const std::vector<TemplateField>& fields() const { return fields_; }
  const std::vector<TemplatePage>& pages() const { return pages_; }
  const TemplatePage& page(std::int32_t nPage) const { return pages_[static_cast<std::size_t>(nPage) - 1]; }
  const Formula& formula(std::size_t nFormula) const { return formulas_[nFormula]; }
  const std::vector<TemplateTool>& tools() const { return tools_; }
  const std::vector<TemplateBand>& bands() const { return bands_; }
  const std::vector<SelectionSource>& selections() const { return selections_; }

  std::int32_t nClassType = 0;
  std::string sCaption;
  std::string sPluginClass;  // of the plug-in: "clsReceiveBill"
  std::string sNumberPrefix;
  std::string sNumberTwin;  // table of bills whose numbers aren't given again; "" for none
  std::string sPartnerField;
  std::string sTypeField;

 private:
  friend class TemplateReader;

  std::vector<TemplateField> fields_;
  std::vector<TemplatePage> pages_;
  std::vector<Formula> formulas_;
  std::vector<TemplateTool> tools_;
  std::vector<TemplateBand> bands_;
  std::vector<SelectionSource> selections_;
  std::unordered_map<std::string, std::size_t> by_key_;  // lower case
  mutable KeyPlaces by_body_;
};

}  // namespace desk

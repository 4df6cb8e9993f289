#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host_contract.h"

namespace arap {

/// One tool of a template bar: what a list handler gives to the host's bar. Its name and picture are there from the
/// start, its texts after InitControls.
struct TemplateTool {
  Key sName;
  std::string sCaption;
  std::string sToolTip;
  std::string sDescription;
  std::string_view sPicture;  // name of the picture; "" for none
};

/// A control of the form: a store of tools, never shown.
class TemplateBar {
 public:
  /// Names without regard to case. Raises 9 for a tool that the template lacks.
  const TemplateTool& Tools(std::string_view sName) const;
  TemplateTool& Tools(std::string_view sName);
  /// In the order of the design.
  const std::vector<TemplateTool>& All() const { return tools_; }
  void Add(TemplateTool tool) { tools_.push_back(std::move(tool)); }

 private:
  std::vector<TemplateTool> tools_;
};

/// The hidden form of the bar templates. For the host it has BillType (to be written only) and InitControls.
class FrmBar final : public Object {
 public:
  FrmBar();
  std::string type_name() const override { return "frmBar"; }
  Variant invoke(Member member, Access access, Arguments args) override;

  /// Gives the tools of abReceiveBill, abReport and abInvoice their texts, in that order. Statement errors are skipped.
  void InitControls();

  // The controls as the design has them; those without texts hold no tool.
  TemplateBar ABar;
  TemplateBar ActiveBar1;
  TemplateBar abInitData;
  TemplateBar abReport;
  TemplateBar abInvoice;
  TemplateBar abInstall;
  TemplateBar abReceiveBill;

  /// The picture at the 1-based place of the form's image list; it needs no loaded form. Raises 9 for another place.
  static Variant Image(std::int32_t nImage);

 private:
  double nBillType_ = 0;  // kept, and read by nothing
};

/// The form of this thread. The first reference loads it (form font, then texts) and it stays; an error of the load
/// goes to the caller, and the next reference loads again.
FrmBar& LoadedFrmBar();

/// The colour of the pictures that counts as transparent.
inline constexpr std::int32_t kPictureColourKey = 0xFF00FF;

/// Makes the template's tool on the host's bar, with its texts and its picture. A text or picture that the bar doesn't
/// take is skipped; an error of the making goes to the caller.
Tool AddTemplateTool(const ActiveBar& oBar, const TemplateTool& tool);

}  // namespace arap

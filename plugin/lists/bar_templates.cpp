#include "lists/bar_templates.h"

#include <algorithm>
#include <array>

#include "frame/failure.h"
#include "frame/module_state.h"
#include "frame/platform.h"
#include "frame/text_utils.h"
#include "lists/bar_template_texts.h"

namespace arap {

namespace {

/// The image list of the form, from place 1 on.
constexpr std::array<std::string_view, 8> kImageList{"SUM",   "PART",    "VOUCHER", "VIEW",
                                                     "CHECK", "CONVERT", "RED",     "BLUE"};

/// The tools of a control as the design leaves them: named, with their pictures, without texts.
TemplateBar DesignedBar(std::span<const ToolTexts> aTexts) {
  TemplateBar bar;
  for (const ToolTexts& texts : aTexts) bar.Add({texts.sName, "", "", "", texts.sPicture});
  return bar;
}

void SetText(std::string& sProperty, std::string_view sText) {
  if (!sText.empty()) sProperty = LoadText(sText);
}

/// Resume next: a tool that the control lacks is skipped.
void FillTexts(TemplateBar& bar, std::span<const ToolTexts> aTexts) {
  for (const ToolTexts& texts : aTexts) {
    ResumeNext([&] { SetText(bar.Tools(texts.sName).sCaption, texts.sCaption); });
    ResumeNext([&] { SetText(bar.Tools(texts.sName).sToolTip, texts.sToolTip); });
    ResumeNext([&] { SetText(bar.Tools(texts.sName).sDescription, texts.sDescription); });
  }
}

}  // namespace

const TemplateTool& TemplateBar::Tools(std::string_view sName) const {
  const auto found = std::find_if(tools_.begin(), tools_.end(),
                                  [sName](const TemplateTool& tool) { return EqualsNoCase(tool.sName, sName); });
  if (found == tools_.end()) throw AutomationError(ErrorNumber::SubscriptOutOfRange, sName);
  return *found;
}

TemplateTool& TemplateBar::Tools(std::string_view sName) {
  return const_cast<TemplateTool&>(std::as_const(*this).Tools(sName));
}

FrmBar::FrmBar()
    : abReport(DesignedBar(ReportTexts())),
      abInvoice(DesignedBar(InvoiceTexts())),
      abReceiveBill(DesignedBar(ReceiveBillTexts())) {}

void FrmBar::InitControls() {
  FillTexts(abReceiveBill, ReceiveBillTexts());
  FillTexts(abReport, ReportTexts());
  FillTexts(abInvoice, InvoiceTexts());
}

Variant FrmBar::invoke(Member member, Access access, Arguments args) {
  if (member == Member::BillType && access == Access::Put) {
    nBillType_ = ToDouble(argument(args, 0));
    return {};
  }
  if (member != Member::InitControls || access != Access::Call) no_such_member(member);
  InitControls();
  return {};
}

Variant FrmBar::Image(std::int32_t nImage) {
  if (nImage < 1 || nImage > static_cast<std::int32_t>(kImageList.size())) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "frmBar");
  }
  return CurrentPlatform().Picture(kImageList[static_cast<std::size_t>(nImage) - 1]);
}

FrmBar& LoadedFrmBar() {
  Ref<Object>& oLoaded = Module().oFrmBar;
  if (!oLoaded) {
    const Ref<FrmBar> oForm = make_object<FrmBar>();
    ApplyFormFont(oForm);
    oForm->InitControls();
    oLoaded = oForm;
  }
  return static_cast<FrmBar&>(*oLoaded);
}

Tool AddTemplateTool(const ActiveBar& oBar, const TemplateTool& tool) {
  const Tool oTool = oBar.Tools().Add(tool.sName);
  ResumeNext([&] { oTool.SetCaption(tool.sCaption); });
  ResumeNext([&] { oTool.SetShortText(tool.sToolTip); });
  ResumeNext([&] { oTool.SetDescription(tool.sDescription); });
  if (tool.sPicture.empty()) return oTool;
  ResumeNext([&] { oTool.SetPicture(CurrentPlatform().Picture(tool.sPicture), kPictureColourKey); });
  return oTool;
}

}  // namespace arap

#pragma once

#include <span>
#include <string_view>

#include "frame/text.h"

namespace arap {

/// The texts that InitControls gives a tool, and the picture that the tool has from the start. "" keeps the property as
/// the design left it.
struct ToolTexts {
  Key sName;
  std::string_view sCaption;
  std::string_view sToolTip;
  std::string_view sDescription;
  std::string_view sPicture = {};
};

std::span<const ToolTexts> ReceiveBillTexts();
std::span<const ToolTexts> ReportTexts();
std::span<const ToolTexts> InvoiceTexts();

}  // namespace arap

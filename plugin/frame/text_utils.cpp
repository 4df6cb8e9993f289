#include "frame/text_utils.h"

#include <algorithm>
#include <charconv>

#include "frame/module_state.h"
#include "frame/server_objects.h"

namespace arap {

namespace {

/// Cuts sRest behind the first cMark and answers the trimmed part before it; without one sRest is all of it.
std::string_view take_until(std::string_view& sRest, char cMark) {
  const std::size_t nMark = sRest.find(cMark);
  const std::string_view sPart = sRest.substr(0, nMark);
  sRest = nMark == std::string_view::npos ? std::string_view{} : sRest.substr(nMark + 1);
  return Trim(sPart);
}

std::string_view take_value(std::string_view& sRest) {
  sRest = Trim(sRest);
  if (!sRest.starts_with('{')) return take_until(sRest, ';');
  sRest.remove_prefix(1);
  const std::string_view sValue = take_until(sRest, '}');
  take_until(sRest, ';');
  return sValue;
}

std::size_t find_no_case(std::string_view sText, std::string_view sPart) {
  return LowerCase(sText).find(LowerCase(sPart));
}

/// The argument that a placeholder's digits ask for, by number from 1; nullptr when there is none.
const std::string* placeholder_argument(std::string_view sDigits, std::span<const std::string> aArgs) {
  std::size_t nArg = 0;
  const auto result = std::from_chars(sDigits.data(), sDigits.data() + sDigits.size(), nArg);
  if (result.ec != std::errc() || nArg == 0 || nArg > aArgs.size()) return nullptr;
  return &aArgs[nArg - 1];
}

}  // namespace

bool ParsePropsString(std::string_view sProps) {
  ModuleState& module = Module();
  // Every statement of a rule brings the text again, and it is nearly always the same one.
  if (module.bPropsRead && module.sProps == sProps) return true;
  module.bPropsRead = false;
  module.sProps = sProps;
  module.aProps.clear();
  std::string_view sRest = module.sProps;
  for (;;) {
    const std::string_view sKey = take_until(sRest, '=');
    if (sKey.empty()) return module.bPropsRead = true;
    const std::string_view sValue = take_value(sRest);
    const bool bRepeated = std::any_of(module.aProps.begin(), module.aProps.end(),
                                       [sKey](const auto& pair) { return EqualsNoCase(pair.first, sKey); });
    if (bRepeated) throw AutomationError(ErrorNumber::KeyAlreadyExists);
    module.aProps.emplace_back(sKey, sValue);
  }
}

std::string LoadText(std::string_view sText) { return std::string(sText); }

std::string FormatText(std::string_view sTemplate, std::span<const std::string> aArgs) {
  const std::string sLoaded = LoadText(sTemplate);
  std::string_view sRest = sLoaded;
  std::string sText;
  while (!sRest.empty()) {
    const std::size_t nMark = std::min(sRest.find('%'), sRest.size());
    sText += sRest.substr(0, nMark);
    sRest.remove_prefix(nMark);
    if (sRest.empty()) break;
    const std::size_t nEnd = std::min(sRest.find_first_not_of("0123456789", 1), sRest.size());
    const std::string* const pArg = placeholder_argument(sRest.substr(1, nEnd - 1), aArgs);
    sText += pArg != nullptr ? std::string_view(*pArg) : sRest.substr(0, nEnd);
    sRest.remove_prefix(nEnd);
  }
  return sText;
}

std::string FormatText(std::string_view sTemplate, std::initializer_list<std::string> aArgs) {
  return FormatText(sTemplate, std::span<const std::string>(aArgs.begin(), aArgs.size()));
}

std::string GetPropsValueByName(std::string_view sName) {
  if (UpperCase(sName) == "LANGUAGE") return "chs";
  std::string sProps = GetPropsString();
  if (!sProps.ends_with(';')) sProps.push_back(';');
  // Required: the name is found behind any other letters, too, so "Name" answers what stands for "UserName".
  const std::size_t nFound = find_no_case(sProps, std::string(sName) + "=");
  if (nFound == std::string::npos) return {};
  const std::size_t nValue = nFound + sName.size() + 1;
  return sProps.substr(nValue, sProps.find(';', nValue) - nValue);
}

void ApplyFormFont(const Ref<Object>& oForm) {
  ModuleState& module = Module();
  if (module.sLanguage.empty()) module.sLanguage = GetPropsValueByName("Language");
  if (!module.oFormFont) module.oFormFont = CreateLocalObject("NUVFrmRes.FrmResLoader");
  module.oFormFont->call(Member::SetFrmFont, oForm, module.sLanguage);
}

}  // namespace arap

#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "frame/host_contract.h"

namespace arap {

/// Parses a props string into the module's table: pairs "key=value", the value ended by ";" or held in braces, which
/// may contain ";" and "=". Answers true. Raises 457 for a repeated key.
bool ParsePropsString(std::string_view sProps);

/// Every text that the user sees passes through here. The program's texts are simplified Chinese and stay as they are.
std::string LoadText(std::string_view sText);

/// Replaces %1, %2, ... with the arguments, after LoadText. A placeholder without an argument stays as it is.
std::string FormatText(std::string_view sTemplate, std::span<const std::string> aArgs);
std::string FormatText(std::string_view sTemplate, std::initializer_list<std::string> aArgs = {});

/// A value of the props string by name, without regard to case, cut at the next ";". "" when it isn't there.
/// "Language" is always "chs".
std::string GetPropsValueByName(std::string_view sName);

/// Gives a form the session's font through NUVFrmRes.FrmResLoader, made once and kept.
void ApplyFormFont(const Ref<Object>& oForm);

/// Rounds an amount to the decimals of a currency (its ScaleX), half away from zero for values with at most nDigits + 1
/// decimals, half to even for longer ones. Null and amounts beyond 922337203685478 become 0; 0 is the integer 0.
/// A whole number keeps its type. The decimals are those of the value's text: "1.1250" has four.
Variant RoundAmount(const Variant& vValue, int nDigits);
/// The same as a double.
double RoundAmountOf(const Variant& vValue, int nDigits);

}  // namespace arap

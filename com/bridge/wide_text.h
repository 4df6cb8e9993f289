#pragma once

#include <string>
#include <string_view>

#include "bridge/handles.h"
#include "frame/variant.h"

/// Text is UTF-8 inside and UTF-16 at the COM boundary. A lone surrogate keeps its place in three bytes, so that a text
/// comes back as it went; bytes that aren't UTF-8 become U+FFFD.
namespace arap::com {

std::wstring to_wide(std::string_view sText);
std::string to_utf8(std::wstring_view sText);
/// The text of a BSTR; a null one is empty. NULs inside are kept.
std::string to_utf8(BSTR text);

Bstr to_bstr(std::string_view sText);
/// The text of a BSTR as a value, without a second copy.
Variant text_variant(BSTR text);
/// True when the BSTR holds this text.
bool holds(BSTR text, std::string_view sText);

}  // namespace arap::com

#include "bridge/wide_text.h"

#include <array>
#include <new>

namespace arap::com {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool is_continuation(unsigned char c) { return (c & 0xC0) == 0x80; }

/// Length and leading bits of a sequence by its first byte; length 0 for a byte that can't lead.
struct Lead {
  std::size_t nLength;
  char32_t bits;
  char32_t smallest;
};
Lead lead_of(unsigned char c) {
  if (c < 0x80) return {1, c, 0};
  if ((c & 0xE0) == 0xC0) return {2, c & 0x1Fu, 0x80};
  if ((c & 0xF0) == 0xE0) return {3, c & 0x0Fu, 0x800};
  if ((c & 0xF8) == 0xF0) return {4, c & 0x07u, 0x10000};
  return {0, 0, 0};
}

/// The code point at nAt, which moves behind it.
char32_t next_point(std::string_view sText, std::size_t& nAt) {
  const Lead lead = lead_of(static_cast<unsigned char>(sText[nAt]));
  const std::size_t nStart = nAt++;
  if (lead.nLength == 0 || nStart + lead.nLength > sText.size()) return kReplacement;
  char32_t point = lead.bits;
  for (std::size_t i = 1; i < lead.nLength; ++i) {
    const auto c = static_cast<unsigned char>(sText[nStart + i]);
    if (!is_continuation(c)) return kReplacement;
    point = (point << 6) | (c & 0x3Fu);
  }
  if (point < lead.smallest || point > 0x10FFFF) return kReplacement;
  nAt = nStart + lead.nLength;
  return point;
}

/// Calls put(wchar_t) for each unit.
template <class Put>
void each_unit(std::string_view sText, Put put) {
  for (std::size_t nAt = 0; nAt < sText.size();) {
    const char32_t point = next_point(sText, nAt);
    if (point < 0x10000) {
      put(static_cast<wchar_t>(point));
    } else {
      put(static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)));
      put(static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
  }
}

bool is_high(wchar_t c) { return c >= 0xD800 && c < 0xDC00; }
bool is_low(wchar_t c) { return c >= 0xDC00 && c < 0xE000; }

/// Writes at most three bytes for each unit; answers the end.
char* write_utf8(std::wstring_view sText, char* out) {
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const wchar_t c = sText[i];
    if (c < 0x80) {
      *out++ = static_cast<char>(c);
    } else if (c < 0x800) {
      *out++ = static_cast<char>(0xC0 | (c >> 6));
      *out++ = static_cast<char>(0x80 | (c & 0x3F));
    } else if (is_high(c) && i + 1 < sText.size() && is_low(sText[i + 1])) {
      const char32_t point = 0x10000 + ((c - 0xD800u) << 10) + (sText[++i] - 0xDC00u);
      *out++ = static_cast<char>(0xF0 | (point >> 18));
      *out++ = static_cast<char>(0x80 | ((point >> 12) & 0x3F));
      *out++ = static_cast<char>(0x80 | ((point >> 6) & 0x3F));
      *out++ = static_cast<char>(0x80 | (point & 0x3F));
    } else {
      *out++ = static_cast<char>(0xE0 | (c >> 12));
      *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      *out++ = static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

constexpr std::size_t kShortText = 256;

std::wstring_view view_of(BSTR text) { return {text == nullptr ? L"" : text, SysStringLen(text)}; }

/// Calls use(view) with the UTF-8 of the text; short texts need no memory of their own.
template <class Use>
auto with_utf8(std::wstring_view sText, Use use) {
  if (sText.size() <= kShortText) {
    std::array<char, 3 * kShortText> buffer;
    const char* const end = write_utf8(sText, buffer.data());
    return use(std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data())));
  }
  const std::string sUtf8 = to_utf8(sText);
  return use(std::string_view(sUtf8));
}

}  // namespace

std::wstring to_wide(std::string_view sText) {
  std::wstring sWide;
  sWide.reserve(sText.size());
  each_unit(sText, [&sWide](wchar_t c) { sWide.push_back(c); });
  return sWide;
}

std::string to_utf8(std::wstring_view sText) {
  std::string sUtf8(3 * sText.size(), '\0');
  sUtf8.resize(static_cast<std::size_t>(write_utf8(sText, sUtf8.data()) - sUtf8.data()));
  return sUtf8;
}

std::string to_utf8(BSTR text) { return to_utf8(view_of(text)); }

Bstr to_bstr(std::string_view sText) {
  std::size_t nUnits = 0;
  each_unit(sText, [&nUnits](wchar_t) { ++nUnits; });
  Bstr text = Bstr::adopt(SysAllocStringLen(nullptr, static_cast<UINT>(nUnits)));
  if (text.get() == nullptr) throw std::bad_alloc();
  wchar_t* out = text.get();
  each_unit(sText, [&out](wchar_t c) { *out++ = c; });
  return text;
}

Variant text_variant(BSTR text) {
  return with_utf8(view_of(text), [](std::string_view sUtf8) { return Variant(sUtf8); });
}

bool holds(BSTR text, std::string_view sText) {
  return with_utf8(view_of(text), [sText](std::string_view sUtf8) { return sUtf8 == sText; });
}

}  // namespace arap::com

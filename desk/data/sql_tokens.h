#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk {

struct SqlToken {
  enum class Kind { Word, Number, String, Variable, Symbol };
  Kind kind;
  /// A word without its brackets, a text without its quotes, a symbol as it stands.
  std::string sText;
  /// In bytes from the start of the text.
  std::size_t nOffset;
  bool bQuoted = false;
};

/// Cuts a text into tokens, without comments; neighbouring text literals joined by + become one. Raises DeskError with
/// the position of what it can't read.
std::vector<SqlToken> tokenize_sql(std::string_view sText);

/// Raises UnsupportedSql that names the 1-based character position.
[[noreturn]] void refuse_sql(std::string_view sText, std::size_t nOffset, const std::string& sReason);

}  // namespace desk

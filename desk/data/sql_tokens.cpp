#include "data/sql_tokens.h"

#include <algorithm>

#include "data/desk_error.h"

namespace desk {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_word_start(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool is_word(char c) { return is_word_start(c) || is_digit(c) || c == '$' || c == '#'; }

class Lexer {
 public:
  explicit Lexer(std::string_view sText) : text_(sText) {}

  std::vector<SqlToken> run() {
    constexpr std::size_t kUsualLength = 5;  // of a word with the blank behind it
    tokens_.reserve(text_.size() / kUsualLength + 1);
    while (skip_blanks()) tokens_.push_back(next());
    return std::move(tokens_);
  }

 private:
  using Kind = SqlToken::Kind;
  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }

  bool skip_blanks() {
    while (pos_ < text_.size()) {
      if (std::string_view(" \t\r\n").find(text_[pos_]) != std::string_view::npos) {
        ++pos_;
      } else if (text_.substr(pos_, 2) == "--") {
        pos_ = std::min(text_.find('\n', pos_), text_.size());
      } else if (text_.substr(pos_, 2) == "/*") {
        const std::size_t nEnd = text_.find("*/", pos_ + 2);
        if (nEnd == std::string_view::npos) refuse_sql(text_, pos_, "a comment has no end");
        pos_ = nEnd + 2;
      } else {
        return true;
      }
    }
    return false;
  }

  SqlToken next() {
    const char c = text_[pos_];
    if (c == '\'' || ((c == 'N' || c == 'n') && at(pos_ + 1) == '\'')) return string_literal();
    if (c == '[') return bracketed();
    if (is_digit(c) || (c == '.' && is_digit(at(pos_ + 1)))) return number();
    if (c == '@') return variable();
    if (is_word_start(c)) return word(Kind::Word, pos_);
    return symbol();
  }

  SqlToken string_literal() {
    const std::size_t nStart = pos_;
    pos_ = text_.find('\'', pos_) + 1;
    std::string sValue;
    for (;; ++pos_) {
      if (pos_ >= text_.size()) refuse_sql(text_, nStart, "a text literal has no end");
      if (text_[pos_] == '\'') {
        if (at(pos_ + 1) != '\'') break;
        ++pos_;
      }
      sValue += text_[pos_];
    }
    ++pos_;
    return {Kind::String, std::move(sValue), nStart};
  }

  SqlToken bracketed() {
    const std::size_t nEnd = text_.find(']', pos_);
    if (nEnd == std::string_view::npos) refuse_sql(text_, pos_, "a bracket has no end");
    SqlToken token{Kind::Word, std::string(text_.substr(pos_ + 1, nEnd - pos_ - 1)), pos_, true};
    pos_ = nEnd + 1;
    return token;
  }

  SqlToken number() {
    const std::size_t nStart = pos_;
    while (is_digit(at(pos_))) ++pos_;
    if (at(pos_) == '.') ++pos_;
    while (is_digit(at(pos_))) ++pos_;
    if (is_word_start(at(pos_))) refuse_sql(text_, nStart, "this number can't be read");
    return {Kind::Number, std::string(text_.substr(nStart, pos_ - nStart)), nStart};
  }

  SqlToken variable() {
    if (at(pos_ + 1) == '@') refuse_sql(text_, pos_, "server variables are not carried");
    const std::size_t nStart = pos_++;
    if (!is_word(at(pos_))) refuse_sql(text_, nStart, "a variable has no name");
    return word(Kind::Variable, nStart);
  }

  SqlToken word(Kind kind, std::size_t nStart) {
    while (is_word(at(pos_))) ++pos_;
    return {kind, std::string(text_.substr(nStart, pos_ - nStart)), nStart};
  }

  SqlToken symbol() {
    static constexpr std::string_view kPairs[] = {"<>", "<=", ">=", "!="};
    for (const std::string_view sPair : kPairs) {
      if (text_.substr(pos_, 2) != sPair) continue;
      pos_ += 2;
      return {Kind::Symbol, std::string(sPair), pos_ - 2};
    }
    if (std::string_view("(),.=<>+-*/%;").find(text_[pos_]) == std::string_view::npos)
      refuse_sql(text_, pos_, "this character can't be read");
    ++pos_;
    return {Kind::Symbol, std::string(1, text_[pos_ - 1]), pos_ - 1};
  }

  std::string_view text_;
  std::size_t pos_ = 0;
  std::vector<SqlToken> tokens_;
};

std::vector<SqlToken> join_literals(std::string_view sText, std::vector<SqlToken> tokens) {
  using Kind = SqlToken::Kind;
  const auto is_plus = [](const SqlToken& token) { return token.kind == Kind::Symbol && token.sText == "+"; };
  if (std::ranges::none_of(tokens, is_plus)) return tokens;
  std::vector<SqlToken> joined;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool bPlus = is_plus(tokens[i]);
    const bool bTextBefore = bPlus && !joined.empty() && joined.back().kind == Kind::String;
    const bool bTextAfter = bPlus && i + 1 < tokens.size() && tokens[i + 1].kind == Kind::String;
    if (bTextBefore && bTextAfter) {
      joined.back().sText += tokens[++i].sText;
    } else if (bTextBefore || bTextAfter) {
      refuse_sql(sText, tokens[i].nOffset, "only text literals can be joined by +");
    } else {
      joined.push_back(std::move(tokens[i]));
    }
  }
  return joined;
}

}  // namespace

std::vector<SqlToken> tokenize_sql(std::string_view sText) { return join_literals(sText, Lexer(sText).run()); }

void refuse_sql(std::string_view sText, std::size_t nOffset, const std::string& sReason) {
  const std::string_view sBefore = sText.substr(0, nOffset);
  const auto nCharacters = std::ranges::count_if(sBefore, [](char c) { return (c & 0xC0) != 0x80; });
  throw DeskError(ErrorKind::UnsupportedSql, "The SQL text can't be carried over: " + sReason,
                  "at character " + std::to_string(nCharacters + 1) + " of: " + std::string(sText));
}

}  // namespace desk

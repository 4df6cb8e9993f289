#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

/// Immutable shared text, UTF-8. Copying one costs a counter, a key named in the program costs nothing at all.
namespace arap {

/// The body behind a Text: counted, or with kStatic references in static storage and never freed.
struct TextBody {
  static constexpr std::int32_t kStatic = -1;
  mutable std::int32_t references;
  std::uint32_t size;
  const char* chars;
};

/// A field key, tool name or other name that stands in the program. Made only by the literal "..."_key, so the text
/// lives as long as the program, and comparable while compiling.
class Key {
 public:
  constexpr explicit Key(const TextBody* body) : body_(body) {}
  constexpr std::string_view view() const { return {body_->chars, body_->size}; }
  constexpr operator std::string_view() const { return view(); }
  constexpr const TextBody* body() const { return body_; }
  friend constexpr bool operator==(Key a, Key b) { return a.view() == b.view(); }

 private:
  const TextBody* body_;
};

/// The characters of a key literal, as a template argument.
template <std::size_t N>
struct KeyLiteral {
  char chars[N];
  consteval KeyLiteral(const char (&text)[N]) { std::copy_n(text, N, chars); }
};

template <KeyLiteral Literal>
inline constexpr KeyLiteral kKeyChars = Literal;

template <KeyLiteral Literal>
inline constexpr TextBody kKeyBody{TextBody::kStatic, sizeof(kKeyChars<Literal>.chars) - 1, kKeyChars<Literal>.chars};

template <KeyLiteral Literal>
constexpr Key operator""_key() {
  return Key(&kKeyBody<Literal>);
}

class Text {
 public:
  Text() noexcept = default;
  Text(Key key) noexcept : body_(key.body()) {}
  explicit Text(std::string_view text);
  Text(const Text& other) noexcept : body_(other.body_) { add_reference(); }
  Text(Text&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
  Text& operator=(Text other) noexcept {
    std::swap(body_, other.body_);
    return *this;
  }
  ~Text() { release(); }

  std::string_view view() const noexcept {
    return body_ == nullptr ? std::string_view{} : std::string_view{body_->chars, body_->size};
  }
  /// The same body means the same text; a key of the program always has the same body within one binary.
  const TextBody* body() const noexcept { return body_; }

 private:
  void add_reference() const noexcept {
    if (body_ != nullptr && body_->references != TextBody::kStatic) ++body_->references;
  }
  void release() noexcept {
    if (body_ != nullptr && body_->references != TextBody::kStatic && --body_->references == 0) free_body(body_);
  }
  static void free_body(const TextBody* body) noexcept;

  const TextBody* body_ = nullptr;  // nullptr is the empty text
};

}  // namespace arap

#include "frame/text.h"

#include <cstring>
#include <new>

namespace arap {

Text::Text(std::string_view text) {
  if (text.empty()) return;
  // One block: the body, then its characters.
  void* block = ::operator new(sizeof(TextBody) + text.size());
  char* chars = static_cast<char*>(block) + sizeof(TextBody);
  std::memcpy(chars, text.data(), text.size());
  body_ = new (block) TextBody{1, static_cast<std::uint32_t>(text.size()), chars};
}

void Text::free_body(const TextBody* body) noexcept { ::operator delete(const_cast<TextBody*>(body)); }

}  // namespace arap

#pragma once

#include <QString>

/// The desk's own words. The texts of the rules, of the templates and of the book's data stay as they are.
namespace desk {

enum class Language { Chinese, English };

void set_language(Language language);
Language language();

/// The caption in the chosen language; the Chinese one where no other is known.
QString words(const char* sChinese);

}  // namespace desk

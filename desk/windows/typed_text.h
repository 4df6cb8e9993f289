#pragma once

#include <QDate>

#include <optional>
#include <string>
#include <vector>

#include "engine/bill_template.h"
#include "engine/look_ups.h"

/// What a user may type short, made whole before it goes to the bill.
namespace desk {

/// "15" is the 15th of today's month, "3-15" that day of today's year; "20260315" and every other text stay as they
/// are, in the form yyyy-mm-dd where they are a date.
std::string complete_date(const std::string& sTyped, const QDate& today);

/// A small sum such as "100+20*3" or "=1200/4" becomes its result; whatever isn't one stays as it is.
std::string complete_amount(const std::string& sTyped);

/// The text as the field wants it.
std::string complete_entry(const TemplateField& field, const std::string& sTyped, const QDate& today);

/// The entry that a typed text names: the one of that exact code, else of that exact name, else the only one whose code
/// begins with it or whose name holds it, in any case. Nothing when none or several are left.
std::optional<LookUpItem> named_choice(const std::vector<LookUpItem>& items, const std::string& sTyped);

/// The entries that go with a half-typed text, all of them for none.
std::vector<LookUpItem> matching_choices(const std::vector<LookUpItem>& items, const std::string& sTyped);

}  // namespace desk

#pragma once

#include "data/qt_text.h"

/// Texts as the windows show them.
namespace desk {

/// An amount as people read it, its digits in groups of three: 1234567.50 is 1,234,567.50. Any other text stays.
QString grouped(QString sAmount);

/// A sentence with the amounts among its words in groups; an amount in a sentence has a decimal point.
QString with_grouped_amounts(const QString& sSentence);

/// What is looked for when this is typed: an amount as it is shown without its groups, any other text as it is.
QString looked_for(const QString& sTyped);

}  // namespace desk

#include "windows/typed_text.h"

#include <muParser.h>

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

#include "frame/conversions.h"
#include "windows/qt_text.h"

namespace desk {

namespace {

bool goes_with(const LookUpItem& item, const QString& sTyped) {
  return qt(item.sCode).startsWith(sTyped, Qt::CaseInsensitive) || qt(item.sName).contains(sTyped, Qt::CaseInsensitive);
}

std::string date_text(int nYear, int nMonth, int nDay, const std::string& sElse) {
  const QDate date(nYear, nMonth, nDay);
  return date.isValid() ? date.toString(Qt::ISODate).toStdString() : sElse;
}

}  // namespace

std::string complete_date(const std::string& sTyped, const QDate& today) {
  static const QRegularExpression kDay(QStringLiteral("^(\\d{1,2})$"));
  static const QRegularExpression kMonthAndDay(QStringLiteral("^(\\d{1,2})[-/.](\\d{1,2})$"));
  static const QRegularExpression kPlain(QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})$"));
  const QString sText = qt(sTyped).trimmed();
  if (const auto match = kDay.match(sText); match.hasMatch())
    return date_text(today.year(), today.month(), match.captured(1).toInt(), sTyped);
  if (const auto match = kMonthAndDay.match(sText); match.hasMatch())
    return date_text(today.year(), match.captured(1).toInt(), match.captured(2).toInt(), sTyped);
  if (const auto match = kPlain.match(sText); match.hasMatch())
    return date_text(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(), sTyped);
  return sTyped;
}

std::string complete_amount(const std::string& sTyped) {
  static const QRegularExpression kSum(QStringLiteral("^=?[-+*/(). 0-9]*[0-9][)]*[-+*/][-+*/(). 0-9]*$"));
  QString sText = qt(sTyped).trimmed().remove(QLatin1Char(','));
  const bool bAsked = sText.startsWith(QLatin1Char('='));
  if (!bAsked && !kSum.match(sText).hasMatch()) return utf8(sText);
  if (bAsked) sText.remove(0, 1);
  try {
    mu::Parser parser;
    parser.SetExpr(utf8(sText));
    const double dResult = parser.Eval();
    return std::isfinite(dResult) ? arap::TextOf(arap::Variant(dResult)) : sTyped;
  } catch (const mu::Parser::exception_type&) {
    return sTyped;
  }
}

std::string complete_entry(const TemplateField& field, const std::string& sTyped, const QDate& today) {
  if (field.lookUp) return sTyped;
  if (field.kind == FieldKind::Date) return complete_date(sTyped, today);
  return field.is_number() ? complete_amount(sTyped) : sTyped;
}

std::optional<LookUpItem> named_choice(const std::vector<LookUpItem>& items, const std::string& sTyped) {
  const QString sText = qt(sTyped).trimmed();
  const auto first = [&](auto&& fits) { return std::find_if(items.begin(), items.end(), fits); };
  auto found = first([&](const LookUpItem& item) { return qt(item.sCode).compare(sText, Qt::CaseInsensitive) == 0; });
  if (found == items.end()) {
    found = first([&](const LookUpItem& item) { return qt(item.sName).compare(sText, Qt::CaseInsensitive) == 0; });
  }
  if (found != items.end()) return *found;
  const std::vector<LookUpItem> matches = matching_choices(items, sTyped);
  return matches.size() == 1 && !sText.isEmpty() ? std::optional(matches.front()) : std::nullopt;
}

std::vector<LookUpItem> matching_choices(const std::vector<LookUpItem>& items, const std::string& sTyped) {
  const QString sText = qt(sTyped).trimmed();
  std::vector<LookUpItem> matches;
  std::copy_if(items.begin(), items.end(), std::back_inserter(matches),
               [&](const LookUpItem& item) { return sText.isEmpty() || goes_with(item, sText); });
  return matches;
}

}  // namespace desk

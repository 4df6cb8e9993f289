#include "windows/qt_text.h"

#include <QRegularExpression>
#include <QStringList>

namespace desk {

QString grouped(QString sAmount) {
  constexpr qsizetype kGroup = 3;
  static const QRegularExpression kAmount(QStringLiteral("^-?(\\d+)(\\.\\d*)?$"));
  const QRegularExpressionMatch match = kAmount.match(sAmount);
  if (!match.hasMatch()) return sAmount;
  for (qsizetype nPlace = match.capturedEnd(1) - kGroup; nPlace > match.capturedStart(1); nPlace -= kGroup)
    sAmount.insert(nPlace, QLatin1Char(','));
  return sAmount;
}

QString with_grouped_amounts(const QString& sSentence) {
  QStringList words = sSentence.split(QLatin1Char(' '));
  for (QString& sWord : words) {
    if (sWord.contains(QLatin1Char('.'))) sWord = grouped(sWord);
  }
  return words.join(QLatin1Char(' '));
}

QString looked_for(const QString& sTyped) {
  const QString sPlain = QString(sTyped).remove(QLatin1Char(','));
  return grouped(sPlain) == sTyped ? sPlain : sTyped;
}

}  // namespace desk

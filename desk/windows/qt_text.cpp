#include "windows/qt_text.h"

#include <QRegularExpression>

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

QString looked_for(const QString& sTyped) {
  const QString sPlain = QString(sTyped).remove(QLatin1Char(','));
  return grouped(sPlain) == sTyped ? sPlain : sTyped;
}

}  // namespace desk

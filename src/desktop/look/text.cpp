#include "desktop/look/text.h"

#include <QLocale>
#include <QTextDocument>
#include <algorithm>

namespace desktop {
namespace {

bool IsAscii(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool IsLeftOut(QChar c) {
  return c.isSpace() || c.category() == QChar::Punctuation_Dash || c.category() == QChar::Mark_NonSpacing;
}

}  // namespace

QString WithLineBreaks(const QString& text) {
  QString result = text;
  result.replace(QLatin1String("\n\r"), QLatin1String("\n"));
  result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  result.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return result;
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

QString Folded(QStringView text) {
  QString folded = text.toString();
  if (!IsAscii(text)) folded = folded.normalized(QString::NormalizationForm_KD);
  folded = folded.toCaseFolded();
  folded.removeIf(IsLeftOut);
  return folded;
}

QString Counted(long count, const QString& singular, const QString& plural) {
  const QLocale portuguese(QLocale::Portuguese, QLocale::Portugal);
  return portuguese.toString(static_cast<qlonglong>(count)) + QLatin1Char(' ') +
         (count == 1 ? singular : plural);
}

}  // namespace desktop

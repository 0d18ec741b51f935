#include "desktop/look/text.h"

#include <QTextDocument>
#include <algorithm>

#include "platform/format.h"

namespace desktop {
namespace {

bool IsAscii(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
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

QString WithMnemonic(const QString& text, QString& taken) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar letter = text[i].toLower();
    if (!IsAscii(text.mid(i, 1)) || !letter.isLetter() || taken.contains(letter)) continue;
    taken += letter;
    return text.left(i) + QLatin1Char('&') + text.mid(i);
  }
  return text;
}

QString Grouped(long number) {
  return ToQt(platform::FormatNumber(static_cast<double>(number), "###,###,###,##0"));
}

QString Counted(long count, const QString& singular, const QString& plural) {
  return Grouped(count) + QLatin1Char(' ') + (count == 1 ? singular : plural);
}

}  // namespace desktop

#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace desktop {

/// Texts of the module are UTF-8, those of the window UTF-16.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// A message of the module with its line breaks, in whatever order of characters, as single ones.
QString WithLineBreaks(const QString& text);

/// A tool tip that shows the text as it stands, also when it looks like markup.
QString PlainToolTip(const QString& text);

/// The text with "&" before its first letter that isn't taken yet, which then is; as it was when all are.
QString WithMnemonic(const QString& text, QString& taken);

/// A whole number as the module writes it: "11.691".
QString Grouped(long number);
/// A count with its noun: "1 registo", "1.250 registos".
QString Counted(long count, const QString& singular, const QString& plural);

}  // namespace desktop

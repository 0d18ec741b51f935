#pragma once

#include <QProcess>
#include <QString>

namespace desktop_test {

/// The text of a PDF, pages apart by form feeds.
inline QString PdfText(const QString& file) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", "-enc", "UTF-8", file, "-"});
  reader.waitForFinished();
  return QString::fromUtf8(reader.readAllStandardOutput());
}

}  // namespace desktop_test

#pragma once

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <vector>

namespace desktop_test {

/// The text of a PDF, pages apart by form feeds.
inline QString PdfText(const QString& file) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", "-enc", "UTF-8", file, "-"});
  reader.waitForFinished();
  return QString::fromUtf8(reader.readAllStandardOutput());
}

struct PdfWord {
  QString text;
  double top;
  double bottom;
};

/// The words of a PDF's first page with their places, in points from the top.
inline std::vector<PdfWord> PdfWords(const QString& file) {
  QProcess reader;
  reader.start("pdftotext", {"-bbox", "-l", "1", "-enc", "UTF-8", file, "-"});
  reader.waitForFinished();
  static const QRegularExpression word(R"re(yMin="([\d.]+)" xMax="[\d.]+" yMax="([\d.]+)">([^<]*)<)re");
  std::vector<PdfWord> words;
  auto matches = word.globalMatch(QString::fromUtf8(reader.readAllStandardOutput()));
  while (matches.hasNext()) {
    const auto match = matches.next();
    words.push_back({match.captured(3), match.captured(1).toDouble(), match.captured(2).toDouble()});
  }
  return words;
}

/// A PDF's first page as it looks.
inline QImage PdfPicture(const QString& file) {
  QProcess painter;
  painter.start("pdftoppm", {"-png", "-r", "100", "-singlefile", file, file});
  painter.waitForFinished();
  return QImage(file + ".png");
}

}  // namespace desktop_test

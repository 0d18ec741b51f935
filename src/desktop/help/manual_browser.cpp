#include "desktop/help/manual_browser.h"

#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "manual/pages.h"

namespace desktop {
namespace {

constexpr int kPictureWidth = 36;  // at most, in lines of text

/// Small letters without accents, as many as there were.
QString Unaccented(const QString& text) {
  QString plain = text;
  for (QChar& c : plain) {
    const QString apart = c.decomposition();
    c = (apart.isEmpty() || c.decompositionTag() != QChar::Canonical ? c : apart.front()).toLower();
  }
  return plain;
}

}  // namespace

ManualBrowser::ManualBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenExternalLinks(true);
  setFrameShape(QFrame::NoFrame);
  setAccessibleName(QStringLiteral("Página do manual"));
  document()->setDocumentMargin(WideGap(this));
  connect(this, &QTextBrowser::sourceChanged, this, &ManualBrowser::DrawTablesFlat);
}

void ManualBrowser::ShowPage(const manual::Page& page) {
  setSource(QUrl(ToQt(page.name) + QStringLiteral(".md")), QTextDocument::MarkdownResource);
}

QString ManualBrowser::NameOf(const QUrl& page) { return page.path().section(QLatin1Char('.'), 0, 0); }

void ManualBrowser::DrawTablesFlat() {
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(LineColor(palette()));
    format.setCellSpacing(0);
    format.setCellPadding(Gap(this) / 2.0);
    table->setFormat(format);
  }
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
  const QString file = name.fileName();
  if (type == QTextDocument::ImageResource) return Picture(file);
  const manual::Page* page = manual::FindPage(FromQt(file.section(QLatin1Char('.'), 0, 0)));
  return page != nullptr ? QVariant(ToQt(page->text)) : QVariant();
}

/// A picture that is wider than the column of text is made narrower, as sharp as the screen allows.
QVariant ManualBrowser::Picture(const QString& file) const {
  QImage picture(QStringLiteral(":/manual/") + file);
  const int width = std::min(picture.width(), kPictureWidth * Em(this));
  if (picture.isNull() || width == picture.width()) return picture;
  const double pixels = devicePixelRatioF();
  picture = picture.scaledToWidth(static_cast<int>(width * pixels), Qt::SmoothTransformation);
  picture.setDevicePixelRatio(pixels);
  return picture;
}

void ManualBrowser::MarkWords(const QStringList& words) {
  QList<QTextEdit::ExtraSelection> marks;
  QTextCharFormat format;
  format.setBackground(Blend(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.35));
  qsizetype most = 0;
  QTextBlock best;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    const QString plain = Unaccented(block.text());
    qsizetype found = 0;
    for (const QString& word : words) {
      const QString wanted = Unaccented(word);
      if (plain.contains(wanted)) ++found;
      for (qsizetype at = plain.indexOf(wanted); at >= 0; at = plain.indexOf(wanted, at + wanted.size())) {
        QTextEdit::ExtraSelection mark{QTextCursor(block), format};
        mark.cursor.setPosition(block.position() + static_cast<int>(at));
        mark.cursor.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor,
                                 static_cast<int>(wanted.size()));
        marks << mark;
      }
    }
    if (found <= most) continue;
    most = found;
    best = block;
  }
  setExtraSelections(marks);
  if (!best.isValid()) return;
  moveCursor(QTextCursor::End);  // so that the place comes to stand at the top
  setTextCursor(QTextCursor(best));
  verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - WideGap(this));
}

}  // namespace desktop

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include "desktop/look/icons.h"
#include "desktop/look/text.h"
#include "desktop/print/print_measures.h"
#include "desktop/print/table_printer.h"

namespace desktop {
namespace {

// Points.
constexpr double kRule = 0.5;
constexpr double kMarkSide = 6;

const QColor kRuleColor(190, 190, 190);
const QColor kSideText(90, 90, 90);
const QColor kHeadingColor(240, 240, 240);

}  // namespace

double LayOut(QTextLayout& layout, double width, Qt::Alignment alignment) {
  QTextOption option(alignment);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  double height = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

void TablePrinter::DrawPage(QPainter& painter, long from, long to, int page, int pages) const {
  DrawHeader(painter);
  double top = first_row_;
  for (long place = from; place < to; ++place) {
    const double height = LineHeight(place);
    if (const PaperTable::Heading* heading = HeadingAt(place))
      DrawHeading(painter, *heading, top, height);
    else
      DrawRow(painter, lines_[static_cast<std::size_t>(place)], top);
    top += height;
    painter.setPen(QPen(kRuleColor, kRule * point_ / 2));
    painter.drawLine(QPointF(0, top), QPointF(page_.width(), top));
  }
  DrawFooter(painter, page, pages);
}

void TablePrinter::DrawHeader(QPainter& painter) const {
  const double title = QFontMetricsF(title_font_, device_).height();
  painter.setPen(Qt::black);
  painter.setFont(title_font_);
  painter.drawText(QRectF(kCellPadding * point_, 0, page_.width(), title), Qt::AlignLeft | Qt::AlignVCenter,
                   title_);
  painter.setPen(kSideText);
  painter.setFont(text_font_);
  painter.drawText(QRectF(0, 0, page_.width() - kCellPadding * point_, title),
                   Qt::AlignRight | Qt::AlignVCenter, date_.toString(QStringLiteral("dd-MM-yyyy")));
  if (!paper_.notes.isEmpty())
    painter.drawText(QRectF(kCellPadding * point_, title, page_.width(), NotesHeight()),
                     Qt::AlignLeft | Qt::TextWordWrap, paper_.notes.join(QLatin1Char('\n')));
  painter.setPen(Qt::black);
  const double top = title + NotesHeight() + kTextSize * point_;
  for (const Column& column : columns_)
    DrawCell(painter, source_.Columns()[column.index].caption, column, top, heading_font_);
  painter.setPen(QPen(Qt::black, kRule * point_));
  const double line = first_row_ - kCellPadding * point_ / 2;
  painter.drawLine(QPointF(0, line), QPointF(page_.width(), line));
}

void TablePrinter::DrawHeading(QPainter& painter, const PaperTable::Heading& heading, double top,
                               double height) const {
  painter.fillRect(QRectF(0, top, page_.width(), height), kHeadingColor);
  painter.setPen(Qt::black);
  for (const Column& column : HeadingColumns(heading))
    DrawCell(painter, heading.texts[static_cast<qsizetype>(column.index)], column,
             top + kCellPadding * point_ / 2, heading_font_);
}

void TablePrinter::DrawRow(QPainter& painter, long row, double top) const {
  top += kCellPadding * point_ / 2;
  DrawMark(painter, row, top);
  painter.setPen(Qt::black);
  for (Column column : columns_) {
    const double mark = MarkRoom(row, column);
    column.left += mark;
    column.width -= mark;
    DrawCell(painter, source_.Text(row, column.index), column, top, text_font_);
  }
}

/// Light bands have a dark edge, so that their marks are seen on white.
void TablePrinter::DrawMark(QPainter& painter, long row, double top) const {
  const std::optional<RowBand> band = source_.BandOf(row);
  if (!band) return;
  const double side = kMarkSide * point_;
  const double line = QFontMetricsF(text_font_, device_).height();
  const QRectF square(kCellPadding * point_, top + (line - side) / 2, side, side);
  const double edge = kRule * point_;
  DrawBandMark(painter, square.adjusted(-edge, -edge, edge, edge), band->order, Qt::black);
  DrawBandMark(painter, square.adjusted(edge, edge, -edge, -edge), band->order, band->color);
}

void TablePrinter::DrawFooter(QPainter& painter, int page, int pages) const {
  const double height = QFontMetricsF(text_font_, device_).height();
  const QRectF footer(kCellPadding * point_, page_.height() - height,
                      page_.width() - 2 * kCellPadding * point_, height);
  painter.setFont(text_font_);
  painter.setPen(kSideText);
  painter.drawText(footer, Qt::AlignLeft | Qt::AlignVCenter,
                   Counted(*paper_.counted, QStringLiteral("registo"), QStringLiteral("registos")));
  painter.drawText(footer, Qt::AlignRight | Qt::AlignVCenter,
                   QStringLiteral("Página %1 de %2").arg(page).arg(pages));
}

void TablePrinter::DrawCell(QPainter& painter, const QString& text, const Column& column, double top,
                            const QFont& font) const {
  if (text.isEmpty()) return;
  QTextLayout layout(text, font, device_);
  LayOut(layout, column.width - 2 * kCellPadding * point_,
         source_.Columns()[column.index].numeric ? Qt::AlignRight : Qt::AlignLeft);
  layout.draw(&painter, {column.left + kCellPadding * point_, top});
}

}  // namespace desktop

#include "desktop/table_printer.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace desktop {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kMarginMm = 15;
// Points.
constexpr double kTitleSize = 15;
constexpr double kTextSize = 9;
constexpr double kCellPadding = 3;
constexpr double kRule = 0.5;
constexpr double kNoLigatures = 0.02;  // pixels of the device

const QColor kRuleColor(190, 190, 190);
const QColor kSideText(90, 90, 90);

/// Breaks a text into lines of a width and gives their height.
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

}  // namespace

TablePrinter::TablePrinter(const TableSource& source, const RowOrder* order, QString title, QDate date)
    : source_(source), order_(order), title_(std::move(title)), date_(date) {
  text_font_ = QApplication::font();
  text_font_.setPointSizeF(kTextSize);
  // Any spacing turns ligatures off, which programs that search a PDF don't read as letters.
  text_font_.setLetterSpacing(QFont::AbsoluteSpacing, kNoLigatures);
  heading_font_ = text_font_;
  heading_font_.setBold(true);
  title_font_ = heading_font_;
  title_font_.setPointSizeF(kTitleSize);
}

long TablePrinter::Count() const { return order_ != nullptr ? order_->Count() : source_.Rows(); }
long TablePrinter::RowAt(long place) const { return order_ != nullptr ? order_->RowAt(place) : place; }

QPageLayout TablePrinter::PageLayout() const {
  double points = 0;
  for (std::size_t column : source_.VisibleColumns())
    points += source_.Columns()[column].width / kTwipsPerPoint;
  QPageLayout layout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                     QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
  if (points > layout.paintRect(QPageLayout::Point).width()) layout.setOrientation(QPageLayout::Landscape);
  return layout;
}

bool TablePrinter::Print(QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  Measure(device);
  const std::vector<long> breaks = PageBreaks();
  const int pages = static_cast<int>(breaks.size()) - 1;
  for (int page = 0; page < pages; ++page) {
    if (page > 0) device.newPage();
    const auto at = static_cast<std::size_t>(page);
    DrawPage(painter, breaks[at], breaks[at + 1], page + 1, pages);
  }
  return painter.end();
}

void TablePrinter::Measure(const QPagedPaintDevice& device) {
  device_ = &device;
  point_ = device.logicalDpiY() / 72.0;
  page_ = QSizeF(device.width(), device.height());
  columns_.clear();
  double wanted = 0;
  for (std::size_t i : source_.VisibleColumns())
    wanted += source_.Columns()[i].width / kTwipsPerPoint * point_;
  const double share = wanted > page_.width() ? page_.width() / wanted : 1;
  double left = 0;
  for (std::size_t i : source_.VisibleColumns()) {
    const double width = source_.Columns()[i].width / kTwipsPerPoint * point_ * share;
    columns_.push_back({i, left, width});
    left += width;
  }
  // The last column takes what is left, unless numbers would wander off to the edge.
  if (!columns_.empty() && !source_.Columns()[columns_.back().index].numeric)
    columns_.back().width = page_.width() - columns_.back().left;

  double headings = 0;
  for (const Column& column : columns_)
    headings = std::max(headings, CellHeight(source_.Columns()[column.index].caption, column.width));
  const double title = QFontMetricsF(title_font_, &device).height();
  first_row_ = title + kTextSize * point_ + headings + 2 * kCellPadding * point_;
  last_row_ = page_.height() - 2 * QFontMetricsF(text_font_, &device).height();
}

/// The first row of each page, and the number of rows at the end. An empty table has one page.
std::vector<long> TablePrinter::PageBreaks() const {
  std::vector<long> breaks{0};
  double top = first_row_;
  for (long place = 0; place < Count(); ++place) {
    const double height = RowHeight(place);
    if (top + height > last_row_ && place > breaks.back()) {
      breaks.push_back(place);
      top = first_row_;
    }
    top += height;
  }
  breaks.push_back(Count());
  return breaks;
}

double TablePrinter::CellHeight(const QString& text, double width) const {
  QTextLayout layout(text, text_font_, device_);
  return LayOut(layout, width - 2 * kCellPadding * point_, Qt::AlignLeft);
}

double TablePrinter::RowHeight(long place) const {
  const QFontMetricsF metrics(text_font_, device_);
  double height = metrics.height();
  for (const Column& column : columns_) {
    const QString text = source_.Text(RowAt(place), column.index);
    if (metrics.horizontalAdvance(text) > column.width - 2 * kCellPadding * point_ ||
        text.contains(QLatin1Char('\n')))
      height = std::max(height, CellHeight(text, column.width));
  }
  return height + kCellPadding * point_;
}

void TablePrinter::DrawPage(QPainter& painter, long from, long to, int page, int pages) const {
  DrawHeader(painter);
  double top = first_row_;
  for (long place = from; place < to; ++place) {
    DrawRow(painter, place, top);
    top += RowHeight(place);
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
  painter.setPen(Qt::black);
  const double top = title + kTextSize * point_;
  for (const Column& column : columns_)
    DrawCell(painter, source_.Columns()[column.index].caption, column, top, heading_font_);
  painter.setPen(QPen(Qt::black, kRule * point_));
  const double line = first_row_ - kCellPadding * point_ / 2;
  painter.drawLine(QPointF(0, line), QPointF(page_.width(), line));
}

void TablePrinter::DrawRow(QPainter& painter, long place, double top) const {
  painter.setPen(Qt::black);
  for (const Column& column : columns_)
    DrawCell(painter, source_.Text(RowAt(place), column.index), column, top + kCellPadding * point_ / 2,
             text_font_);
}

void TablePrinter::DrawFooter(QPainter& painter, int page, int pages) const {
  const double height = QFontMetricsF(text_font_, device_).height();
  const QRectF footer(kCellPadding * point_, page_.height() - height,
                      page_.width() - 2 * kCellPadding * point_, height);
  painter.setFont(text_font_);
  painter.setPen(kSideText);
  const long rows = Count();
  painter.drawText(footer, Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("%1 %2").arg(rows).arg(rows == 1 ? QStringLiteral("registo")
                                                                   : QStringLiteral("registos")));
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

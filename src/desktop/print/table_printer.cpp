#include "desktop/print/table_printer.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <optional>

#include "desktop/look/icons.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kMarginMm = 15;
// Points.
constexpr double kTitleSize = 15;
constexpr double kTextSize = 9;
constexpr double kCellPadding = 4;
constexpr double kRule = 0.5;
constexpr double kMarkSide = 6;
constexpr double kMarkRoom = 9;
constexpr double kNoLigatures = 0.02;  // pixels of the device
// Texts are measured in a large font, in which a pixel is too small to matter, with a little to spare.
constexpr int kMeasuredPixels = 200;
constexpr double kSlack = 1.01;

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

TablePrinter::TablePrinter(const TableSource& source, std::optional<std::vector<long>> rows, QString title,
                           QDate date, QStringList notes)
    : source_(source),
      rows_(std::move(rows)),
      title_(std::move(title)),
      date_(date),
      notes_(std::move(notes)) {
  text_font_ = QApplication::font();
  text_font_.setPointSizeF(kTextSize);
  // Any spacing turns ligatures off, which programs that search a PDF don't read as letters.
  text_font_.setLetterSpacing(QFont::AbsoluteSpacing, kNoLigatures);
  heading_font_ = text_font_;
  heading_font_.setBold(true);
  title_font_ = heading_font_;
  title_font_.setPointSizeF(kTitleSize);
  wishes_ = Wishes();
}

long TablePrinter::Count() const { return rows_ ? static_cast<long>(rows_->size()) : source_.Rows(); }
long TablePrinter::RowAt(long place) const {
  return rows_ ? (*rows_)[static_cast<std::size_t>(place)] : place;
}

/// What each column is given and holds, all rows looked at.
std::vector<ColumnWish> TablePrinter::Wishes() const {
  const auto measured = [](QFont font) {
    font.setPixelSize(kMeasuredPixels);
    return QFontMetricsF(font);
  };
  const QFontMetricsF text = measured(text_font_);
  const QFontMetricsF heading = measured(heading_font_);
  const std::vector<std::size_t> visible = source_.VisibleColumns();
  std::vector<double> widest;
  widest.reserve(visible.size());
  for (std::size_t i : visible) widest.push_back(heading.horizontalAdvance(source_.Columns()[i].caption));
  bool marked = false;
  for (long place = 0; place < Count(); ++place) {
    const long row = RowAt(place);
    marked = marked || source_.BandOf(row).has_value();
    for (std::size_t i = 0; i < visible.size(); ++i)
      widest[i] = std::max(widest[i], text.horizontalAdvance(source_.Text(row, visible[i])));
  }
  std::vector<ColumnWish> wishes;
  for (std::size_t i = 0; i < visible.size(); ++i)
    wishes.push_back({.given = source_.Columns()[visible[i]].width / kTwipsPerPoint,
                      .holds = widest[i] * kTextSize / kMeasuredPixels * kSlack + 2 * kCellPadding +
                               (marked && i == 0 ? kMarkRoom : 0)});
  return wishes;
}

QPageLayout TablePrinter::PageLayout() const {
  double points = 0;
  for (const ColumnWish& wish : wishes_) points += wish.holds;
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
  PlaceColumns();
  double headings = 0;
  for (const Column& column : columns_)
    headings =
        std::max(headings, CellHeight(source_.Columns()[column.index].caption, heading_font_, column.width));
  const double title = QFontMetricsF(title_font_, &device).height();
  first_row_ = title + NotesHeight() + kTextSize * point_ + headings + 2 * kCellPadding * point_;
  last_row_ = page_.height() - 2 * QFontMetricsF(text_font_, &device).height();
}

void TablePrinter::PlaceColumns() {
  const std::vector<std::size_t> visible = source_.VisibleColumns();
  const std::vector<double> widths = ShareRoom(wishes_, page_.width() / point_);
  columns_.clear();
  double left = 0;
  for (std::size_t i = 0; i < visible.size(); ++i) {
    columns_.push_back({visible[i], left, widths[i] * point_});
    left += columns_.back().width;
  }
  // The last column takes what is left, unless numbers would wander off to the edge.
  if (!columns_.empty() && !source_.Columns()[columns_.back().index].numeric)
    columns_.back().width = page_.width() - columns_.back().left;
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

double TablePrinter::CellHeight(const QString& text, const QFont& font, double width) const {
  QTextLayout layout(text, font, device_);
  return LayOut(layout, width - 2 * kCellPadding * point_, Qt::AlignLeft);
}

double TablePrinter::NotesHeight() const {
  if (notes_.isEmpty()) return 0;
  const QRectF room(0, 0, page_.width(), page_.height());
  return QFontMetricsF(text_font_, device_)
      .boundingRect(room, Qt::AlignLeft | Qt::TextWordWrap, notes_.join(QLatin1Char('\n')))
      .height();
}

double TablePrinter::RowHeight(long place) const {
  const QFontMetricsF metrics(text_font_, device_);
  double height = metrics.height();
  for (const Column& column : columns_) {
    const QString text = source_.Text(RowAt(place), column.index);
    const double width = column.width - MarkRoom(RowAt(place), column);
    if (metrics.horizontalAdvance(text) > width - 2 * kCellPadding * point_ ||
        text.contains(QLatin1Char('\n')))
      height = std::max(height, CellHeight(text, text_font_, width));
  }
  return height + kCellPadding * point_;
}

/// What the band's mark takes of a cell: only the first column bears it.
double TablePrinter::MarkRoom(long row, const Column& column) const {
  const bool bears = column.index == columns_.front().index && source_.BandOf(row).has_value();
  return bears ? kMarkRoom * point_ : 0;
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
  if (!notes_.isEmpty())
    painter.drawText(QRectF(kCellPadding * point_, title, page_.width(), NotesHeight()),
                     Qt::AlignLeft | Qt::TextWordWrap, notes_.join(QLatin1Char('\n')));
  painter.setPen(Qt::black);
  const double top = title + NotesHeight() + kTextSize * point_;
  for (const Column& column : columns_)
    DrawCell(painter, source_.Columns()[column.index].caption, column, top, heading_font_);
  painter.setPen(QPen(Qt::black, kRule * point_));
  const double line = first_row_ - kCellPadding * point_ / 2;
  painter.drawLine(QPointF(0, line), QPointF(page_.width(), line));
}

void TablePrinter::DrawRow(QPainter& painter, long place, double top) const {
  const long row = RowAt(place);
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
                   Counted(Count(), QStringLiteral("registo"), QStringLiteral("registos")));
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

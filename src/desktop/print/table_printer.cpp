#include "desktop/print/table_printer.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/print/print_measures.h"

namespace desktop {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kMarginMm = 15;
constexpr double kTitleSize = 15;      // points
constexpr double kNoLigatures = 0.02;  // pixels of the device
// Texts are measured in a large font, in which a pixel is too small to matter, with a little to spare.
constexpr int kMeasuredPixels = 200;
constexpr double kSlack = 1.01;

}  // namespace

TablePrinter::TablePrinter(const TableSource& source, PaperTable paper, QString title, QDate date)
    : source_(source), paper_(std::move(paper)), title_(std::move(title)), date_(date) {
  PlaceLines();
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

void TablePrinter::PlaceLines() {
  const long count = paper_.rows ? static_cast<long>(paper_.rows->size()) : source_.Rows();
  if (!paper_.counted) paper_.counted = count;
  long heading = 0;
  const auto add_headings = [&](long before) {
    for (; heading < static_cast<long>(paper_.headings.size()); ++heading) {
      if (paper_.headings[static_cast<std::size_t>(heading)].before > before) return;
      lines_.push_back(~heading);
    }
  };
  for (long place = 0; place < count; ++place) {
    add_headings(place);
    lines_.push_back(paper_.rows ? (*paper_.rows)[static_cast<std::size_t>(place)] : place);
  }
  add_headings(count);
}

/// Null where a row stands.
const PaperTable::Heading* TablePrinter::HeadingAt(long place) const {
  const long line = lines_[static_cast<std::size_t>(place)];
  return line < 0 ? &paper_.headings[static_cast<std::size_t>(~line)] : nullptr;
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
  for (long row : lines_) {
    if (row < 0) continue;
    marked = marked || source_.BandOf(row).has_value();
    for (std::size_t i = 0; i < visible.size(); ++i)
      widest[i] = std::max(widest[i], text.horizontalAdvance(source_.Text(row, visible[i])));
  }
  // Sums are wider than what they sum up; a heading's title has the room of others.
  for (const PaperTable::Heading& line : paper_.headings)
    for (std::size_t i = 1; i < visible.size(); ++i)
      widest[i] = std::max(widest[i],
                           heading.horizontalAdvance(line.texts.value(static_cast<qsizetype>(visible[i]))));
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

/// The first line of each page, and the number of lines at the end. An empty table has one page; a heading
/// stands on the page of what follows it.
std::vector<long> TablePrinter::PageBreaks() const {
  std::vector<long> breaks{0};
  double top = first_row_;
  for (long place = 0; place < LineCount(); ++place) {
    const double height = LineHeight(place);
    const bool leads = HeadingAt(place) != nullptr && place + 1 < LineCount();
    const double needed = height + (leads ? LineHeight(place + 1) : 0);
    if (top + needed > last_row_ && place > breaks.back()) {
      breaks.push_back(place);
      top = first_row_;
    }
    top += height;
  }
  breaks.push_back(LineCount());
  return breaks;
}

double TablePrinter::CellHeight(const QString& text, const QFont& font, double width) const {
  QTextLayout layout(text, font, device_);
  return LayOut(layout, width - 2 * kCellPadding * point_, Qt::AlignLeft);
}

double TablePrinter::NotesHeight() const {
  if (paper_.notes.isEmpty()) return 0;
  const QRectF room(0, 0, page_.width(), page_.height());
  return QFontMetricsF(text_font_, device_)
      .boundingRect(room, Qt::AlignLeft | Qt::TextWordWrap, paper_.notes.join(QLatin1Char('\n')))
      .height();
}

/// The first text has the room of the columns behind it that have none.
std::vector<TablePrinter::Column> TablePrinter::HeadingColumns(const PaperTable::Heading& heading) const {
  std::vector<Column> columns;
  for (const Column& column : columns_) {
    const bool empty = heading.texts.value(static_cast<qsizetype>(column.index)).isEmpty();
    if (columns.size() == 1 && empty)
      columns.front().width = column.left + column.width - columns.front().left;
    else if (!empty)
      columns.push_back(column);
  }
  return columns;
}

double TablePrinter::HeadingHeight(const PaperTable::Heading& heading) const {
  double height = QFontMetricsF(heading_font_, device_).height();
  for (const Column& column : HeadingColumns(heading))
    height = std::max(
        height, CellHeight(heading.texts[static_cast<qsizetype>(column.index)], heading_font_, column.width));
  return height + kCellPadding * point_;
}

double TablePrinter::LineHeight(long place) const {
  if (const PaperTable::Heading* heading = HeadingAt(place)) return HeadingHeight(*heading);
  const long row = lines_[static_cast<std::size_t>(place)];
  const QFontMetricsF metrics(text_font_, device_);
  double height = metrics.height();
  for (const Column& column : columns_) {
    const QString text = source_.Text(row, column.index);
    const double width = column.width - MarkRoom(row, column);
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

}  // namespace desktop

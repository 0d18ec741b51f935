#pragma once

#include <QDate>
#include <QFont>
#include <QPageLayout>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <vector>

#include "desktop/list/column_widths.h"
#include "desktop/list/table_source.h"
#include "desktop/print/paper_table.h"

class QPagedPaintDevice;
class QPainter;

namespace desktop {

/// A table on paper: title and date at the top, headings on each page, "Página n de m" at the bottom. Columns
/// share the page by what they hold; what doesn't fit a cell goes on in the next line. A row's alert band is
/// told by its mark, in the band's colour.
class TablePrinter {
 public:
  /// Reads the rows that are printed, and raises the errors of that.
  TablePrinter(const TableSource& source, PaperTable paper, QString title, QDate date);

  /// The page that suits the columns: upright, or across when what they hold is wide.
  QPageLayout PageLayout() const;
  /// Prints all pages. False when the device can't be painted on.
  bool Print(QPagedPaintDevice& device);

 private:
  struct Column {
    std::size_t index;
    double left;
    double width;
  };

  void Measure(const QPagedPaintDevice& device);
  void PlaceColumns();
  std::vector<ColumnWish> Wishes() const;
  std::vector<long> PageBreaks() const;
  double CellHeight(const QString& text, const QFont& font, double width) const;
  double LineHeight(long place) const;
  double HeadingHeight(const PaperTable::Heading& heading) const;
  double NotesHeight() const;
  double MarkRoom(long row, const Column& column) const;
  void DrawPage(QPainter& painter, long from, long to, int page, int pages) const;
  void DrawHeader(QPainter& painter) const;
  void DrawRow(QPainter& painter, long row, double top) const;
  void DrawHeading(QPainter& painter, const PaperTable::Heading& heading, double top, double height) const;
  void DrawFooter(QPainter& painter, int page, int pages) const;
  void DrawCell(QPainter& painter, const QString& text, const Column& column, double top,
                const QFont& font) const;
  void DrawMark(QPainter& painter, long row, double top) const;
  void PlaceLines();
  long LineCount() const { return static_cast<long>(lines_.size()); }
  const PaperTable::Heading* HeadingAt(long place) const;
  std::vector<Column> HeadingColumns(const PaperTable::Heading& heading) const;

  const TableSource& source_;
  PaperTable paper_;
  std::vector<long> lines_;  // in order: a row of the source, or the complement of a heading's number
  QString title_;
  QDate date_;
  std::vector<ColumnWish> wishes_;  // of the visible columns, in points

  // All of these are in pixels of the device.
  const QPagedPaintDevice* device_ = nullptr;
  double point_ = 1;
  QSizeF page_;
  std::vector<Column> columns_;
  double first_row_ = 0;
  double last_row_ = 0;
  QFont title_font_;
  QFont heading_font_;
  QFont text_font_;
};

}  // namespace desktop

#pragma once

#include <QDate>
#include <QFont>
#include <QPageLayout>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "desktop/list/column_widths.h"
#include "desktop/list/table_source.h"

class QPagedPaintDevice;
class QPainter;

namespace desktop {

/// A table on paper: title and date at the top, headings on each page, "Página n de m" at the bottom. Columns
/// share the page by what they hold; what doesn't fit a cell goes on in the next line. A row's alert band is
/// told by its mark, in the band's colour.
class TablePrinter {
 public:
  /// Prints these rows, or all rows of the source. Reads them, and raises the errors of that.
  TablePrinter(const TableSource& source, std::optional<std::vector<long>> rows, QString title, QDate date,
               QStringList notes = {});

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
  double RowHeight(long place) const;
  double NotesHeight() const;
  double MarkRoom(long row, const Column& column) const;
  void DrawPage(QPainter& painter, long from, long to, int page, int pages) const;
  void DrawHeader(QPainter& painter) const;
  void DrawRow(QPainter& painter, long place, double top) const;
  void DrawFooter(QPainter& painter, int page, int pages) const;
  void DrawCell(QPainter& painter, const QString& text, const Column& column, double top,
                const QFont& font) const;
  void DrawMark(QPainter& painter, long row, double top) const;
  long Count() const;
  long RowAt(long place) const;

  const TableSource& source_;
  std::optional<std::vector<long>> rows_;
  QString title_;
  QDate date_;
  QStringList notes_;               // a line each, below the title
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

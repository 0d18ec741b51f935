#pragma once

#include <QDate>
#include <QFont>
#include <QPageLayout>
#include <QSizeF>
#include <QString>
#include <vector>

#include "desktop/row_order.h"

class QPagedPaintDevice;
class QPainter;

namespace desktop {

/// A table on paper: title and date at the top, headings on each page, "Página n de m" at the bottom. Columns
/// have the widths of their source, narrower when the page needs it; what doesn't fit a cell goes on in the
/// next line.
class TablePrinter {
 public:
  /// Prints the rows of an order, or all rows of the source without one.
  TablePrinter(const TableSource& source, const RowOrder* order, QString title, QDate date);

  /// The page that suits the columns: upright, or across when they are wide.
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
  std::vector<long> PageBreaks() const;
  double CellHeight(const QString& text, double width) const;
  double RowHeight(long place) const;
  void DrawPage(QPainter& painter, long from, long to, int page, int pages) const;
  void DrawHeader(QPainter& painter) const;
  void DrawRow(QPainter& painter, long place, double top) const;
  void DrawFooter(QPainter& painter, int page, int pages) const;
  void DrawCell(QPainter& painter, const QString& text, const Column& column, double top,
                const QFont& font) const;
  long Count() const;
  long RowAt(long place) const;

  const TableSource& source_;
  const RowOrder* order_;
  QString title_;
  QDate date_;

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

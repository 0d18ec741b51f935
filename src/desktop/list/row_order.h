#pragma once

#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

#include "desktop/list/table_source.h"

namespace desktop {

enum class SortDirection { kAscending, kDescending };

struct SortBy {
  std::size_t column = 0;
  SortDirection direction = SortDirection::kAscending;
  friend bool operator==(const SortBy&, const SortBy&) = default;
};

/// Which rows of a table are shown, in which order. Without a sort and a search it is the table's own order,
/// and no row is read; either of them reads all rows once.
class RowOrder {
 public:
  explicit RowOrder(const TableSource& source) : source_(source) {}

  /// Rows that are shown.
  long Count() const { return own_ ? source_.Rows() : static_cast<long>(rows_.size()); }
  /// The source's row at a place, and the other way round: -1 when a row is not shown.
  long RowAt(long place) const { return own_ ? place : rows_[static_cast<std::size_t>(place)]; }
  long PlaceOf(long row) const;

  /// Sorts by a column, dates as dates and numbers as numbers; nothing restores the table's own order.
  void Sort(std::optional<SortBy> sort);
  const std::optional<SortBy>& sort() const { return sort_; }
  /// Keeps the rows that hold a text in one of the visible columns, without regard to case, accents, hyphens
  /// and blanks.
  void Search(const QString& text);
  const QString& search() const { return search_; }

  /// The table's rows are others now: sort and search are applied anew.
  void Rebuild();

 private:
  void Narrow();
  void Arrange();
  const QString& Haystack(long row) const;

  const TableSource& source_;
  std::optional<SortBy> sort_;
  QString search_;
  QString needle_;
  bool own_ = true;
  std::vector<long> rows_;
  std::vector<long> sorted_;  // all rows by the sort, empty without one
  mutable std::vector<QString> haystacks_;
};

}  // namespace desktop

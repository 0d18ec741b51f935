#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lists/column.h"
#include "lists/figures.h"

namespace lists {

enum class SortDirection { kAscending, kDescending };

struct SortBy {
  std::size_t column = 0;
  SortDirection direction = SortDirection::kAscending;
  friend bool operator==(const SortBy&, const SortBy&) = default;
};

/// Rows with the same in the column by which rows are grouped; dates are grouped by their month.
struct RowGroup {
  std::string title;
  std::vector<long> rows;  // in the order in which they are shown
  bool open = false;
};

/// Which rows of a table are shown, in which order. With neither sort, search, filter nor groups it is the
/// table's own order, and no row is read; any of them reads the columns that it needs once. With groups there
/// is a heading before the rows of each, and those of a closed one are not shown; a place is a row's or a
/// heading's.
class RowOrder {
 public:
  explicit RowOrder(const Cells& cells) : cells_(cells) {}

  /// Places that are shown.
  long Count() const;
  /// The table's row at a place, -1 at a heading; and the other way round: -1 when a row is not shown.
  long RowAt(long place) const;
  long PlaceOf(long row) const;
  /// The group whose heading stands at a place; null at a row.
  const RowGroup* HeadingAt(long place) const;
  /// Rows that pass search and filters, also those of closed groups, in their order.
  std::vector<long> Rows() const;
  long RowCount() const;

  /// Sorts by a column, dates as dates and numbers as numbers; nothing restores the table's own order.
  void Sort(std::optional<SortBy> sort);
  const std::optional<SortBy>& sort() const { return sort_; }
  /// Keeps the rows each of whose words is held by one of the columns that are searched, without regard to
  /// case, accents, hyphens and blanks.
  void Search(const std::string& text);
  const std::string& search() const { return search_; }
  /// Keeps the rows that meet a condition (see `Condition`) in a column; an empty one is none. Error 13 for
  /// one that can't be read: it is kept as a text, and keeps no row away.
  void Filter(std::size_t column, const std::string& condition);
  const std::map<std::size_t, std::string>& filters() const { return filters_; }
  /// Takes search and filters away.
  void ShowAll();
  bool IsNarrowed() const { return !search_.empty() || !filters_.empty(); }
  /// Puts rows with the same in a column together, closed at first; nothing takes the groups away.
  void GroupBy(std::optional<std::size_t> column);
  std::optional<std::size_t> group() const { return group_; }
  const std::vector<RowGroup>& groups() const { return groups_; }
  /// Opens or closes the group whose heading stands at a place.
  void Turn(long place);
  void OpenAll(bool open);

  /// The table's rows are others now: all is applied anew.
  void Rebuild();

  /// What occurs in a column, in order, with the number of its rows.
  std::vector<std::pair<std::string, long>> Occurring(std::size_t column) const;
  /// Count, sum and mean of a column over rows; only numbers count.
  Figures FiguresOf(std::size_t column, const std::vector<long>& rows) const;
  /// The next place below `from` and round the end whose row begins with a text in a column; -1 for none.
  long FindBeginning(std::size_t column, const std::string& text, long from) const;

 private:
  bool IsOwn() const { return !sort_ && !group_ && !IsNarrowed(); }
  Column& Read(std::size_t column) const;
  void Arrange();
  void Narrow();
  void Group();
  void Place();
  std::vector<char> Passing() const;
  void FindWords(std::vector<char>& passing) const;

  const Cells& cells_;
  std::optional<SortBy> sort_;
  std::string search_;
  std::map<std::size_t, std::string> filters_;
  std::optional<std::size_t> group_;
  std::set<std::string> open_;  // titles of groups
  std::vector<long> sorted_;    // all rows by the sort, empty without one
  std::vector<long> rows_;      // those that pass, in order
  std::vector<RowGroup> groups_;
  std::vector<long> places_;  // with groups: a row, or the complement of a group's number
  mutable std::map<std::size_t, std::unique_ptr<Column>> columns_;
};

}  // namespace lists

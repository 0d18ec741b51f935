#include "lists/row_order.h"

#include <algorithm>
#include <numeric>

#include "lists/condition.h"
#include "lists/row_groups.h"
#include "lists/sorting.h"
#include "lists/words.h"
#include "platform/host.h"
#include "platform/runtime_error.h"

namespace lists {

Column& RowOrder::Read(std::size_t column) const {
  auto& kept = columns_[column];
  if (!kept) kept = std::make_unique<Column>(cells_, column);
  return *kept;
}

long RowOrder::Count() const {
  if (IsOwn()) return cells_.Rows();
  return static_cast<long>(group_ ? places_.size() : rows_.size());
}

long RowOrder::RowAt(long place) const {
  if (IsOwn()) return place;
  if (!group_) return rows_[static_cast<std::size_t>(place)];
  return std::max(-1L, places_[static_cast<std::size_t>(place)]);
}

long RowOrder::PlaceOf(long row) const {
  if (IsOwn()) return row < cells_.Rows() ? row : -1;
  const std::vector<long>& places = group_ ? places_ : rows_;
  const auto found = row < 0 ? places.end() : std::find(places.begin(), places.end(), row);
  return found == places.end() ? -1 : static_cast<long>(found - places.begin());
}

const RowGroup* RowOrder::HeadingAt(long place) const {
  if (!group_ || place < 0 || place >= Count()) return nullptr;
  const long what = places_[static_cast<std::size_t>(place)];
  return what < 0 ? &groups_[static_cast<std::size_t>(~what)] : nullptr;
}

std::vector<long> RowOrder::Rows() const {
  if (!IsOwn()) return rows_;
  std::vector<long> all(static_cast<std::size_t>(cells_.Rows()));
  std::iota(all.begin(), all.end(), 0L);
  return all;
}

long RowOrder::RowCount() const { return IsOwn() ? cells_.Rows() : static_cast<long>(rows_.size()); }

void RowOrder::Sort(std::optional<SortBy> sort) {
  sort_ = sort;
  Arrange();
  Narrow();
}

void RowOrder::Search(const std::string& text) {
  search_ = FoldedWords(text).empty() ? std::string() : text;
  Narrow();
}

void RowOrder::Filter(std::size_t column, const std::string& condition) {
  if (condition.find_first_not_of(' ') == std::string::npos)
    filters_.erase(column);
  else
    filters_[column] = condition;
  Narrow();
  if (filters_.count(column) != 0) Condition(condition, Read(column).kind(), platform::Today());
}

void RowOrder::ShowAll() {
  search_.clear();
  filters_.clear();
  Narrow();
}

void RowOrder::GroupBy(std::optional<std::size_t> column) {
  group_ = column;
  open_.clear();
  Narrow();
}

void RowOrder::Turn(long place) {
  const RowGroup* heading = HeadingAt(place);
  if (heading == nullptr) return;
  RowGroup& turned = groups_[static_cast<std::size_t>(heading - groups_.data())];
  turned.open = !turned.open;
  if (turned.open)
    open_.insert(turned.title);
  else
    open_.erase(turned.title);
  Place();
}

void RowOrder::OpenAll(bool open) {
  open_.clear();
  for (RowGroup& one : groups_) {
    one.open = open;
    if (open) open_.insert(one.title);
  }
  Place();
}

void RowOrder::Rebuild() {
  columns_.clear();
  const std::size_t count = cells_.ColumnCount();
  if (sort_ && sort_->column >= count) sort_.reset();
  if (group_ && *group_ >= count) group_.reset();
  std::erase_if(filters_, [count](const auto& filter) { return filter.first >= count; });
  Arrange();
  Narrow();
}

void RowOrder::Arrange() {
  sorted_.clear();
  if (sort_) sorted_ = Sorted(Read(sort_->column), sort_->direction == SortDirection::kDescending);
}

void RowOrder::Narrow() {
  rows_.clear();
  groups_.clear();
  places_.clear();
  if (IsOwn()) return;
  const std::vector<char> passing = Passing();
  const long count = cells_.Rows();
  rows_.reserve(static_cast<std::size_t>(count));
  for (long i = 0; i < count; ++i) {
    const long row = sort_ ? sorted_[static_cast<std::size_t>(i)] : i;
    if (passing.empty() || passing[static_cast<std::size_t>(row)] != 0) rows_.push_back(row);
  }
  Group();
}

/// By row, whether it passes search and filters; empty when all do.
std::vector<char> RowOrder::Passing() const {
  std::vector<char> passing;
  if (!IsNarrowed()) return passing;
  passing.assign(static_cast<std::size_t>(cells_.Rows()), 1);
  for (const auto& [column, text] : filters_) {
    try {
      Column& read = Read(column);
      const std::vector<char> met = Condition(text, read.kind(), platform::Today()).Met(read);
      for (std::size_t row = 0; row < passing.size(); ++row)
        if (met[row] == 0) passing[row] = 0;
    } catch (const platform::RuntimeError& error) {
      if (error.source() != kFilterSource) throw;  // what can't be read was told when it was set
    }
  }
  FindWords(passing);
  return passing;
}

/// Each word may be held by any column.
void RowOrder::FindWords(std::vector<char>& passing) const {
  for (const std::string& word : FoldedWords(search_)) {
    std::vector<char> found(passing.size(), 0);
    for (std::size_t column = 0; column < cells_.ColumnCount(); ++column) {
      const std::optional<Kind> kind = cells_.KindOf(column);
      if (!cells_.IsSearched(column) || (kind && !CanHold(*kind, word))) continue;
      Column& read = Read(column);
      if (!CanHold(read.kind(), word)) continue;
      const std::vector<char> holding = read.Holding(word);
      for (std::size_t row = 0; row < found.size(); ++row)
        if (holding[row] != 0) found[row] = 1;
    }
    for (std::size_t row = 0; row < passing.size(); ++row)
      if (found[row] == 0) passing[row] = 0;
  }
}

void RowOrder::Group() {
  if (!group_) return;
  groups_ = GroupsOf(Read(*group_), rows_);
  // Groups come in the order of their column, turned round with it.
  if (sort_ && sort_->column == *group_ && sort_->direction == SortDirection::kDescending)
    std::reverse(groups_.begin(), groups_.end());
  rows_.clear();
  for (RowGroup& one : groups_) {
    one.open = open_.count(one.title) != 0;
    rows_.insert(rows_.end(), one.rows.begin(), one.rows.end());
  }
  Place();
}

void RowOrder::Place() {
  places_.clear();
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    places_.push_back(~static_cast<long>(i));
    if (groups_[i].open) places_.insert(places_.end(), groups_[i].rows.begin(), groups_[i].rows.end());
  }
}

std::vector<std::pair<std::string, long>> RowOrder::Occurring(std::size_t column) const {
  Column& read = Read(column);
  std::vector<long> counts(read.texts().size(), 0);
  for (std::uint32_t code : read.codes()) ++counts[code];
  std::vector<std::uint32_t> order(counts.size());
  std::iota(order.begin(), order.end(), 0U);
  const std::vector<std::uint32_t>& ranks = read.ranks();
  std::sort(order.begin(), order.end(), [&ranks](auto a, auto b) { return ranks[a] < ranks[b]; });
  std::vector<std::pair<std::string, long>> occurring;
  occurring.reserve(order.size());
  for (std::uint32_t code : order) occurring.emplace_back(read.texts()[code], counts[code]);
  return occurring;
}

Figures RowOrder::FiguresOf(std::size_t column, const std::vector<long>& rows) const {
  Figures figures;
  const Column& read = Read(column);
  if (read.kind() != Kind::kNumber) return figures;
  constexpr double kUnits = 10000;
  std::int64_t units = 0;
  for (long row : rows) {
    const double number = read.numbers()[static_cast<std::size_t>(row)];
    if (number != number) continue;
    ++figures.count;
    units += static_cast<std::int64_t>(number * kUnits + (number < 0 ? -0.5 : 0.5));
  }
  figures.sum = platform::Currency::FromTenThousandths(units);
  return figures;
}

long RowOrder::FindBeginning(std::size_t column, const std::string& text, long from) const {
  const std::string wanted = Folded(text);
  const long count = Count();
  for (long i = 0; i < count && !wanted.empty(); ++i) {
    const long place = (std::max(0L, from) + i) % count;
    const long row = RowAt(place);
    if (row >= 0 && Folded(cells_.Shown(row, column)).starts_with(wanted)) return place;
  }
  return -1;
}

}  // namespace lists

#include "desktop/list/row_order.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <numeric>

#include "desktop/look/text.h"

namespace desktop {
namespace {

using platform::Date;
using platform::Variant;

enum class Kind { kText, kNumber, kDate };

bool IsBlank(const Variant& value) {
  const std::string* text = value.As<std::string>();
  return value.IsNull() || value.IsEmpty() || (text != nullptr && text->empty());
}

/// What a value sorts as, taken alone.
Kind KindOf(const Variant& value) {
  Date date;
  if (value.As<Date>() != nullptr) return Kind::kDate;
  if (const std::string* text = value.As<std::string>())
    return Date::TryParse(*text, date) ? Kind::kDate : Kind::kText;
  return value.As<platform::Bytes>() != nullptr ? Kind::kText : Kind::kNumber;
}

/// A column sorts as dates or numbers when all that it holds is of that kind.
Kind KindOf(const std::vector<Variant>& values) {
  std::optional<Kind> kind;
  for (const Variant& value : values) {
    if (IsBlank(value)) continue;
    const Kind one = KindOf(value);
    if (kind && *kind != one) return Kind::kText;
    kind = one;
  }
  return kind.value_or(Kind::kText);
}

double Number(const Variant& value, Kind kind) {
  if (kind == Kind::kNumber) return value.ToDouble();
  Date date;
  if (const Date* known = value.As<Date>())
    date = *known;
  else if (const std::string* text = value.As<std::string>())
    Date::TryParse(*text, date);
  return static_cast<double>(date.seconds());
}

/// Stable, so that equal rows keep the table's own order; rows with nothing in the column come first.
template <typename Less>
void SortRows(std::vector<long>& rows, SortDirection direction, const Less& less) {
  if (direction == SortDirection::kAscending)
    std::stable_sort(rows.begin(), rows.end(), less);
  else
    std::stable_sort(rows.begin(), rows.end(), [&](long a, long b) { return less(b, a); });
}

void SortByNumber(std::vector<long>& rows, const std::vector<Variant>& values, Kind kind,
                  SortDirection direction) {
  std::vector<std::optional<double>> keys;
  keys.reserve(values.size());
  for (const Variant& value : values)
    keys.push_back(IsBlank(value) ? std::optional<double>() : Number(value, kind));
  SortRows(rows, direction, [&](long a, long b) {
    return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
  });
}

void SortByText(std::vector<long>& rows, const std::vector<Variant>& values, SortDirection direction) {
  QCollator collator(QLocale(QLocale::Portuguese, QLocale::Portugal));
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  collator.setNumericMode(true);
  std::vector<QCollatorSortKey> keys;
  keys.reserve(values.size());
  for (const Variant& value : values)
    keys.push_back(collator.sortKey(IsBlank(value) ? QString() : ToQt(value.ToText())));
  SortRows(rows, direction, [&](long a, long b) {
    return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
  });
}

}  // namespace

long RowOrder::PlaceOf(long row) const {
  if (own_) return row < source_.Rows() ? row : -1;
  const auto found = std::find(rows_.begin(), rows_.end(), row);
  return found == rows_.end() ? -1 : static_cast<long>(found - rows_.begin());
}

void RowOrder::Sort(std::optional<SortBy> sort) {
  sort_ = sort;
  Arrange();
  Narrow();
}

void RowOrder::Search(const QString& text) {
  const QString needle = Folded(text);
  search_ = text;
  const bool narrower = !own_ && !needle_.isEmpty() && needle.contains(needle_);
  needle_ = needle;
  if (!narrower) return Narrow();
  std::erase_if(rows_, [this](long row) { return !Haystack(row).contains(needle_); });
}

void RowOrder::Rebuild() {
  haystacks_.clear();
  if (sort_ && sort_->column >= source_.Columns().size()) sort_.reset();
  Arrange();
  Narrow();
}

void RowOrder::Arrange() {
  sorted_.clear();
  if (!sort_) return;
  std::vector<Variant> values;
  const long count = source_.Rows();
  values.reserve(static_cast<std::size_t>(count));
  for (long row = 0; row < count; ++row) values.push_back(source_.Value(row, sort_->column));
  sorted_.resize(values.size());
  std::iota(sorted_.begin(), sorted_.end(), 0L);
  const Kind kind = KindOf(values);
  if (kind == Kind::kText)
    SortByText(sorted_, values, sort_->direction);
  else
    SortByNumber(sorted_, values, kind, sort_->direction);
}

void RowOrder::Narrow() {
  own_ = !sort_ && needle_.isEmpty();
  rows_.clear();
  if (own_) return;
  const long count = source_.Rows();
  for (long i = 0; i < count; ++i) {
    const long row = sort_ ? sorted_[static_cast<std::size_t>(i)] : i;
    if (needle_.isEmpty() || Haystack(row).contains(needle_)) rows_.push_back(row);
  }
}

const QString& RowOrder::Haystack(long row) const {
  if (haystacks_.empty()) haystacks_.resize(static_cast<std::size_t>(source_.Rows()));
  QString& haystack = haystacks_[static_cast<std::size_t>(row)];
  if (!haystack.isNull()) return haystack;
  haystack = QStringLiteral("");
  for (std::size_t column : source_.VisibleColumns())
    haystack += Folded(source_.Text(row, column)) + QLatin1Char('\n');
  return haystack;
}

}  // namespace desktop

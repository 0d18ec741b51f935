#pragma once

#include <string>
#include <utility>
#include <vector>

#include "lists/row_order.h"

namespace lists_tests {

using lists::RowOrder;
using platform::Variant;

/// Columns of values; counts how often one is read.
class Values : public lists::Cells {
 public:
  explicit Values(std::vector<Variant> values) : columns_{std::move(values)} {}
  explicit Values(std::vector<std::vector<Variant>> columns) : columns_(std::move(columns)) {}

  long Rows() const override { return static_cast<long>(columns_[0].size()); }
  std::size_t ColumnCount() const override { return columns_.size(); }
  bool IsSearched(std::size_t) const override { return true; }
  std::string Shown(long row, std::size_t column) const override {
    const Variant value = Value(row, column);
    return value.IsNull() ? std::string() : value.ToText();
  }
  Variant Value(long row, std::size_t column) const override {
    ++reads;
    return columns_[column][static_cast<std::size_t>(row)];
  }

  void Put(long row, std::size_t column, Variant value) {
    columns_[column][static_cast<std::size_t>(row)] = std::move(value);
  }
  /// Takes the last column away.
  void Drop() { columns_.pop_back(); }

  mutable int reads = 0;

 private:
  std::vector<std::vector<Variant>> columns_;
};

/// The rows in the order in which they stand.
inline std::vector<long> Shown(const RowOrder& order) {
  std::vector<long> rows;
  for (long place = 0; place < order.Count(); ++place) rows.push_back(order.RowAt(place));
  return rows;
}

}  // namespace lists_tests

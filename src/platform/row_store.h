#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

#include "platform/cell.h"

namespace platform {

/// Rows of cells kept in blocks of memory that never move, so that a `Cell` stays valid while the store
/// lives.
class RowStore {
 public:
  explicit RowStore(std::size_t columns) : columns_(columns) {}

  std::size_t rows() const { return rows_; }
  /// Adds a row of nulls and returns its index; its cells are then set by `Put`.
  std::size_t AddRow();
  /// For reading whole rows fast: the cells of the row after the last, to be set every one with cells whose
  /// text and bytes are `Keep`t; `TakeRow` then makes it the last row.
  Cell* NextRow();
  void TakeRow() { ++rows_; }
  /// A copy that lives as long as the store.
  std::string_view Keep(std::string_view data);
  /// Sets one cell, copying text and bytes into the store. A replaced text keeps its memory until the end.
  void Put(std::size_t row, std::size_t column, const Cell& cell);
  void Put(std::size_t row, std::size_t column, FieldType type, const Variant& value);
  const Cell& At(std::size_t row, std::size_t column) const { return Place(row, column); }

 private:
  static constexpr std::size_t kFirstRows = 16;  // few, so that reading one row stays cheap
  static constexpr std::size_t kRowsPerBlock = 256;
  static constexpr std::size_t kLargestTextBlock = 65536;

  /// Cells of rows to come, not set yet.
  using Block = std::unique_ptr<std::byte[]>;
  Block NewBlock(std::size_t rows) const;
  static Cell* CellsOf(const Block& block) { return std::launder(reinterpret_cast<Cell*>(block.get())); }

  Cell& Place(std::size_t row, std::size_t column) const {
    if (row < kFirstRows) return CellsOf(first_)[row * columns_ + column];
    const std::size_t rest = row - kFirstRows;
    return CellsOf(blocks_[rest / kRowsPerBlock])[rest % kRowsPerBlock * columns_ + column];
  }

  std::size_t columns_;
  std::size_t rows_ = 0;
  Block first_;
  std::vector<Block> blocks_;
  std::vector<std::unique_ptr<char[]>> texts_;
  char* free_ = nullptr;
  std::size_t freeBytes_ = 0;
  std::size_t nextTextBlock_ = 512;
};

}  // namespace platform

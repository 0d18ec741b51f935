#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

#include "platform/cell.h"
#include "platform/memory_block.h"

namespace platform {

/// Rows of cells kept in blocks of memory that never move, so that a `Cell` stays valid while the store
/// lives.
class RowStore {
 public:
  /// At most 4096 columns.
  explicit RowStore(std::size_t columns);

  std::size_t rows() const { return rows_; }
  /// Adds a row of nulls and returns its index; its cells are then set by `Put`.
  std::size_t AddRow();
  /// For reading whole rows fast: the cells of the row after the last, to be set every one with cells whose
  /// text and bytes are `Keep`t; `TakeRow` then makes it the last row.
  Cell* NextRow();
  void TakeRow() {
    ++rows_;
    next_ += columns_;
  }
  /// A copy that lives as long as the store.
  std::string_view Keep(std::string_view data) {
    if (data.empty()) return {};
    if (data.size() > freeBytes_) {
      if (data.size() > nextTextBlock_ / 4) return KeepApart(data);
      AddTextBlock();
    }
    std::memcpy(free_, data.data(), data.size());
    const std::string_view kept(free_, data.size());
    free_ += data.size();
    freeBytes_ -= data.size();
    return kept;
  }
  /// Sets one cell, copying text and bytes into the store. A replaced text keeps its memory until the end.
  void Put(std::size_t row, std::size_t column, const Cell& cell);
  void Put(std::size_t row, std::size_t column, FieldType type, const Variant& value);
  const Cell& At(std::size_t row, std::size_t column) const { return Place(row, column); }

 private:
  static constexpr std::size_t kFirstRows = 16;  // few, so that reading one row stays cheap

  static Cell* CellsOf(std::byte* block) { return std::launder(reinterpret_cast<Cell*>(block)); }
  void AddBlock();
  void AddTextBlock();
  std::string_view KeepApart(std::string_view data);

  Cell& Place(std::size_t row, std::size_t column) const {
    if (row < kFirstRows) return CellsOf(first_.get())[row * columns_ + column];
    const auto rest = static_cast<std::uint32_t>(row - kFirstRows);
    return CellsOf(blocks_[rest / rowsPerBlock_].get())[rest % rowsPerBlock_ * columns_ + column];
  }

  std::size_t columns_;
  std::uint32_t rowsPerBlock_;
  std::size_t rows_ = 0;
  std::unique_ptr<std::byte[]> first_;
  std::vector<MemoryBlock> blocks_;
  Cell* next_ = nullptr;  // where the row after the last goes; `end_` when its block is full
  Cell* end_ = nullptr;
  std::vector<std::unique_ptr<char[]>> texts_;
  std::vector<MemoryBlock> textBlocks_;
  char* free_ = nullptr;  // the rest of the last block of texts
  std::size_t freeBytes_ = 0;
  std::size_t nextTextBlock_ = 512;
};

}  // namespace platform

#include "platform/row_store.h"

#include <algorithm>
#include <stdexcept>
#include <type_traits>

namespace platform {

static_assert(std::is_trivially_copyable_v<Cell> && alignof(Cell) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

RowStore::RowStore(std::size_t columns)
    : columns_(columns),
      rowsPerBlock_(
          static_cast<std::uint32_t>(kMemoryBlock / sizeof(Cell) / std::max<std::size_t>(columns, 1))) {
  if (rowsPerBlock_ == 0) throw std::length_error("RowStore: more columns than a block of memory holds");
}

Cell* RowStore::NextRow() {
  if (next_ == end_) AddBlock();
  return next_;
}

void RowStore::AddBlock() {
  std::size_t rows = kFirstRows;
  if (first_ == nullptr) {
    first_ = std::make_unique_for_overwrite<std::byte[]>(rows * columns_ * sizeof(Cell));
    next_ = CellsOf(first_.get());
  } else {
    rows = rowsPerBlock_;
    blocks_.push_back(TakeMemoryBlock());
    next_ = CellsOf(blocks_.back().get());
  }
  end_ = next_ + rows * columns_;
}

std::size_t RowStore::AddRow() {
  std::fill_n(NextRow(), columns_, Cell());
  TakeRow();
  return rows_ - 1;
}

void RowStore::Put(std::size_t row, std::size_t column, const Cell& cell) {
  const bool block = !cell.IsNull() && (cell.type() == FieldType::kText || cell.type() == FieldType::kBytes);
  Place(row, column) = block ? Cell::Block(cell.type(), Keep(cell.block())) : cell;
}

void RowStore::Put(std::size_t row, std::size_t column, FieldType type, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return Put(row, column, Cell());
  switch (type) {
    case FieldType::kBool:
      return Put(row, column, Cell::Number(type, value.ToBool() ? 1 : 0));
    case FieldType::kInteger:
    case FieldType::kLong:
      return Put(row, column, Cell::Number(type, value.ToLong()));
    case FieldType::kDouble:
      return Put(row, column, Cell::Real(value.ToDouble()));
    case FieldType::kCurrency:
      return Put(row, column, Cell::Number(type, value.ToCurrency().tenThousandths()));
    case FieldType::kDate:
      return Put(row, column, Cell::Number(type, value.ToDate().seconds()));
    case FieldType::kText:
      return Put(row, column, Cell::Block(type, value.ToText()));
    case FieldType::kBytes: {
      const Bytes& bytes = value.ToBytes();
      return Put(row, column, Cell::Block(type, {reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
    }
  }
}

void RowStore::AddTextBlock() {
  freeBytes_ = nextTextBlock_;
  if (nextTextBlock_ < kMemoryBlock) {
    texts_.push_back(std::make_unique_for_overwrite<char[]>(freeBytes_));
    free_ = texts_.back().get();
    nextTextBlock_ *= 2;
  } else {
    textBlocks_.push_back(TakeMemoryBlock());
    free_ = reinterpret_cast<char*>(textBlocks_.back().get());
  }
}

// Has memory of its own, and leaves the room in the last block for others.
std::string_view RowStore::KeepApart(std::string_view data) {
  texts_.push_back(std::make_unique_for_overwrite<char[]>(data.size()));
  std::memcpy(texts_.back().get(), data.data(), data.size());
  return {texts_.back().get(), data.size()};
}

}  // namespace platform

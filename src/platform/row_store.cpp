#include "platform/row_store.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace platform {

static_assert(std::is_trivially_copyable_v<Cell> && alignof(Cell) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);

RowStore::Block RowStore::NewBlock(std::size_t rows) const {
  return std::make_unique_for_overwrite<std::byte[]>(rows * columns_ * sizeof(Cell));
}

Cell* RowStore::NextRow() {
  if (rows_ < kFirstRows) {
    if (first_ == nullptr) first_ = NewBlock(kFirstRows);
    return CellsOf(first_) + rows_ * columns_;
  }
  const std::size_t rest = rows_ - kFirstRows;
  if (rest / kRowsPerBlock == blocks_.size()) blocks_.push_back(NewBlock(kRowsPerBlock));
  return CellsOf(blocks_.back()) + rest % kRowsPerBlock * columns_;
}

std::size_t RowStore::AddRow() {
  std::fill_n(NextRow(), columns_, Cell());
  return rows_++;
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

std::string_view RowStore::Keep(std::string_view data) {
  if (data.empty()) return {};
  if (data.size() > freeBytes_) {
    const bool large = data.size() > nextTextBlock_ / 4;
    const std::size_t size = large ? data.size() : nextTextBlock_;
    texts_.push_back(std::unique_ptr<char[]>(new char[size]));
    if (large) {  // has a block of its own, and leaves the room in the last one for others
      std::memcpy(texts_.back().get(), data.data(), size);
      return {texts_.back().get(), size};
    }
    free_ = texts_.back().get();
    freeBytes_ = size;
    nextTextBlock_ = std::min(nextTextBlock_ * 2, kLargestTextBlock);
  }
  std::memcpy(free_, data.data(), data.size());
  const std::string_view kept(free_, data.size());
  free_ += data.size();
  freeBytes_ -= data.size();
  return kept;
}

}  // namespace platform

#include "platform/row_store.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

/// Rows of a number, its text and a null; the text of every hundredth is long.
std::string TextOf(std::size_t row) {
  return std::string(row % 100 == 0 ? 50000 : row % 30, 'x') + std::to_string(row);
}

void Fill(RowStore& store, std::size_t rows) {
  for (std::size_t row = store.rows(); row < rows; ++row) {
    ASSERT_EQ(store.AddRow(), row);
    store.Put(row, 0, Cell::Number(FieldType::kLong, static_cast<std::int64_t>(row)));
    store.Put(row, 1, Cell::Block(FieldType::kText, TextOf(row)));
  }
}

void ExpectFilled(const RowStore& store, std::size_t rows) {
  ASSERT_EQ(store.rows(), rows);
  for (std::size_t row = 0; row < rows; ++row) {
    ASSERT_EQ(store.At(row, 0).integer(), static_cast<std::int64_t>(row));
    ASSERT_EQ(store.At(row, 1).block(), TextOf(row));
    ASSERT_TRUE(store.At(row, 2).IsNull()) << row;
  }
}

TEST(RowStore, KeepsRowsWhereTheyAreAndTakesMemoryUsedBefore) {
  for (const std::size_t rows : {3u, 16u, 17u, 5000u, 5000u}) {
    RowStore store(3);
    Fill(store, 1);
    const Cell& first = store.At(0, 1);
    Fill(store, rows);
    ExpectFilled(store, rows);
    EXPECT_EQ(&first, &store.At(0, 1));
    RowStore beside(3);
    Fill(beside, rows);
    ExpectFilled(store, rows);
    ExpectFilled(beside, rows);
  }
}

TEST(RowStore, TakesRowsAsWideAsABlockOfMemory) {
  RowStore store(4096);
  for (int i = 0; i < 20; ++i) store.AddRow();
  store.Put(19, 4095, Cell::Number(FieldType::kLong, 7));
  EXPECT_EQ(store.At(19, 4095).integer(), 7);
  EXPECT_TRUE(store.At(18, 4095).IsNull());
  EXPECT_THROW(RowStore(4097), std::length_error);
}

}  // namespace
}  // namespace platform

#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/variant.h"

namespace lists {

enum class Kind { kText, kNumber, kDate };

/// Rows and columns, wherever they come from. Rows count from 0 in the table's own order. Reading a cell may
/// read rows from the database, and raise its errors.
class Cells {
 public:
  Cells() = default;
  Cells(const Cells&) = delete;
  Cells& operator=(const Cells&) = delete;
  virtual ~Cells() = default;

  virtual long Rows() const = 0;
  virtual std::size_t ColumnCount() const = 0;
  virtual platform::Variant Value(long row, std::size_t column) const = 0;
  /// The value as it is shown, in UTF-8. Equal values of a column are shown alike.
  virtual std::string Shown(long row, std::size_t column) const = 0;
  /// Whether a search looks into a column.
  virtual bool IsSearched(std::size_t column) const = 0;
  /// Of which kind all values of a column are that aren't empty, when that is known without reading them.
  virtual std::optional<Kind> KindOf(std::size_t column) const {
    static_cast<void>(column);
    return {};
  }
  /// Told before a column is read from top to bottom.
  virtual void AboutToRead(std::size_t column) const { static_cast<void>(column); }
};

}  // namespace lists

#pragma once

#include "platform/recordset.h"

namespace store {

/// Rows of a recordset as they are, which hold nothing of where they came from.
class CopiedRows : public platform::Recordset {
 public:
  /// Reads all rows of the other one.
  explicit CopiedRows(platform::Recordset& rows) {
    Opened(rows.FieldList());
    for (std::size_t row = 0; row < rows.RowsAtHand() || rows.FetchMore(1); ++row) {
      store().AddRow();
      for (std::size_t i = 0; i < fields_.size(); ++i) store().Put(row, i, rows.CellAt(row, i));
    }
  }

 protected:
  bool Reach(std::size_t row) override { return row < store().rows(); }
  std::size_t Count() override { return store().rows(); }
};

}  // namespace store

#pragma once

#include <QColor>
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "platform/variant.h"

namespace desktop {

struct TableColumn {
  std::string key;
  QString caption;
  float width = 1500;  // twips
  bool hidden = false;
  bool numeric = false;  // aligned right
};

/// The colour band of a row. `order` chooses the mark that tells it without the colour.
struct RowBand {
  QColor color;
  int order = 0;
  bool bold = false;
};

/// Rows and columns to show or to print, wherever they come from. Rows count from 0 in the source's own
/// order. Reading a cell may read rows from the database, and raise its errors.
class TableSource {
 public:
  TableSource() = default;
  TableSource(const TableSource&) = delete;
  TableSource& operator=(const TableSource&) = delete;
  virtual ~TableSource() = default;

  virtual long Rows() const = 0;
  virtual QString Text(long row, std::size_t column) const = 0;
  virtual platform::Variant Value(long row, std::size_t column) const = 0;
  virtual std::optional<RowBand> BandOf(long) const { return {}; }
  /// Reads some more rows ahead; false when all are at hand.
  virtual bool FetchMore(std::size_t) { return false; }
  /// Looks at columns and rows anew.
  virtual void Refresh() = 0;

  const std::vector<TableColumn>& Columns() const { return columns_; }
  /// The columns that are shown, in order.
  std::vector<std::size_t> VisibleColumns() const;
  /// Index of a column by its key, without regard to case.
  std::optional<std::size_t> FindColumn(const std::string& key) const;

 protected:
  std::vector<TableColumn> columns_;
};

}  // namespace desktop

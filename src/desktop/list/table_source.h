#pragma once

#include <QColor>
#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "lists/cells.h"
#include "lists/host_columns.h"

namespace desktop {

struct TableColumn {
  std::string key;
  QString caption;
  float width = 1500;  // twips
  bool hidden = false;
  bool numeric = false;   // aligned right
  bool own = false;       // the window's: also a hidden one may be chosen to be shown
  const char* mask = "";  // of sums
  lists::Summed summed = lists::Summed::kNo;
};

/// The colour band of a row. `order` chooses the mark that tells it without the colour.
struct RowBand {
  QColor color;
  int order = 0;
  bool bold = false;
};

/// Rows and columns to show or to print, wherever they come from.
class TableSource : public lists::Cells {
 public:
  virtual QString Text(long row, std::size_t column) const = 0;
  virtual std::optional<RowBand> BandOf(long) const { return {}; }
  /// Rows that are about to be shown.
  virtual void Prepare(const std::vector<long>&) const {}
  /// Reads some more rows ahead; false when all are at hand.
  virtual bool FetchMore(std::size_t) { return false; }
  /// Looks at columns and rows anew.
  virtual void Refresh() = 0;

  std::size_t ColumnCount() const override { return columns_.size(); }
  std::string Shown(long row, std::size_t column) const override;
  bool IsSearched(std::size_t column) const override;

  const std::vector<TableColumn>& Columns() const { return columns_; }
  /// The columns that are shown, in order.
  std::vector<std::size_t> VisibleColumns() const;
  /// Those that may be shown, in their own order.
  std::vector<std::size_t> OfferedColumns() const;
  /// Shows these columns, in this order; none: as the source gives them.
  void Choose(std::vector<std::string> keys) { chosen_ = std::move(keys); }
  const std::vector<std::string>& chosen() const { return chosen_; }
  /// Index of a column by its key, without regard to case.
  std::optional<std::size_t> FindColumn(const std::string& key) const;

 protected:
  std::vector<TableColumn> columns_;

 private:
  std::vector<std::string> chosen_;
};

}  // namespace desktop

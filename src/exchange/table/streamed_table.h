#pragma once

#include <deque>
#include <string>
#include <vector>

#include "exchange/table/table_reader.h"

namespace exchange {

/// A cell on its way out of a document, which may stand for several to its right.
struct StreamedCell {
  std::size_t column = 0;
  std::size_t repeated = 1;
  TableCell cell;
};

/// A row on its way out of a document, which may stand for several below it.
struct StreamedRow {
  long line = 0;
  long repeated = 1;
  bool hidden = false;
  std::vector<StreamedCell> cells;  // those that aren't empty, from left to right
};

/// A table whose document is read piece by piece while its rows are asked for; it keeps what one piece holds.
class StreamedTable : public TableReader {
 public:
  const TableFacts& Facts() const override { return facts_; }
  const std::vector<SheetInfo>& Sheets() const override { return sheets_; }
  const std::vector<bool>& HiddenColumns() const override { return hiddenColumns_; }
  void Open(std::size_t sheet) override;
  bool Next(TableRow& row) override;

 protected:
  StreamedTable();
  /// Begins a sheet anew.
  virtual void Begin(std::size_t sheet) = 0;
  /// Reads one more piece; false when the sheet has no more.
  virtual bool Feed() = 0;

  /// Throws when the work before the first row has taken too long.
  void CheckTime() const;
  void Add(StreamedRow row);
  void HideColumns(std::size_t first, std::size_t count);

  TableFacts facts_;
  std::vector<SheetInfo> sheets_;

 private:
  /// Reads on to the next row; false at the end.
  bool Fill();

  std::vector<bool> hiddenColumns_;
  std::deque<StreamedRow> rows_;
  std::size_t delivered_ = 0;
  double began_ = 0;
};

}  // namespace exchange

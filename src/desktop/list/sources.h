#pragma once

#include "desktop/list/table_source.h"
#include "platform/screen/dialogs.h"
#include "platform/screen/grid.h"

namespace desktop {

/// The rows of a list's or tab's grid.
class GridSource : public TableSource {
 public:
  explicit GridSource(platform::SGGrid& grid) : grid_(grid) { GridSource::Refresh(); }

  long Rows() const override { return rows_; }
  QString Text(long row, std::size_t column) const override;
  std::string Shown(long row, std::size_t column) const override { return grid_.CellText(row, column); }
  platform::Variant Value(long row, std::size_t column) const override;
  std::optional<lists::Kind> KindOf(std::size_t column) const override;
  std::optional<RowBand> BandOf(long row) const override;
  bool FetchMore(std::size_t rows) override;
  void Refresh() override;

 private:
  platform::SGGrid& grid_;
  long rows_ = 0;
};

/// The rows of the plain grid: its first row gives the captions, its fixed rows are no data.
class FlexSource : public TableSource {
 public:
  explicit FlexSource(platform::MSFlexGrid& grid) : grid_(grid) { FlexSource::Refresh(); }

  long Rows() const override;
  QString Text(long row, std::size_t column) const override;
  platform::Variant Value(long row, std::size_t column) const override;
  void Refresh() override;

 private:
  platform::MSFlexGrid& grid_;
};

/// The rows of a lookup or report; none while they are on their way.
class DialogSource : public TableSource {
 public:
  /// Error 91 when the dialog's statement has not been run.
  explicit DialogSource(platform::ListDialog& dialog) : dialog_(dialog) { DialogSource::Refresh(); }

  long Rows() const override { return rows_; }
  QString Text(long row, std::size_t column) const override;
  platform::Variant Value(long row, std::size_t column) const override;
  bool FetchMore(std::size_t rows) override { return dialog_.Linhas()->FetchMore(rows); }
  void Refresh() override;

 private:
  platform::ListDialog& dialog_;
  long rows_ = 0;
};

}  // namespace desktop

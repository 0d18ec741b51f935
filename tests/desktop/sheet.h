#pragma once

#include <optional>
#include <vector>

#include "desktop/list/table_source.h"

namespace desktop_test {

/// A table of texts. Rows with an order have a band, red in the first place of the order.
class Sheet : public desktop::TableSource {
 public:
  struct Line {
    QStringList cells;
    std::optional<int> band;
  };

  Sheet(std::vector<desktop::TableColumn> columns, std::vector<Line> lines) : lines_(std::move(lines)) {
    columns_ = std::move(columns);
  }

  long Rows() const override { return static_cast<long>(lines_.size()); }
  QString Text(long row, std::size_t column) const override {
    return lines_[static_cast<std::size_t>(row)].cells.value(static_cast<qsizetype>(column));
  }
  platform::Variant Value(long row, std::size_t column) const override {
    return Text(row, column).toStdString();
  }
  std::optional<desktop::RowBand> BandOf(long row) const override {
    const auto band = lines_[static_cast<std::size_t>(row)].band;
    if (!band) return {};
    return desktop::RowBand{.color = *band == 0 ? Qt::red : Qt::blue, .order = *band};
  }
  void Refresh() override {}

 private:
  std::vector<Line> lines_;
};

}  // namespace desktop_test

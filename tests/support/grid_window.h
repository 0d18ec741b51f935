#pragma once

#include <string>
#include <vector>

#include "host/list_view.h"
#include "platform/screen/form.h"

namespace testing_support {

/// A window that holds the grid of a list.
class GridWindow : public platform::Form {
 public:
  /// Shows a list on the grid.
  void Start(zorCrmParvel::ICrmVwList& list) {
    list.ICrmVwList_GridMaster(&grid);
    list.ICrmVwList_Iniciar();
  }
  /// The captions of the columns that are shown, each with "|" behind it.
  std::string Headings() const {
    std::string text;
    for (const platform::GridColumn& column : grid.Columns())
      if (!column.hidden) text += column.caption + "|";
    return text;
  }
  /// The cells of a row that are shown, likewise.
  std::string Row(long row) const {
    std::string text;
    for (std::size_t i = 0; i < grid.Columns().size(); ++i)
      if (!grid.Columns()[i].hidden) text += grid.CellText(row, i) + "|";
    return text;
  }
  /// All rows, a line each.
  std::string Rows() const {
    std::string text;
    for (long row = 0; row < grid.RowCount(); ++row) text += (row == 0 ? "" : "\n") + Row(row);
    return text;
  }

  platform::SGGrid grid{*this, "Grelha"};
};

}  // namespace testing_support

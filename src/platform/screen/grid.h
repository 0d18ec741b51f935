#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/recordset.h"
#include "platform/screen/control.h"
#include "platform/screen/popup_menu.h"

namespace platform {

/// Data types of grid columns, by the numbers that lists give.
enum GridDataType : int { kGridInteger = 2, kGridLong = 3, kGridText = 8 };

struct GridColumn {
  std::string key;
  std::string caption;
  float width = 1500;  // twips
  int dataType = kGridText;
  int cellAlignment = 0;
  int headingAlignment = 0;
  std::string format;   // mask, empty for plain text
  bool option = false;  // kept as the list sets it
  bool hidden = false;
  std::string mark;  // "SISTEMA" for a column of the program's own
  int textLimit = 0;
};

struct GridStyle {
  std::string name;
  std::optional<std::uint32_t> color;  // 0xRRGGBB, of the row's background
  std::string fontName;
  int fontSize = 0;  // points, 0 is the grid's own
  bool bold = false;
  int alignment = 0;
};

/// Operators of format conditions, by the grid's numbers.
enum GridOperator : int { kGridLess = 3, kGridBetween = 7 };

struct FormatCondition {
  std::string style;
  int kind = 0;
  int op = kGridLess;
  double value1 = 0;
  double value2 = 0;
  std::string column;
};

class SGGrid;

/// A row as the host hands it to a list. An ordinary data row has `isGroup` false and `kind` 0.
class GridRow {
 public:
  GridRow(SGGrid& grid, long row, bool isGroup = false, long kind = 0)
      : grid_(&grid), row_(row), isGroup_(isGroup), kind_(kind) {}
  bool isGroup() const { return isGroup_; }
  long kind() const { return kind_; }
  long number() const { return row_; }
  /// The value of the cell in the column with this index.
  Variant Cell(std::size_t column) const;

 private:
  SGGrid* grid_;
  long row_;
  bool isGroup_;
  long kind_;
};

/// The grid of lists and tabs: bound to a recordset, or filled cell by cell. Rows count from 0.
class SGGrid : public Control {
 public:
  using Control::Control;
  ~SGGrid() override = default;

  bool Redraw = true;
  int Setting = 0;  // a number that lists set to 0 before binding

  /// Binds a recordset and makes one visible column a field, with its name as the caption. Keeps the
  /// recordset open until the next one.
  void SetDataSource(RecordsetRef source);
  const RecordsetRef& DataSource() const { return source_; }

  /// A column by its key, without regard to case. Error 3265 when there is none.
  GridColumn& Column(std::string_view key);
  std::size_t ColumnIndex(std::string_view key) const;
  const std::vector<GridColumn>& Columns() const { return columns_; }
  GridColumn& AddColumn(std::string key, std::string caption, float width);
  void ClearColumns();

  long RowCount() const;
  // Both unbound only. Error 9 for a number that no row can have.
  /// Keeps what the rows that stay hold.
  void SetRowCount(long rows);
  void SetCell(long row, std::string_view key, const Variant& value);
  Variant CellValue(long row, std::size_t column) const;
  /// The value by the column's mask; null is empty. Error 9 outside the grid.
  std::string CellText(long row, std::size_t column) const;

  /// A new style. Error 457 when the grid has one of this name.
  GridStyle& AddStyle(const std::string& name);
  void ClearStyles() { styles_.clear(); }
  const std::vector<GridStyle>& Styles() const { return styles_; }
  void ClearConditions() { conditions_.clear(); }
  void AddCondition(FormatCondition condition) { conditions_.push_back(std::move(condition)); }
  /// The style of the first condition that a row meets; nothing when none does.
  const GridStyle* StyleOf(long row) const;

  /// The current row, -1 when there is none.
  long Row() const { return row_; }
  /// Makes a row the current one and fires `RowChange` when it was another.
  void SetRow(long row);
  GridRow RowAt(long row) { return GridRow(*this, row); }

  std::function<void(long row)> RowChange;
  std::function<void(long row)> Click;        // the user chose a row, be it the current one again
  std::function<void(long row)> DoubleClick;  // or Enter on the current row
  std::string EditableColumn;                 // key of the column that the user can type into, if any
  /// The user typed a text into a cell; Cancel keeps what the cell held.
  std::function<void(long row, const std::string& text, bool& Cancel)> ValidateEdit;
  PopUpMenu* PopUp = nullptr;                      // the rows' context menu, the form's own
  std::function<void(long command)> PopUpCommand;  // a command of it was chosen on the current row
  /// The command of the menu that a key runs on the current row; null when none does.
  const MenuItem* CommandOf(int key) const;

  /// Counts the changes of content and set-up, for whoever draws the grid.
  int Revision() const { return revision_; }

 private:
  bool Meets(const FormatCondition& condition, long row) const;

  RecordsetRef source_;
  std::vector<GridColumn> columns_;
  std::vector<std::vector<Variant>> cells_;
  std::vector<GridStyle> styles_;
  std::vector<FormatCondition> conditions_;
  long row_ = -1;
  int revision_ = 0;
};

/// The plain grid of file lists: text cells, the first rows fixed.
class MSFlexGrid : public Control {
 public:
  using Control::Control;
  int FixedRows = 1;
  int FixedCols = 0;
  int Row = 0;
  /// Captions by a format string: "|" between columns, "<", "^" or ">" before one for its alignment.
  void SetFormatString(const std::string& format);
  void SetRows(int rows);
  int Rows() const { return static_cast<int>(cells_.size()); }
  int Cols() const { return cols_; }
  /// Error 9 outside the grid.
  const std::string& TextMatrix(int row, int col) const;
  void SetTextMatrix(int row, int col, std::string text);
  std::vector<float> ColWidth;  // twips
  std::function<void()> Click;
  int Revision() const { return revision_; }

 private:
  void Check(int row, int col) const;
  int cols_ = 1;
  std::vector<std::vector<std::string>> cells_{{""}};
  int revision_ = 0;
};

}  // namespace platform

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

/// A column as lists set it. What a host has no use for it leaves alone; `hidden` and `mark` it has to heed.
struct GridColumn {
  std::string key;      // the field's name; how everybody refers to the column
  std::string caption;  // what the heading says
  float width = 1500;   // twips, 1440 an inch
  int dataType = kGridText;
  int cellAlignment = 0;  // this and the next by the grid's numbers
  int headingAlignment = 0;
  std::string format;   // mask, empty for plain text
  bool option = false;  // kept as the list sets it
  bool hidden = false;
  std::string mark;   // "SISTEMA" for a column of the program's own, not shown either
  int textLimit = 0;  // characters; 0 is no limit
};

/// How the rows look that a condition gives this style.
struct GridStyle {
  std::string name;                    // unique in its grid, without regard to case
  std::optional<std::uint32_t> color;  // 0xRRGGBB, of the row's background
  std::string fontName;
  int fontSize = 0;  // points, 0 is the grid's own
  bool bold = false;
  int alignment = 0;
};

/// Operators of format conditions, by the grid's numbers.
enum GridOperator : int { kGridLess = 3, kGridBetween = 7 };

/// What gives a row its style: the number in one of its columns, which may be a hidden one.
struct FormatCondition {
  std::string style;   // by its name
  int band = 0;        // what the style stands for: 1 the mildest to 3 the sharpest; 0 for nothing
  int op = kGridLess;  // one of `GridOperator`; no row meets any other
  double value1 = 0;   // what the number is less than, or the first of those it may be
  double value2 = 0;   // the last of those it may be
  std::string column;  // by its key

  /// True when a value of the column meets it; null and nothing never do. Error 13 for a text that is no
  /// number.
  bool Accepts(const Variant& value) const;
};

/// The first condition that a row meets, by which it is drawn and counted; null when it meets none.
/// `valueOf(i)` gives the row's value in the column of the i-th condition, and is asked no further than
/// needed.
template <typename ValueOf>
const FormatCondition* FirstMet(const std::vector<FormatCondition>& conditions, ValueOf&& valueOf) {
  for (std::size_t i = 0; i < conditions.size(); ++i)
    if (conditions[i].Accepts(valueOf(i))) return &conditions[i];
  return nullptr;
}

class SGGrid;

/// A row as the host hands it to a list: a place in a grid, good until the grid is filled anew. An ordinary
/// data row has `isGroup` false and `kind` 0; the others, which a host may put between them, have no record.
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

/// The grid of lists and tabs: bound to a recordset, or filled cell by cell. Rows count from 0. It holds what
/// a list says; a host draws it, and looks again when `Revision` has changed. Reading a cell or the row count
/// of a bound grid may read from the database, and raises its errors.
class SGGrid : public Control {
 public:
  using Control::Control;
  ~SGGrid() override = default;

  bool Redraw = true;  // false while a list sets the grid up
  int Setting = 0;     // a number that lists set to 0 before binding

  /// Binds a recordset and makes one visible column a field, with its name as the caption. Keeps the
  /// recordset open until the next one.
  void SetDataSource(RecordsetRef source);
  const RecordsetRef& DataSource() const { return source_; }

  /// A column by its key, without regard to case, to be set; the reference ends with the next column added.
  /// Error 3265 when there is none.
  GridColumn& Column(std::string_view key);
  /// The same, by its place. Error 3265 when there is none.
  std::size_t ColumnIndex(std::string_view key) const;
  const std::vector<GridColumn>& Columns() const { return columns_; }
  /// `width` in twips. The reference ends with the next column added.
  GridColumn& AddColumn(std::string key, std::string caption, float width);
  /// Drops rows and recordset too.
  void ClearColumns();

  long RowCount() const;
  // Both for a grid without a recordset. Error 9 for a number that no row can have.
  /// Keeps what the rows that stay hold.
  void SetRowCount(long rows);
  void SetCell(long row, std::string_view key, const Variant& value);
  /// Empty for a cell that was never set. Error 9 outside the grid.
  Variant CellValue(long row, std::size_t column) const;
  /// The value by the column's mask; null is empty. Error 9 outside the grid.
  std::string CellText(long row, std::size_t column) const;

  /// A new style. Error 457 when the grid has one of this name.
  GridStyle& AddStyle(const std::string& name);
  void ClearStyles() { styles_.clear(); }
  const std::vector<GridStyle>& Styles() const { return styles_; }
  void ClearConditions() { conditions_.clear(); }
  void AddCondition(FormatCondition condition) { conditions_.push_back(std::move(condition)); }
  /// The condition that a row is drawn by, see `FirstMet`; null when it meets none.
  const FormatCondition* ConditionOf(long row) const;
  /// That condition's style; null when there is none.
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
  RecordsetRef source_;
  std::vector<GridColumn> columns_;
  std::vector<std::vector<Variant>> cells_;
  std::vector<GridStyle> styles_;
  std::vector<FormatCondition> conditions_;
  long row_ = -1;
  int revision_ = 0;
};

/// The plain grid of file lists: text cells, the first rows fixed. It has one row and one column from the
/// start.
class MSFlexGrid : public Control {
 public:
  using Control::Control;
  int FixedRows = 1;  // headings: these hold no data
  int Row = 0;        // the current row, fixed ones counted; 0 for none
  /// Captions by a format string: "|" between columns, "<", "^" or ">" before one for its alignment.
  void SetFormatString(const std::string& format);
  /// Keeps what the rows that stay hold. Error 9 for a negative number.
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

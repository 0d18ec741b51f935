#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <QTimer>
#include <map>
#include <string>

#include "desktop/list/column_widths.h"
#include "desktop/list/filter_header.h"
#include "desktop/list/grid_model.h"

namespace desktop {

/// The one table of the program: lists, grids of fichas, lookups. Rows are chosen whole. Columns have the
/// widths of their source or share the room by what they hold; those that the user gave a width keep it, and
/// the last one takes what is left.
class TableView : public QTableView {
  Q_OBJECT

 public:
  /// With `sortable`, a click on a heading sorts, a second one turns the order round, a third restores the
  /// table's own; headings can be dragged to another place, and any rows be marked together.
  TableView(std::unique_ptr<TableSource> source, bool sortable, QWidget* parent);

  GridModel& grid() const { return *model_; }
  /// Looks at the source anew and keeps the widths that the user gave.
  void Refresh();
  void SortBy(std::optional<desktop::SortBy> sort);
  /// What a click on a heading does: by the column, the other way round, as the table has it; from the top.
  void TurnSort(int section);
  void Search(const QString& text);
  /// Changes which rows are shown and how, and keeps the row that is chosen. Throws the error of a filter
  /// that can't be read.
  void Reorder(const std::function<void(RowOrder&)>& change);
  /// Opens or closes the group whose heading is the current place; false at a row.
  bool TurnGroup();

  /// The source's row that is chosen, -1 when none is.
  long CurrentRow() const;
  /// Chooses a row of the source; one that isn't shown leaves nothing chosen.
  void SetCurrentRow(long row);

  /// The source's rows that are marked, from the top.
  std::vector<long> MarkedRows() const;
  /// Chooses what stands at the top.
  void GoToTop() { GoToPlace(0); }
  /// Chooses what is shown at a place, counted from 0; the last where there are not so many.
  void GoToPlace(long place);
  /// Puts the rows that are marked on the clipboard. Several are marked with Shift, all with Ctrl+A; the one
  /// that commands work on stays the current one.
  void Copy();

  /// What stands in the place of rows that filters keep away.
  void ShowWhenEmpty(const QString& text) { when_empty_ = text; }
  /// The column that the user can type into, by its key; empty for none.
  void SetEditableColumn(const std::string& key);

  /// Widths that the user gave, in twips by the column's key.
  std::map<std::string, float> UserWidths() const { return widths_; }
  void SetUserWidths(std::map<std::string, float> widths);
  /// Shows these columns in this order, by their keys; none: as the source gives them.
  void ChooseColumns(const std::vector<std::string>& keys);
  /// True while rows are still read ahead.
  bool IsReading() const { return read_ahead_.isActive(); }
  FilterHeader& filters() const { return *header_; }
  /// The width at which no column is cut, without frame and scroll bar.
  int WidthWanted() const;

 Q_SIGNALS:
  void RowChosen(long row);
  /// Double click on a row.
  void RowOpened(long row);
  void SortChanged();
  void WidthsChanged();
  /// Columns were put elsewhere.
  void ColumnsChosen();
  /// All rows are at hand.
  void AllRead();

 protected:
  /// Home and End go to the first and the last row: rows are chosen whole.
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  /// Typing begins in the column that can be typed into, wherever in the row the cursor stands.
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  /// The keyboard asks for the menu of the current cell, wherever the pointer is.
  bool event(QEvent* event) override;
  /// Typed letters go to the row that begins so, in the column sorted by, else in the first.
  void keyboardSearch(const QString& text) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ConnectHeader(bool sortable);
  void ApplyColumns();
  void PlaceColumns();
  void MovedColumn();
  void PrepareRows(int first, int last) const;
  void MeasureColumns();
  std::vector<int> WidestCells(const std::vector<std::size_t>& columns) const;
  void ShareColumns();
  void ResizedColumn(int section, int width);
  void KeepRow(const std::function<void()>& change);
  void GoTo(int place, int column);

  GridModel* model_;
  FilterHeader* header_;
  QTimer read_ahead_;
  QString typed_;
  QString when_empty_;
  QElapsedTimer since_typed_;
  std::map<std::string, float> widths_;
  std::vector<ColumnWish> wishes_;  // of the columns that are shown, in pixels
  std::map<std::string, double>
      held_;  // what columns were found to hold: they don't jump while rows are chosen
  bool arranging_ = false;
};

}  // namespace desktop

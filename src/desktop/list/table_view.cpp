#include "desktop/list/table_view.h"

#include <QAbstractItemDelegate>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QResizeEvent>
#include <algorithm>
#include <utility>

#include "desktop/list/item_painter.h"
#include "desktop/list/table_export.h"
#include "desktop/look/look.h"
#include "desktop/shell/message_box.h"

namespace desktop {

TableView::TableView(std::unique_ptr<TableSource> source, bool sortable, QWidget* parent)
    : QTableView(parent), model_(new GridModel(std::move(source), this)) {
  setModel(model_);
  setItemDelegate(new CellPainter(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ContiguousSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(Em(this) * 2);
  horizontalHeader()->setSectionsClickable(sortable);
  if (sortable) connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TableView::ClickedHeading);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int section, int, int width) { ResizedColumn(section, width); });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& index) { Q_EMIT RowOpened(model_->order().RowAt(index.row())); });
  // Cells are read while the table is painted: no box may open before that has ended.
  model_->on_error = [this](const std::exception& error) {
    QTimer::singleShot(0, this, [this, text = Describe(error)] { ShowError(this, text); });
  };
  connect(&read_ahead_, &QTimer::timeout, this, [this] {
    if (!model_->ReadAhead()) read_ahead_.stop();
  });
  ApplyColumns();
}

void TableView::Refresh() {
  read_ahead_.stop();
  KeepRow([this] { model_->Refresh(); });
  ApplyColumns();
  read_ahead_.start(0);
}

void TableView::SortBy(std::optional<desktop::SortBy> sort) {
  KeepRow([&] { model_->Sort(sort); });
  ApplyColumns();
}

void TableView::Search(const QString& text) {
  KeepRow([&] { model_->Search(text); });
  ApplyColumns();
}

long TableView::CurrentRow() const {
  const QModelIndex current = currentIndex();
  return current.isValid() ? model_->order().RowAt(current.row()) : -1;
}

void TableView::SetCurrentRow(long row) {
  const long place = row < 0 ? -1 : model_->order().PlaceOf(row);
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  if (place < 0 || visible.empty()) {
    setCurrentIndex({});
    return;
  }
  setCurrentIndex(model_->index(static_cast<int>(place), static_cast<int>(visible.front())));
}

std::vector<long> TableView::MarkedRows() const {
  std::vector<int> places;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int place = range.top(); place <= range.bottom(); ++place) places.push_back(place);
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  std::vector<long> rows;
  for (int place : places) rows.push_back(model_->order().RowAt(place));
  return rows;
}

void TableView::Copy() {
  const std::vector<long> rows = MarkedRows();
  if (!rows.empty()) Guarded(window(), [&] { CopyRows(TableOf(model_->source(), rows, accessibleName())); });
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event == QKeySequence::Copy) return Copy();
  QTableView::keyPressEvent(event);
}

void TableView::SetEditableColumn(const std::string& key) {
  model_->SetEditable(model_->source().FindColumn(key));
  setEditTriggers(key.empty() ? NoEditTriggers : DoubleClicked | EditKeyPressed | AnyKeyPressed);
}

void TableView::SetUserWidths(std::map<std::string, float> widths) {
  widths_ = std::move(widths);
  ApplyColumns();
}

QModelIndex TableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action != MoveHome && action != MoveEnd) return QTableView::moveCursor(action, modifiers);
  const int row = action == MoveHome ? 0 : model_->rowCount() - 1;
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  const int column = visible.empty() ? 0 : static_cast<int>(visible.front());
  return model_->index(row, currentIndex().isValid() ? currentIndex().column() : column);
}

bool TableView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool typed = trigger == EditKeyPressed || trigger == AnyKeyPressed;
  const std::optional<std::size_t> column = model_->editable();
  if (!typed || !index.isValid() || !column) return QTableView::edit(index, trigger, event);
  setCurrentIndex(index.siblingAtColumn(static_cast<int>(*column)));
  return QTableView::edit(currentIndex(), trigger, event);
}

void TableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!arranging_ && current.row() != previous.row()) Q_EMIT RowChosen(CurrentRow());
}

void TableView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange && model_ != nullptr) ApplyColumns();
}

void TableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) ShareColumns();
}

void TableView::ApplyColumns() {
  arranging_ = true;
  verticalHeader()->setMinimumSectionSize(Em(this));
  verticalHeader()->setDefaultSectionSize(Em(this) * 7 / 4);
  const auto& columns = model_->source().Columns();
  for (std::size_t i = 0; i < columns.size(); ++i) setColumnHidden(static_cast<int>(i), columns[i].hidden);
  const auto& sort = model_->order().sort();
  horizontalHeader()->setSortIndicatorShown(sort.has_value());
  // Qt points downwards for an ascending order; here the arrow rises with the values.
  const bool ascending = sort && sort->direction == SortDirection::kAscending;
  if (sort)
    horizontalHeader()->setSortIndicator(static_cast<int>(sort->column),
                                         ascending ? Qt::DescendingOrder : Qt::AscendingOrder);
  arranging_ = false;
  MeasureColumns();
  ShareColumns();
}

void TableView::MeasureColumns() {
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  const std::vector<int> widest = WidestCells(visible);
  wishes_.clear();
  for (std::size_t i = 0; i < visible.size(); ++i) {
    const TableColumn& column = model_->source().Columns()[visible[i]];
    const auto own = widths_.find(column.key);
    if (own != widths_.end()) {
      const double width = FromTwips(own->second, this);
      wishes_.push_back({.given = width, .holds = width, .least = width});
      continue;
    }
    const int heading = fontMetrics().horizontalAdvance(column.caption) + 2 * Em(this);
    const double given = FromTwips(column.width, this);
    const double holds = std::max(heading, widest[i]);
    wishes_.push_back({.given = given, .holds = holds, .least = std::min(given, holds)});
  }
}

/// The width of the widest cell of each column, among the rows at the top: the rest isn't waited for.
std::vector<int> TableView::WidestCells(const std::vector<std::size_t>& columns) const {
  constexpr int kRowsLookedAt = 200;
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  std::vector<int> advance(columns.size(), -1);
  std::vector<QModelIndex> widest(columns.size());
  for (int row = 0; row < std::min(kRowsLookedAt, model_->rowCount()); ++row) {
    const QVariant font = model_->data(model_->index(row, 0), Qt::FontRole);
    const QFontMetrics metrics = font.isValid() ? QFontMetrics(font.value<QFont>()) : option.fontMetrics;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const QModelIndex index = model_->index(row, static_cast<int>(columns[i]));
      const int width = metrics.horizontalAdvance(index.data().toString());
      if (width > std::exchange(advance[i], std::max(advance[i], width))) widest[i] = index;
    }
  }
  std::vector<int> widths(columns.size(), 0);
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (widest[i].isValid())
      widths[i] = itemDelegateForIndex(widest[i])->sizeHint(option, widest[i]).width() + 1;
  return widths;
}

void TableView::ShareColumns() {
  const bool outer = std::exchange(arranging_, true);
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  const std::vector<double> widths = ShareRoom(wishes_, viewport()->width());
  for (std::size_t i = 0; i < std::min(visible.size(), widths.size()); ++i)
    setColumnWidth(static_cast<int>(visible[i]), static_cast<int>(widths[i]));
  arranging_ = outer;
}

int TableView::WidthWanted() const { return static_cast<int>(RoomWanted(wishes_)); }

void TableView::ClickedHeading(int section) {
  const auto column = static_cast<std::size_t>(section);
  const auto& sort = model_->order().sort();
  if (!sort || sort->column != column)
    SortBy(desktop::SortBy{column, SortDirection::kAscending});
  else if (sort->direction == SortDirection::kAscending)
    SortBy(desktop::SortBy{column, SortDirection::kDescending});
  else
    SortBy(std::nullopt);
  Q_EMIT SortChanged();
}

void TableView::ResizedColumn(int section, int width) {
  const auto column = static_cast<std::size_t>(section);
  const auto& columns = model_->source().Columns();
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  if (arranging_ || width == 0 || column >= columns.size() || visible.empty() || column == visible.back())
    return;
  widths_[columns[column].key] = ToTwips(width, this);
  Q_EMIT WidthsChanged();
}

void TableView::KeepRow(const std::function<void()>& change) {
  const long row = CurrentRow();
  arranging_ = true;
  change();
  if (row < model_->source().Rows()) SetCurrentRow(row);
  arranging_ = false;
  if (CurrentRow() != row) Q_EMIT RowChosen(CurrentRow());
}

}  // namespace desktop

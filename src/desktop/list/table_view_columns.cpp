#include <QAbstractItemDelegate>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <algorithm>
#include <utility>

#include "desktop/list/table_view.h"
#include "desktop/look/look.h"

namespace desktop {

void TableView::ConnectHeader(bool sortable) {
  header_->setStretchLastSection(true);
  header_->setHighlightSections(false);
  header_->setTextElideMode(Qt::ElideRight);
  header_->setMinimumSectionSize(Em(this) * 2);
  header_->setSectionsClickable(sortable);
  header_->setSectionsMovable(sortable);
  if (sortable) connect(header_, &QHeaderView::sectionClicked, this, &TableView::TurnSort);
  connect(header_, &QHeaderView::sectionResized, this,
          [this](int section, int, int width) { ResizedColumn(section, width); });
  connect(header_, &QHeaderView::sectionMoved, this, &TableView::MovedColumn);
}

void TableView::ChooseColumns(const std::vector<std::string>& keys) {
  model_->source().Choose(keys);
  ApplyColumns();
}

/// Brings the headings into the order of the columns that are shown.
void TableView::PlaceColumns() {
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  for (std::size_t place = 0; place < visible.size(); ++place)
    header_->moveSection(header_->visualIndex(static_cast<int>(visible[place])), static_cast<int>(place));
}

void TableView::MovedColumn() {
  if (arranging_) return;
  std::vector<std::string> keys;
  for (int place = 0; place < header_->count(); ++place) {
    const int section = header_->logicalIndex(place);
    if (!header_->isSectionHidden(section))
      keys.push_back(model_->source().Columns()[static_cast<std::size_t>(section)].key);
  }
  ChooseColumns(keys);
  Q_EMIT ColumnsChosen();
}

void TableView::ApplyColumns() {
  arranging_ = true;
  verticalHeader()->setMinimumSectionSize(Em(this));
  verticalHeader()->setDefaultSectionSize(Em(this) * 7 / 4);
  const auto& columns = model_->source().Columns();
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  for (std::size_t i = 0; i < columns.size(); ++i)
    setColumnHidden(static_cast<int>(i), std::find(visible.begin(), visible.end(), i) == visible.end());
  PlaceColumns();
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

/// Columns give way down to what their source gives them, and to the width of a date so that all of them are
/// in sight; those that are as short as a date never do, for half a date or half a figure would be another
/// one.
void TableView::MeasureColumns() {
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  const std::vector<int> widest = WidestCells(visible);
  const double date = fontMetrics().horizontalAdvance(QStringLiteral("00-00-0000 00:00:00")) + 4 * Em(this);
  const auto& sort = model_->order().sort();
  wishes_.clear();
  for (std::size_t i = 0; i < visible.size(); ++i) {
    const TableColumn& column = model_->source().Columns()[visible[i]];
    const auto own = widths_.find(column.key);
    if (own != widths_.end()) {
      const double width = FromTwips(own->second, this);
      wishes_.push_back({.given = width, .holds = width, .least = width});
      continue;
    }
    const bool sorted = sort && sort->column == visible[i];  // its arrow needs room
    const int heading = fontMetrics().horizontalAdvance(column.caption) + (sorted ? 3 : 2) * Em(this);
    const double given = FromTwips(column.width, this);
    double& holds = held_[column.key];
    holds = std::max({holds, static_cast<double>(heading), static_cast<double>(widest[i])});
    wishes_.push_back(
        {.given = given, .holds = holds, .least = holds <= date ? holds : std::min({given, holds, date})});
  }
}

/// The width of the widest cell of each column, among the rows at the top: the rest isn't waited for.
std::vector<int> TableView::WidestCells(const std::vector<std::size_t>& columns) const {
  constexpr int kRowsLookedAt = 200;
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  std::vector<int> advance(columns.size(), -1);
  std::vector<QModelIndex> widest(columns.size());
  const int looked_at = std::min(kRowsLookedAt, model_->rowCount());
  PrepareRows(0, looked_at - 1);
  for (int row = 0; row < looked_at; ++row) {
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

void TableView::ResizedColumn(int section, int width) {
  const auto column = static_cast<std::size_t>(section);
  const auto& columns = model_->source().Columns();
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  if (arranging_ || width == 0 || column >= columns.size() || visible.empty() || column == visible.back())
    return;
  widths_[columns[column].key] = ToTwips(width, this);
  Q_EMIT WidthsChanged();
}

bool TableView::event(QEvent* event) {
  const bool menu = event->type() == QEvent::ContextMenu && contextMenuPolicy() == Qt::CustomContextMenu;
  if (!menu || static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Keyboard)
    return QTableView::event(event);
  if (!currentIndex().isValid()) GoToTop();
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return true;
  scrollTo(current);
  const int middle = columnViewportPosition(current.column()) + columnWidth(current.column()) / 2;
  Q_EMIT customContextMenuRequested({std::clamp(middle, 0, viewport()->width() - 1),
                                     rowViewportPosition(current.row()) + rowHeight(current.row()) / 2});
  return true;
}

}  // namespace desktop

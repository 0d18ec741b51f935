#include "desktop/list/table_view.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <exception>
#include <utility>

#include "desktop/list/item_painter.h"
#include "desktop/list/table_export.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"

namespace desktop {
namespace {

/// The title of a group, over the cells that follow it as far as they are empty.
void PaintTitle(const TableView& table, int place) {
  const std::vector<std::size_t> visible = table.grid().source().VisibleColumns();
  if (visible.empty()) return;
  const auto index = [&](std::size_t column) { return table.grid().index(place, static_cast<int>(column)); };
  QRect room = table.visualRect(index(visible.front()));
  for (std::size_t i = 1; i < visible.size() && index(visible[i]).data().toString().isEmpty(); ++i)
    room.setRight(table.visualRect(index(visible[i])).right());
  const int margin = table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &table) + 1;
  const bool chosen = table.selectionModel()->isSelected(index(visible.front()));
  QFont bold = table.font();
  bold.setBold(true);
  QPainter painter(table.viewport());
  painter.setFont(bold);
  painter.setPen(chosen && table.hasFocus() && table.isActiveWindow()
                     ? QColor(Qt::white)
                     : table.palette().color(QPalette::Text));
  room.adjust(margin, 0, -margin, 0);
  painter.drawText(
      room, Qt::AlignLeft | Qt::AlignVCenter,
      QFontMetrics(bold).elidedText(index(visible.front()).data().toString(), Qt::ElideRight, room.width()));
}

}  // namespace

TableView::TableView(std::unique_ptr<TableSource> source, bool sortable, QWidget* parent)
    : QTableView(parent), model_(new GridModel(std::move(source), this)), header_(new FilterHeader(this)) {
  setHorizontalHeader(header_);
  setModel(model_);
  setItemDelegate(new CellPainter(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(sortable ? ExtendedSelection : ContiguousSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  ConnectHeader(sortable);
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    const long row = model_->order().RowAt(index.row());
    if (row >= 0) Q_EMIT RowOpened(row);
  });
  // Cells are read while the table is painted: no box may open before that has ended.
  model_->on_error = [this](const std::exception& error) {
    QTimer::singleShot(0, this, [this, text = Describe(error)] { ShowError(this, text); });
  };
  connect(&read_ahead_, &QTimer::timeout, this, [this] {
    if (model_->ReadAhead()) return;
    read_ahead_.stop();
    Q_EMIT AllRead();
  });
  ApplyColumns();
}

void TableView::Refresh() {
  read_ahead_.stop();
  KeepRow([this] { model_->Refresh(); });
  held_.clear();
  ApplyColumns();
  read_ahead_.start(0);
}

void TableView::SortBy(std::optional<desktop::SortBy> sort) {
  Reorder([&](RowOrder& order) { order.Sort(sort); });
}

void TableView::Search(const QString& text) {
  Reorder([&](RowOrder& order) { order.Search(FromQt(text)); });
}

void TableView::Reorder(const std::function<void(RowOrder&)>& change) {
  std::exception_ptr refused;
  KeepRow([&] {
    try {
      model_->Reorder(change);
    } catch (...) {
      refused = std::current_exception();
    }
  });
  ApplyColumns();
  if (refused) std::rethrow_exception(refused);
}

bool TableView::TurnGroup() {
  const int place = currentIndex().isValid() ? currentIndex().row() : -1;
  if (model_->order().HeadingAt(place) == nullptr) return false;
  const int column = currentIndex().column();
  model_->Reorder([place](RowOrder& order) { order.Turn(place); });
  GoTo(place, column);
  return true;
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
  GoTo(static_cast<int>(place), static_cast<int>(visible.front()));
}

void TableView::GoToPlace(long place) {
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  const int last = model_->rowCount() - 1;
  if (last >= 0 && !visible.empty())
    GoTo(static_cast<int>(std::min<long>(place, last)), static_cast<int>(visible.front()));
}

/// Chooses one row alone, whatever key is held down meanwhile.
void TableView::GoTo(int place, int column) {
  selectionModel()->setCurrentIndex(model_->index(place, column),
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<long> TableView::MarkedRows() const {
  std::vector<int> places;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    for (int place = range.top(); place <= range.bottom(); ++place) places.push_back(place);
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  std::vector<long> rows;
  for (int place : places)
    if (model_->order().RowAt(place) >= 0) rows.push_back(model_->order().RowAt(place));
  return rows;
}

void TableView::Copy() {
  const std::vector<long> rows = MarkedRows();
  if (!rows.empty()) Guarded(window(), [&] { CopyRows(TableOf(model_->source(), rows, accessibleName())); });
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event == QKeySequence::Copy) return Copy();
  const lists::RowGroup* group =
      model_->order().HeadingAt(currentIndex().isValid() ? currentIndex().row() : -1);
  const int key = event->key();
  if (group != nullptr && (key == Qt::Key_Space || key == (group->open ? Qt::Key_Left : Qt::Key_Right))) {
    TurnGroup();
    return;
  }
  QTableView::keyPressEvent(event);
}

void TableView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QModelIndex pressed = indexAt(event->position().toPoint());
  if (pressed.isValid() && event->button() == Qt::LeftButton && pressed.row() == currentIndex().row())
    TurnGroup();
}

void TableView::keyboardSearch(const QString& text) {
  const bool goes_on =
      since_typed_.isValid() && since_typed_.elapsed() < QApplication::keyboardInputInterval();
  typed_ = goes_on ? typed_ + text : text;
  since_typed_.start();
  const std::vector<std::size_t> visible = model_->source().VisibleColumns();
  if (visible.empty()) return;
  const auto& sort = model_->order().sort();
  const int current = currentIndex().isValid() ? currentIndex().row() : -1;
  const long place = model_->order().FindBeginning(sort ? sort->column : visible.front(), FromQt(typed_),
                                                   goes_on ? current : current + 1);
  if (place >= 0) GoTo(static_cast<int>(place), static_cast<int>(visible.front()));
}

/// What is about to be seen is read together.
void TableView::paintEvent(QPaintEvent* event) {
  const int first = rowAt(0);
  const int last = rowAt(viewport()->height() - 1);
  if (first >= 0) PrepareRows(first, last < 0 ? model_->rowCount() - 1 : last);
  QTableView::paintEvent(event);
  for (int place = std::max(first, 0); first >= 0 && place <= (last < 0 ? model_->rowCount() - 1 : last);
       ++place)
    if (model_->order().HeadingAt(place) != nullptr) PaintTitle(*this, place);
  if (model_->rowCount() > 0 || when_empty_.isEmpty()) return;
  QPainter painter(viewport());
  painter.setPen(MutedText(palette()));
  painter.drawText(viewport()->rect().adjusted(WideGap(this), WideGap(this), -WideGap(this), 0),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, when_empty_);
}

void TableView::PrepareRows(int first, int last) const {
  std::vector<long> rows;
  for (int place = first; place <= last; ++place) rows.push_back(model_->order().RowAt(place));
  std::erase(rows, -1L);
  try {
    model_->source().Prepare(rows);
  } catch (const std::exception& error) {
    if (model_->on_error) model_->on_error(error);
  }
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
  if (event->type() != QEvent::FontChange || model_ == nullptr) return;
  held_.clear();
  ApplyColumns();
}

void TableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) ShareColumns();
}

void TableView::TurnSort(int section) {
  const auto column = static_cast<std::size_t>(section);
  const auto& sort = model_->order().sort();
  if (!sort || sort->column != column)
    SortBy(desktop::SortBy{column, SortDirection::kAscending});
  else if (sort->direction == SortDirection::kAscending)
    SortBy(desktop::SortBy{column, SortDirection::kDescending});
  else
    SortBy(std::nullopt);
  scrollToTop();
  Q_EMIT SortChanged();
}

/// The columns in sight stay, too: somebody may be typing in the field of one.
void TableView::KeepRow(const std::function<void()>& change) {
  const long row = CurrentRow();
  const int column = currentIndex().column();
  const int scrolled = horizontalScrollBar()->value();
  arranging_ = true;
  change();
  if (row < model_->source().Rows()) SetCurrentRow(row);
  if (currentIndex().isValid() && column >= 0 && !isColumnHidden(column))
    selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(column), QItemSelectionModel::NoUpdate);
  horizontalScrollBar()->setValue(scrolled);
  arranging_ = false;
  if (CurrentRow() != row) Q_EMIT RowChosen(CurrentRow());
}

}  // namespace desktop

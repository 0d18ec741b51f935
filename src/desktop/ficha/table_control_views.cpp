#include "desktop/ficha/table_control_views.h"

#include <QMenu>
#include <QScrollBar>
#include <algorithm>

#include "desktop/list/context_menu.h"
#include "desktop/list/sources.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr int kFewestLines = 8;
constexpr int kWidest = 28;  // in heights of a line

TableView* MakeTable(std::unique_ptr<TableSource> source, QWidget* parent) {
  auto* table = new TableView(std::move(source), false, parent);
  table->setMinimumHeight(Em(table) * kFewestLines);
  table->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  return table;
}

/// Room for all columns, within reason.
void KeepColumnsInSight(TableView& table) {
  const int width =
      table.WidthWanted() + 2 * table.frameWidth() + table.verticalScrollBar()->sizeHint().width();
  table.setMinimumWidth(std::min(width, Em(&table) * kWidest));
}

}  // namespace

GridView::GridView(platform::SGGrid& grid, UserActs& acts, QWidget* parent)
    : ControlView(grid, acts), grid_(grid), table_(MakeTable(std::make_unique<GridSource>(grid), parent)) {
  connect(table_, &TableView::RowChosen, this, [this](long row) {
    if (!this->acts().IsSyncing()) this->acts().Act([&] { this->acts().form().UserSelectsRow(grid_, row); });
  });
  connect(table_, &TableView::RowOpened, this,
          [this](long row) { this->acts().Act([&] { this->acts().form().UserDoubleClicks(grid_, row); }); });
  // A click on the current row chooses it again, of which the table doesn't tell.
  connect(table_, &QTableView::clicked, this, [this] {
    if (grid_.Click)
      this->acts().Act([this] { this->acts().form().UserSelectsRow(grid_, table_->CurrentRow()); });
  });
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(table_, &QWidget::customContextMenuRequested, this, &GridView::ShowMenu);
  table_->grid().on_edit = [this](long row, const QString& text) {
    bool taken = false;
    this->acts().Act([&] { taken = this->acts().form().UserEditsCell(grid_, row, FromQt(text)); });
    return taken;
  };
}

/// The table goes after its view, and may still have a cell open.
GridView::~GridView() { table_->grid().on_edit = nullptr; }

void GridView::ShowMenu(const QPoint& place) {
  const long row = table_->CurrentRow();
  if (grid_.PopUp == nullptr || row < 0 || !table_->indexAt(place).isValid()) return;
  auto* menu = new QMenu(table_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu, *grid_.PopUp, [this, row](long command) {
    acts().Act([&] { acts().form().UserCommands(grid_, row, command); });
  });
  menu->popup(table_->viewport()->mapToGlobal(place));
}

void GridView::SyncContent() {
  if (revision_ != grid_.Revision()) {
    table_->Refresh();
    table_->SetEditableColumn(grid_.EditableColumn);
    KeepColumnsInSight(*table_);
    revision_ = grid_.Revision();
  }
  if (table_->CurrentRow() != grid_.Row()) table_->SetCurrentRow(grid_.Row());
  table_->setEnabled(grid_.Enabled);
}

FlexGridView::FlexGridView(platform::MSFlexGrid& grid, UserActs& acts, QWidget* parent)
    : ControlView(grid, acts), grid_(grid), table_(MakeTable(std::make_unique<FlexSource>(grid), parent)) {
  connect(table_, &TableView::RowChosen, this, [this](long row) {
    if (this->acts().IsSyncing() || row < 0) return;
    this->acts().Act(
        [&] { this->acts().form().UserSelectsRow(grid_, static_cast<int>(row) + grid_.FixedRows); });
  });
}

void FlexGridView::SyncContent() {
  if (revision_ != grid_.Revision()) {
    table_->Refresh();
    revision_ = grid_.Revision();
  }
  const long row = grid_.Row - grid_.FixedRows;
  if (table_->CurrentRow() != row) table_->SetCurrentRow(row);
  table_->setEnabled(grid_.Enabled);
}

}  // namespace desktop

#include "desktop/list/grid_model.h"

#include <QFont>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "lists/condition.h"
#include "lists/footer.h"
#include "platform/runtime_error.h"

namespace desktop {
namespace {

constexpr std::size_t kReadAheadRows = 500;

}  // namespace

GridModel::GridModel(std::unique_ptr<TableSource> source, QObject* parent)
    : QAbstractTableModel(parent), source_(std::move(source)), order_(*source_) {}

void GridModel::Refresh() {
  beginResetModel();
  failed_ = false;
  subtotals_.clear();
  try {
    source_->Refresh();
    order_.Rebuild();
  } catch (...) {
    endResetModel();
    throw;
  }
  endResetModel();
}

void GridModel::Reorder(const std::function<void(RowOrder&)>& change) {
  beginResetModel();
  subtotals_.clear();
  try {
    change(order_);
  } catch (const platform::RuntimeError& error) {
    endResetModel();
    if (error.source() == lists::kFilterSource) throw;
    return Reported(error);
  } catch (const std::exception& error) {
    Reported(error);
  }
  endResetModel();
}

bool GridModel::ReadAhead() {
  try {
    return source_->FetchMore(kReadAheadRows);
  } catch (const std::exception& error) {
    Reported(error);
    return false;
  }
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.Count());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(source_->Columns().size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || failed_) return {};
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::Alignment(
        Qt::AlignVCenter | (source_->Columns()[column].numeric ? Qt::AlignRight : Qt::AlignLeft)));
  try {
    if (const lists::RowGroup* group = order_.HeadingAt(index.row()))
      return HeadingData(*group, column, role);
    const long row = order_.RowAt(index.row());
    if (role == Qt::DisplayRole)
      return source_->Text(row, column).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return BandData(row, role);
  } catch (const std::exception& error) {
    Reported(error);
    return {};
  }
}

QVariant GridModel::BandData(long row, int role) const {
  if (role != kBandColor && role != kBandOrder && role != Qt::FontRole) return {};
  const std::optional<RowBand> band = source_->BandOf(row);
  if (!band) return {};
  if (role == kBandColor) return band->color;
  if (role == kBandOrder) return band->order;
  QFont font;
  font.setBold(band->bold);
  return band->bold ? QVariant(font) : QVariant();
}

/// The first column that is shown says which group it is, the others what their numbers come to.
QVariant GridModel::HeadingData(const lists::RowGroup& group, std::size_t column, int role) const {
  if (role == kHeading) return true;
  if (role == Qt::FontRole) {
    QFont font;
    font.setBold(true);
    return font;
  }
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) return {};
  const std::vector<std::size_t> visible = source_->VisibleColumns();
  if (visible.empty() || column != visible.front()) return Subtotal(group, column);
  const QString sign = QString::fromUtf8(group.open ? "▾ " : "▸ ");
  const QString title = QStringLiteral("%1 (%2)").arg(ToQt(group.title)).arg(group.rows.size());
  return role == Qt::DisplayRole ? sign + title : title;
}

QString GridModel::Subtotal(const lists::RowGroup& group, std::size_t column) const {
  const TableColumn& shown = source_->Columns()[column];
  if (shown.summed == lists::Summed::kNo) return {};
  const auto [kept, missing] = subtotals_.try_emplace({group.title, column});
  if (!missing) return kept->second;
  kept->second = ToQt(lists::SubtotalText(order_, {column, {}, shown.mask, shown.summed}, group.rows));
  return kept->second;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const bool edits = index.isValid() && editable_ && *editable_ == static_cast<std::size_t>(index.column());
  return QAbstractTableModel::flags(index) | (edits ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !on_edit || value.toString() == data(index, role).toString()) return false;
  return on_edit(order_.RowAt(index.row()), value.toString());
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const TableColumn& column = source_->Columns()[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return column.caption;
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(
        Qt::Alignment(Qt::AlignVCenter | (column.numeric ? Qt::AlignRight : Qt::AlignLeft)));
  return {};
}

void GridModel::Reported(const std::exception& error) const {
  if (failed_) return;
  failed_ = true;
  if (on_error) on_error(error);
}

}  // namespace desktop

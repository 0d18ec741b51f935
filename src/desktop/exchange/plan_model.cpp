#include "desktop/exchange/plan_model.h"

#include <QColor>
#include <QFont>

#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "exchange/shape/column_words.h"

namespace desktop {
namespace {

using exchange::RowState;

enum : int { kLine, kState, kReason, kOwnColumns };

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

}  // namespace

PlanModel::PlanModel(QObject* parent) : QAbstractTableModel(parent) {}

void PlanModel::Show(exchange::ImportPlan* plan) {
  beginResetModel();
  plan_ = plan;
  columns_ = plan_ == nullptr ? std::vector<std::size_t>() : plan_->ColumnsInUse();
  endResetModel();
  Refresh();
}

void PlanModel::Refresh() {
  beginResetModel();
  read_ = kNone;
  rows_.clear();
  for (std::size_t i = 0; plan_ != nullptr && i < plan_->size(); ++i)
    if (plan_->row(i).counts && (!state_ || plan_->StateOf(i) == *state_)) rows_.push_back(i);
  endResetModel();
}

void PlanModel::ShowOnly(std::optional<RowState> state) {
  state_ = state;
  Refresh();
}

int PlanModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PlanModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kOwnColumns + static_cast<int>(columns_.size());
}

const std::vector<std::string>& PlanModel::ValuesOf(std::size_t row) const {
  if (read_ != row) values_ = plan_->Values(row);
  read_ = row;
  return values_;
}

QString PlanModel::TextAt(std::size_t row, int column) const {
  switch (column) {
    case kLine:
      return QString::number(plan_->row(row).line);
    case kState:
      return QString::fromUtf8(exchange::NameOf(plan_->StateOf(row)));
    case kReason: {
      const exchange::Why& why = plan_->why(row);
      if (why.column.empty()) return ToQt(why.reason);
      const exchange::ImportKind& kind = *exchange::KindOf(plan_->profile().kind);
      return ToQt(exchange::LabelOf(kind, why.column) + ": " + why.reason);
    }
    default:
      return ToQt(ValuesOf(row)[columns_[static_cast<std::size_t>(column - kOwnColumns)]]);
  }
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = RowOf(index);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole: {
      const QString text = TextAt(row, index.column());
      return role == Qt::ToolTipRole ? PlainToolTip(text) : text;
    }
    case Qt::FontRole: {
      QFont font;
      font.setBold(index.column() == kState && plan_->StateOf(row) == RowState::kRefused);
      return font;
    }
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (index.column() == kLine ? Qt::AlignRight : Qt::AlignLeft));
    default:
      return {};
  }
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case kLine:
      return QStringLiteral("Linha");
    case kState:
      return QStringLiteral("Estado");
    case kReason:
      return QStringLiteral("Porquê");
    default: {
      const auto& column = plan_->columns()[columns_[static_cast<std::size_t>(section - kOwnColumns)]];
      return ToQt(exchange::LabelOf(*exchange::KindOf(plan_->profile().kind), column.name));
    }
  }
}

Qt::ItemFlags PlanModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return index.column() >= kOwnColumns ? flags | Qt::ItemIsEditable : flags;
}

bool PlanModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || value.toString() == TextAt(RowOf(index), index.column())) return false;
  const auto& column = plan_->columns()[columns_[static_cast<std::size_t>(index.column() - kOwnColumns)]];
  if (!Guarded(nullptr, [&] { plan_->Correct(RowOf(index), column.name, FromQt(value.toString())); }))
    return false;
  read_ = kNone;
  // Rows of the same vehicle were checked, too; the row stays in sight whatever its state is now.
  Q_EMIT dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
  Q_EMIT Corrected();
  return true;
}

}  // namespace desktop

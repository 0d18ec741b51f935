#include "desktop/history/operations_model.h"

#include <QApplication>
#include <QPalette>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

struct Column {
  const char* caption;
  std::string (*text)(const history::Operation& operation);
};

constexpr Column kColumns[] = {
    {"N.º", [](const history::Operation& each) { return std::to_string(each.number); }},
    {"Quando", [](const history::Operation& each) { return history::ShownMoment(each.moment); }},
    {"Quem", [](const history::Operation& each) { return each.operador; }},
    {"Posto", [](const history::Operation& each) { return each.posto; }},
    {"O que se fez", history::ShownWords},
    {"", history::ShownState},
};

}  // namespace

OperationsModel::OperationsModel(std::shared_ptr<history::KeepingStore> store, QObject* parent)
    : QAbstractTableModel(parent), browser_(std::move(store)) {}

void OperationsModel::Ask(history::Filter filter) {
  beginResetModel();
  browser_.Ask(std::move(filter));
  shown_ = 0;
  endResetModel();
}

void OperationsModel::Take(history::Slice slice) {
  browser_.Take(std::move(slice));
  const int all = static_cast<int>(browser_.operations().size());
  if (all == shown_) return;
  beginInsertRows({}, shown_, all - 1);
  shown_ = all;
  endInsertRows();
}

const history::Operation* OperationsModel::At(int row) const {
  return row >= 0 && row < shown_ ? &browser_.operations()[static_cast<std::size_t>(row)] : nullptr;
}

int OperationsModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int OperationsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QVariant OperationsModel::data(const QModelIndex& index, int role) const {
  const history::Operation* operation = At(index.row());
  if (operation == nullptr) return {};
  if (role == Qt::DisplayRole) return ToQt(kColumns[index.column()].text(*operation));
  if (role == Qt::TextAlignmentRole && index.column() == 0) return int(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::ForegroundRole && (operation->undoneBy != 0 || operation->emptied))
    return MutedText(QApplication::palette());
  return {};
}

QVariant OperationsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole && section > 0) return int(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QString::fromUtf8(kColumns[section].caption) : QVariant();
}

}  // namespace desktop

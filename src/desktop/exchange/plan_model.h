#pragma once

#include <QAbstractTableModel>
#include <optional>
#include <vector>

#include "exchange/plan/import_plan.h"

namespace desktop {

/// The rows of a plan with their state, their reason and their values, which can be corrected in place. Shows
/// all rows or those of one state.
class PlanModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit PlanModel(QObject* parent);

  /// The plan outlives its being shown; null for none.
  void Show(exchange::ImportPlan* plan);
  /// Every row's state may have changed.
  void Refresh();
  void ShowOnly(std::optional<exchange::RowState> state);
  std::optional<exchange::RowState> shown() const { return state_; }
  /// The plan's row that stands in a row of the model.
  std::size_t RowOf(const QModelIndex& index) const { return rows_[static_cast<std::size_t>(index.row())]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 Q_SIGNALS:
  /// A value was corrected, and rows were checked again.
  void Corrected();

 private:
  QString TextAt(std::size_t row, int column) const;
  const std::vector<std::string>& ValuesOf(std::size_t row) const;

  exchange::ImportPlan* plan_ = nullptr;
  std::optional<exchange::RowState> state_;
  std::vector<std::size_t> rows_;
  std::vector<std::size_t> columns_;  // of the kind: those that the file or the operator fills
  mutable std::size_t read_ = 0;      // the row whose values were read last
  mutable std::vector<std::string> values_;
};

}  // namespace desktop

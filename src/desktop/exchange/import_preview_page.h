#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "exchange/plan/import_plan.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace desktop {

class PlanModel;

/// The third page: what becomes of every row, by state, with values that can be corrected in place.
class ImportPreviewPage : public QWidget {
  Q_OBJECT

 public:
  explicit ImportPreviewPage(QWidget* parent);
  /// Null for none.
  void Show(exchange::ImportPlan* plan);
  /// The states of rows have changed.
  void Refresh();
  PlanModel& model() { return *model_; }

 Q_SIGNALS:
  void CodesWanted();
  void RefusedWanted();
  /// The rows that are shown are wanted as a table.
  void TableWanted();
  /// A value was corrected: the counts have changed.
  void Corrected();

 private:
  struct Filter {
    std::optional<exchange::RowState> state;
    QString name;
    QToolButton* button;
  };

  void AddFilter(std::optional<exchange::RowState> state, const QString& name, QHBoxLayout& row);
  void ShowCounts();

  exchange::ImportPlan* plan_ = nullptr;
  PlanModel* model_;
  QTableView* table_;
  QLabel* sums_;
  QPushButton* codes_;
  QPushButton* refused_;
  QPushButton* export_;
  std::vector<Filter> filters_;
};

}  // namespace desktop

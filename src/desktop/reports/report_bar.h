#pragma once

#include <QDateEdit>
#include <QWidget>

#include "reports/pages/escolha.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace desktop {

/// The row above a report: its period, grouping and columns, and the filters that are set.
class ReportBar : public QWidget {
  Q_OBJECT

 public:
  ReportBar(reports::TipoDeRelatorio report, const reports::Escolha& choice, QWidget* parent);

  const reports::Escolha& choice() const { return choice_; }
  /// The filters were chosen elsewhere.
  void SetFilters(const reports::Escolhidos& filters);
  /// Of findings: those that were looked at, too.
  void ShowSeen(bool seen);

 Q_SIGNALS:
  void Changed();
  void FiltersWanted();

 private:
  void Build(const reports::TextosDoRelatorio& texts);
  QComboBox* AddCombo(const QString& label, const QString& name);
  void AddPeriod();
  void AddGrouping(const reports::TextosDoRelatorio& texts);
  void AddColumns();
  void AddDay(QDateEdit*& edit, reports::Dia day, const QString& name);
  void ShowDays();
  void DaysTyped();
  void ShowFilters();

  reports::Escolha choice_;
  QDateEdit* from_ = nullptr;
  QDateEdit* to_ = nullptr;
  QPushButton* filters_;
};

}  // namespace desktop

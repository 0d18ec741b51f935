#pragma once

#include <QDialog>
#include <vector>

#include "desktop/database/background_reader.h"
#include "desktop/database/workspace.h"
#include "reports/pages/escolha.h"
#include "reports/pages/evolucao.h"

class QLabel;

namespace desktop {

class ChartPanel;
class ReportBar;

/// A vehicle over time, in four charts.
class EvolutionDialog : public QDialog {
  Q_OBJECT

 public:
  EvolutionDialog(Workspace& workspace, const QString& plate, QWidget* parent);

  const std::vector<ChartPanel*>& charts() const { return charts_; }

 private:
  void Compute();
  void Show(const reports::Evolucao& shown);

  Workspace& workspace_;
  QString plate_;
  reports::Prazo period_ = reports::Prazo::k12Meses;
  QLabel* title_;
  QLabel* notice_;
  std::vector<ChartPanel*> charts_;
  ReadTicket reading_;
};

void ShowEvolution(Workspace& workspace, const QString& plate, QWidget* parent);

}  // namespace desktop

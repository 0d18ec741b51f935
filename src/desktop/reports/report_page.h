#pragma once

#include <QTimer>
#include <atomic>
#include <memory>
#include <optional>

#include "desktop/database/background_reader.h"
#include "desktop/database/workspace.h"
#include "desktop/list/table_view.h"
#include "desktop/reports/report_source.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/page.h"
#include "reports/pages/escolha.h"

class QLabel;
class QMenu;
class QPushButton;
class QSettings;
class QSplitter;
class QStackedWidget;
class QTabBar;

namespace desktop {

class ChartPanel;
class MessagePage;
class ReportBar;

/// A report: its table, the chart of the row that is chosen, its totals below. It is computed away from the
/// window; a change of what is asked for gives up what is under way. Enter on a row opens what it is made of.
class ReportPage : public Page {
  Q_OBJECT

 public:
  /// Workspace and settings outlive it. `choice` is what it begins with; without one, what was chosen last.
  ReportPage(Workspace& workspace, QSettings& settings, reports::TipoDeRelatorio report,
             const std::optional<reports::Escolha>& choice, QWidget* parent);
  ~ReportPage() override;

  QString Title() const override;
  QString CountText() const override;
  void Load() override;
  void TakeFocus() override;
  bool CanPrint() const override;
  void Print() override;
  void Export() override;
  bool CanSearch() const override { return true; }
  QString SearchText() const override;
  void Search(const QString& text) override;

  TableView& table() const { return *table_; }
  ChartPanel& chart() const { return *chart_; }
  ReportBar& bar() const { return *bar_; }
  QString TotalsText() const;
  /// What is shown; null until it has been computed.
  const ReportSource::ResultRef& result() const { return source_->result(); }
  /// Opens what the row chosen is made of: another report, or the event's ficha.
  void OpenRow();
  /// Takes the finding chosen off the list, or puts it back.
  void SwitchSeen();

 private:
  void Build(const reports::Escolha& choice);
  QWidget* Heading();
  void AddOwnButtons(QWidget* heading);
  void Compute();
  void GiveUp();
  void Computed(reports::Resultado result);
  void Failed(const ErrorText& failure);
  void ShowTable(std::size_t table);
  void ShowState();
  void ShowChart();
  void Arrange();
  void ChooseFilters();
  void RowMenu(const QPoint& place);
  void OpenEvent(const reports::Alvo& target);
  std::optional<reports::LinhaDaTabela> Chosen() const;
  /// The title with period and filters, for paper.
  QStringList Notes() const;

  Workspace& workspace_;
  QSettings& settings_;
  reports::TipoDeRelatorio report_;
  bool keeps_;  // what is chosen is kept for the next time
  ReadTicket reading_;
  std::shared_ptr<std::atomic<bool>> given_up_;  // heard by what computes
  std::optional<ErrorText> failure_;
  std::vector<std::size_t> tables_;
  QTimer slow_;

  QLabel* count_;
  ReportBar* bar_ = nullptr;
  QTabBar* tabs_;
  QStackedWidget* stack_;
  QSplitter* splitter_;
  ReportSource* source_;
  TableView* table_;
  ChartPanel* chart_;
  MessagePage* message_;
  QLabel* totals_;
  QPushButton* seen_ = nullptr;
};

}  // namespace desktop

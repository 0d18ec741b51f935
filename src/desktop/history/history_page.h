#pragma once

#include "desktop/database/workspace.h"
#include "desktop/shell/page.h"
#include "history/reader.h"

class QComboBox;
class QLabel;
class QPushButton;
class QSettings;
class QTableView;
class QTableWidget;

namespace desktop {

class OperationsModel;

/// "Histórico": who did what and when, with filters above, what the chosen operation changed beside it, and
/// its undoing. Operations are read bit by bit as the user goes down.
class HistoryPage : public Page {
  Q_OBJECT

 public:
  HistoryPage(Workspace& workspace, QWidget* parent);

  QString Title() const override { return QStringLiteral("Histórico"); }
  QString CountText() const override;
  void Load() override;
  void TakeFocus() override;
  bool CanSearch() const override { return true; }
  QString SearchText() const override { return search_; }
  void Search(const QString& text) override;

  /// Whether the reading has come to what the user sees.
  bool IsReading() const { return is_reading_; }

 private:
  void Build();
  QWidget* Filters();
  QWidget* Foot();
  struct Head;
  void Take(const Head& head);
  void Take(history::Slice slice);
  void Ask();
  void ReadOn();
  void WantMore();
  void ShowDetail();
  void Undo();
  void ShowSettings();

  Workspace& workspace_;
  OperationsModel* model_;
  QTableView* table_;
  QTableWidget* detail_;
  QComboBox* who_;
  QComboBox* when_;
  QComboBox* where_;
  QComboBox* kind_;
  QLabel* count_;
  QLabel* note_;
  QPushButton* undo_;
  ReadTicket reading_;
  ReadTicket reading_head_;
  ReadTicket reading_detail_;
  bool is_reading_ = false;
  QString search_;
  int wanted_ = 0;
};

}  // namespace desktop

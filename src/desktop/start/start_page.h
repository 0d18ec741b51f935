#pragma once

#include <QWidget>
#include <vector>

#include "desktop/start/alert_board.h"

class QGridLayout;
class QLabel;
class QScrollArea;
class QStackedWidget;

namespace desktop {

class AlertCard;
class FirstStepsPage;
class MonthPanel;

/// The page that the day begins with: a card for each family of alerts, which opens its list. Until there is
/// a first event, what a new office does first.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  /// The board outlives the page, which shows it whenever it changes.
  StartPage(const AlertBoard& board, QWidget* parent);

  const std::vector<AlertCard*>& cards() const { return cards_; }
  FirstStepsPage& steps() { return *steps_; }
  MonthPanel& month() { return *month_; }
  /// What is said above the cards; empty for nothing.
  QString NoticeText() const;
  void TakeFocus();

 Q_SIGNALS:
  void ListWanted(const ListEntry* entry);
  // What the first steps offer.
  void FichaWanted(const char* ficha);
  void CodesWanted();
  void ImportWanted();
  void DemoWanted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Build();
  void ShowBoard();
  void Arrange();
  bool ShowsSteps();

  const AlertBoard& board_;
  std::vector<AlertCard*> cards_;
  QLabel* day_;
  QLabel* notice_;
  QStackedWidget* stack_;
  QScrollArea* scroll_;
  QGridLayout* grid_;
  FirstStepsPage* steps_;
  QWidget* month_place_;  // hidden while there is no first event, whatever stands in it
  MonthPanel* month_;
  bool steps_begun_ = false;  // in the database that is open
  bool steps_left_ = false;   // the user wants to see the alerts
  int columns_ = 0;
};

}  // namespace desktop

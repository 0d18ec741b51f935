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
class MessagePage;

/// The page that the day begins with: a card for each family of alerts, which opens its list.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  /// The board outlives the page, which shows it whenever it changes.
  StartPage(const AlertBoard& board, QWidget* parent);

  const std::vector<AlertCard*>& cards() const { return cards_; }
  MessagePage& message() { return *message_; }
  /// What is said above the cards; empty for nothing.
  QString NoticeText() const;
  void TakeFocus();

 Q_SIGNALS:
  void ListWanted(const ListEntry* entry);
  /// The first vehicle of an empty database.
  void VehicleWanted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Build();
  void ShowBoard();
  void Arrange();

  const AlertBoard& board_;
  std::vector<AlertCard*> cards_;
  QLabel* day_;
  QLabel* notice_;
  QStackedWidget* stack_;
  QScrollArea* scroll_;
  QGridLayout* grid_;
  MessagePage* message_;
  int columns_ = 0;
};

}  // namespace desktop

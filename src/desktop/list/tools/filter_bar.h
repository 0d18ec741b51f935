#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QToolButton;

namespace desktop {

class TableView;

/// Above the rows of a list: the periods, vehicles and departments that are often filtered by, and what
/// filters now, with the way back.
class FilterBar : public QWidget {
  Q_OBJECT

 public:
  explicit FilterBar(QWidget* parent);

  /// Shows what filters a table, and which of the buttons it has columns for.
  void Show(const TableView& table);
  /// What filters, as it is read out; empty for nothing.
  QString Summary() const;

 Q_SIGNALS:
  /// A condition for the date's column; empty for any.
  void PeriodChosen(const QString& condition);
  /// What occurs in a column is to be chosen from, by its key.
  void ChoiceWanted(const QString& key);
  void ShowAllWanted();

 private:
  QToolButton* AddButton(const QString& name);

  QToolButton* period_;
  QToolButton* vehicle_;
  QToolButton* department_;
  QLabel* summary_;
  QPushButton* clear_;
};

}  // namespace desktop

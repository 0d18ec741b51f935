#pragma once

#include <QWidget>

class QPushButton;
class QToolButton;

namespace desktop {

class OneLine;
class TableView;

/// Above the rows of a list: the periods, vehicles and departments that are often filtered by, and what
/// filters now, with the way back.
class FilterBar : public QWidget {
  Q_OBJECT

 public:
  explicit FilterBar(QWidget* parent);

  /// Shows what filters a table, and which of the buttons it has columns for.
  void Show(const TableView& table);
  /// What filters beside what the buttons tell; empty for nothing.
  QString Summary() const;

 Q_SIGNALS:
  /// A condition for the date's column; empty for any.
  void PeriodChosen(const QString& condition);
  /// What occurs in a column is to be chosen from, by its key.
  void ChoiceWanted(const QString& key);
  void ShowAllWanted();

 protected:
  /// Escape on a button shows all, as it does in the rows.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* AddButton(const QString& name);

  QToolButton* period_;
  QToolButton* vehicle_;
  QToolButton* department_;
  OneLine* summary_;
  QPushButton* clear_;
};

}  // namespace desktop

#pragma once

#include <QWidget>
#include <set>
#include <vector>

#include "setup/first_steps.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace desktop {

/// What a new office does first, one line a step with the button that does it; what is done ticks itself.
class FirstStepsPage : public QWidget {
  Q_OBJECT

 public:
  explicit FirstStepsPage(QWidget* parent);

  void Show(const std::set<setup::Step>& done);
  /// The lines as they are read out: "1 Tabelas de base: por fazer".
  QStringList Lines() const;
  /// The button of the first step that is not done.
  QPushButton* NextButton() const;

 Q_SIGNALS:
  void CodesWanted();
  /// A new record in a ficha, by its name.
  void FichaWanted(const char* ficha);
  void ImportWanted();
  void DemoWanted();
  void AlertsWanted();

 private:
  struct Line {
    setup::Step step;
    QString title;
    QLabel* mark;
    QPushButton* button;
  };

  void AddLine(setup::Step step, const char* title, const char* text, const char* button);
  void Do(setup::Step step);
  void AddFoot(QVBoxLayout& column);

  QGridLayout* grid_;
  std::vector<Line> lines_;
  std::set<setup::Step> done_;
  QPushButton* import_;
  QPushButton* demo_;
  QPushButton* alerts_;
};

}  // namespace desktop

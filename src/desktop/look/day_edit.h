#pragma once

#include <QDateEdit>

namespace desktop {

/// A field for a day: Tab leaves it, arrows go from day to month and year, Alt+Down shows the calendar.
class DayEdit : public QDateEdit {
  Q_OBJECT

 public:
  explicit DayEdit(QWidget* parent);

 protected:
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace desktop

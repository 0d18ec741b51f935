#pragma once

#include <QObject>

namespace desktop {

/// Keys that do the same in every window of the program: Shift+F10 opens the menu of what has the keyboard,
/// as the menu key does, and Enter presses the button that has it, whichever button is the window's default.
/// Fichas decide about Enter themselves, and so do boxes.
class KeyboardHabits : public QObject {
  Q_OBJECT

 public:
  explicit KeyboardHabits(QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace desktop

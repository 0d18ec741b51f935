#pragma once

#include <QObject>

namespace desktop {

/// F1 in fichas, dialogs and messages: opens the manual beside them at the page about them, and for a message
/// where it is explained. The main window has a command of its own for this key.
class HelpKey : public QObject {
  Q_OBJECT

 public:
  /// Listens to the whole program while it lives.
  explicit HelpKey(QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace desktop

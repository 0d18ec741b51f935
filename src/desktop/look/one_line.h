#pragma once

#include <QLabel>

namespace desktop {

/// A plain text in one line, which ends in dots where it has not the room that it wants.
class OneLine : public QLabel {
  Q_OBJECT

 public:
  explicit OneLine(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop

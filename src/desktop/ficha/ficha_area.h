#pragma once

#include <QScrollArea>

namespace desktop {

/// What stands in a ficha above its buttons. It is as large as it needs to be as long as the screen has room
/// for that; where it hasn't, it scrolls, and what gets the keyboard is brought into view.
class FichaArea : public QScrollArea {
 public:
  explicit FichaArea(QWidget* window);
  ~FichaArea() override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QSize Within(const QSize& wanted) const;
  QSize Room() const;
  void Reveal(QWidget* widget);

  QSize room_;  // that there was when the window was laid out last
};

}  // namespace desktop

#pragma once

#include "desktop/ficha/control_view.h"

class QPushButton;

namespace desktop {

class ButtonView : public ControlView {
 public:
  ButtonView(platform::PushButton& button, UserActs& acts, QWidget* parent);

  QWidget* widget() const override;
  QPushButton* button() const { return shown_; }
  /// The button that opens the list of the field at its left.
  void MakeListButton();
  /// One of the four arrows, by its place: first, previous, next, last.
  void MakeArrow(std::size_t place);
  /// The main button of the window.
  void MakeAccent();

 protected:
  void SyncContent() override;

 private:
  platform::PushButton& button_;
  QPushButton* shown_;
  bool drawn_ = false;  // has a sign instead of its caption
};

}  // namespace desktop

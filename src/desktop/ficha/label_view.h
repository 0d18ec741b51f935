#pragma once

#include "desktop/ficha/control_view.h"
#include "desktop/look/one_line.h"

namespace desktop {

/// One line of text. As a description it keeps its place when it is empty, and is cut when it is too long.
class TextLine : public OneLine {
 public:
  using OneLine::OneLine;
  void MakeDescription();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool description_ = false;
};

class LabelView : public ControlView {
 public:
  LabelView(platform::Label& label, UserActs& acts, QWidget* parent)
      : ControlView(label, acts), label_(label), line_(new TextLine(parent)) {}

  QWidget* widget() const override { return line_; }
  /// The text behind a code: muted.
  void MakeDescription() { line_->MakeDescription(); }

 protected:
  void SyncContent() override;

 private:
  platform::Label& label_;
  TextLine* line_;
};

}  // namespace desktop

#pragma once

#include <QPixmap>
#include <QWidget>

#include "desktop/control_view.h"

namespace desktop {

/// A picture as large as its place allows, with its own proportions.
class PictureFrame : public QWidget {
 public:
  explicit PictureFrame(QWidget* parent);
  /// An empty pixmap shows an empty frame.
  void Show(QPixmap picture);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
};

class PictureView : public ControlView {
 public:
  PictureView(platform::ShowImg& picture, UserActs& acts, QWidget* parent)
      : ControlView(picture, acts), picture_(picture), frame_(new PictureFrame(parent)) {}
  QWidget* widget() const override { return frame_; }

 protected:
  void SyncContent() override;

 private:
  platform::ShowImg& picture_;
  PictureFrame* frame_;
  int revision_ = 0;
};

}  // namespace desktop

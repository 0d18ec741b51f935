#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>
#include <atomic>
#include <memory>

#include "desktop/database/background_reader.h"
#include "desktop/ficha/control_view.h"

namespace desktop {

/// A picture as large as its place allows, with its own proportions. Files are decoded on a thread of their
/// own; until that has ended, and where there is no picture to show, a text stands in its place.
class PictureFrame : public QWidget {
  Q_OBJECT

 public:
  explicit PictureFrame(QWidget* parent);
  ~PictureFrame() override;

  /// Returns at once. The picture of an earlier call is dropped, whenever it comes.
  void Load(const QString& file);
  /// The file's picture is not there yet.
  void Wait();
  void Clear();
  /// Says something in the picture's place.
  void Say(const QString& text);
  /// What is painted behind a picture that doesn't fill its place; an invalid color leaves it as it is.
  void SetGround(const QColor& ground) { ground_ = ground; }
  /// Null while there is none.
  const QPixmap& picture() const { return picture_; }
  /// What is said instead of a picture.
  const QString& text() const { return text_; }
  QSize sizeHint() const override;

 Q_SIGNALS:
  /// The file of the last call has been decoded, or found to be no picture.
  void Loaded();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Decoded;
  static Decoded Decode(const QString& file);
  void Show(const Decoded& decoded, int turn);

  QPixmap picture_;
  QColor ground_;
  QString text_;
  std::shared_ptr<std::atomic<int>> turn_;  // of the call whose picture is wanted, seen by the thread as well
};

class PictureView : public ControlView {
 public:
  PictureView(platform::ShowImg& picture, UserActs& acts, QWidget* parent)
      : ControlView(picture, acts), picture_(picture), frame_(new PictureFrame(parent)) {}
  QWidget* widget() const override { return frame_; }

 protected:
  void SyncContent() override;

 private:
  void Bring(const std::string& statement, const QString& file);

  platform::ShowImg& picture_;
  PictureFrame* frame_;
  ReadTicket bringing_;
  int revision_ = 0;
};

}  // namespace desktop

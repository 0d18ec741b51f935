#include "desktop/ficha/picture_view.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QPointer>
#include <QThreadPool>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "store/late_photos.h"

namespace desktop {
namespace {

/// No picture is decoded larger than a screen needs it.
constexpr int kLargestSide = 2048;

QString WhyNot(QImageReader::ImageReaderError error) {
  const bool unread = error == QImageReader::FileNotFoundError || error == QImageReader::DeviceError;
  return unread ? QStringLiteral("Não foi possível ler o ficheiro da imagem.")
                : QStringLiteral("O ficheiro não é uma imagem, ou está danificado.");
}

}  // namespace

struct PictureFrame::Decoded {
  QImage image;
  QString failure;  // empty when there is an image
};

PictureFrame::PictureFrame(QWidget* parent) : QWidget(parent), turn_(std::make_shared<std::atomic<int>>(0)) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  Clear();
}

PictureFrame::~PictureFrame() { ++*turn_; }

void PictureFrame::Clear() {
  ++*turn_;
  Say(QStringLiteral("Sem imagem"));
}

void PictureFrame::Wait() {
  ++*turn_;
  Say(QStringLiteral("A abrir a imagem…"));
}

void PictureFrame::Load(const QString& file) {
  Wait();
  const int turn = *turn_;
  QThreadPool::globalInstance()->start([frame = QPointer(this), wanted = turn_, file, turn] {
    if (*wanted != turn) return;
    const Decoded decoded = Decode(file);
    QMetaObject::invokeMethod(
        qApp,
        [frame, decoded, turn] {
          if (frame != nullptr) frame->Show(decoded, turn);
        },
        Qt::QueuedConnection);
  });
}

PictureFrame::Decoded PictureFrame::Decode(const QString& file) {
  QImageReader reader(file);
  reader.setAutoTransform(true);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isValid() && std::max(size.width(), size.height()) > kLargestSide)
    reader.setScaledSize(size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio));
  const QImage image = reader.read();
  return {image, image.isNull() ? WhyNot(reader.error()) : QString()};
}

void PictureFrame::Show(const Decoded& decoded, int turn) {
  if (*turn_ != turn) return;
  Say(decoded.failure);
  picture_ = QPixmap::fromImage(decoded.image);
  Q_EMIT Loaded();
}

void PictureFrame::Say(const QString& text) {
  picture_ = QPixmap();
  text_ = text;
  setAccessibleDescription(text);
  update();
}

QSize PictureFrame::sizeHint() const { return {Em(this) * 14, Em(this) * 6}; }

void PictureFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    painter.setPen(LineColor(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(MutedText(palette()));
    const int gap = Gap(this);
    painter.drawText(rect().adjusted(gap, gap, -gap, -gap), Qt::AlignCenter | Qt::TextWordWrap, text_);
    return;
  }
  if (ground_.isValid()) painter.fillRect(rect(), ground_);
  const QSize size = picture_.size().scaled(this->size(), Qt::KeepAspectRatio);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size),
                     picture_);
}

void PictureView::SyncContent() {
  if (revision_ == picture_.Revision()) return;
  revision_ = picture_.Revision();
  frame_->SetGround(picture_.BackColor ? QColor::fromRgb(*picture_.BackColor) : QColor());
  bringing_.GiveUp();
  const QString file = ToQt(picture_.Shown());
  if (file.isEmpty()) return frame_->Clear();
  const auto late = acts().Reader() != nullptr ? store::LatePhotoIn(picture_.Shown()) : std::nullopt;
  if (late)
    Bring(*late, file);
  else
    frame_->Load(file);
}

/// A photo of a server is read beside the window, into the file that stands for it.
void PictureView::Bring(const std::string& statement, const QString& file) {
  frame_->Wait();
  bringing_ = acts().Reader()->Ask(
      this,
      [statement, path = picture_.Shown()](const BackgroundReader::StoreRef& store) {
        return store::BringPhoto(*store, statement, path);
      },
      [this, file](bool there) {
        if (there)
          frame_->Load(file);
        else
          frame_->Clear();
      },
      [this](const ErrorText& failure) { frame_->Say(failure.headline); });
}

}  // namespace desktop

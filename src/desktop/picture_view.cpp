#include "desktop/picture_view.h"

#include <QImageReader>
#include <QPainter>

#include "desktop/look.h"
#include "desktop/text.h"

namespace desktop {
namespace {

/// No picture is decoded larger than a screen needs it.
constexpr int kLargestSide = 2048;

QPixmap ReadPicture(const QString& file) {
  QImageReader reader(file);
  reader.setAutoTransform(true);
  reader.setDecideFormatFromContent(true);
  const QSize size = reader.size();
  if (size.isValid() && std::max(size.width(), size.height()) > kLargestSide)
    reader.setScaledSize(size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio));
  return QPixmap::fromImage(reader.read());
}

}  // namespace

PictureFrame::PictureFrame(QWidget* parent) : QWidget(parent) {
  setMinimumSize(sizeHint());
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void PictureFrame::Show(QPixmap picture) {
  picture_ = std::move(picture);
  update();
}

QSize PictureFrame::sizeHint() const { return {Em(this) * 14, Em(this) * 6}; }

void PictureFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    painter.setPen(LineColor(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(MutedText(palette()));
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Sem imagem"));
    return;
  }
  const QSize size = picture_.size().scaled(this->size(), Qt::KeepAspectRatio);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size),
                     picture_);
}

void PictureView::SyncContent() {
  if (revision_ == picture_.Revision()) return;
  revision_ = picture_.Revision();
  frame_->Show(picture_.Shown().empty() ? QPixmap() : ReadPicture(ToQt(picture_.Shown())));
}

}  // namespace desktop

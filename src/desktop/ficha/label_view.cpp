#include "desktop/ficha/label_view.h"

#include <QPainter>

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr int kDescriptionCharacters = 26;

}  // namespace

TextLine::TextLine(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void TextLine::MakeDescription() {
  description_ = true;
  setMinimumWidth(fontMetrics().averageCharWidth() * kDescriptionCharacters);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  SetMuted(this);
}

void TextLine::paintEvent(QPaintEvent* event) {
  if (!description_) return QLabel::paintEvent(event);
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

void LabelView::SyncContent() {
  const QString text = ToQt(label_.Caption);
  if (line_->text() != text) line_->setText(text);
  if (line_->isEnabled() != label_.Enabled) line_->setEnabled(label_.Enabled);
}

}  // namespace desktop

#include "desktop/ficha/label_view.h"

#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr int kDescriptionCharacters = 26;

}  // namespace

void TextLine::MakeDescription() {
  description_ = true;
  setMinimumWidth(fontMetrics().averageCharWidth() * kDescriptionCharacters);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  SetMuted(this);
}

void TextLine::paintEvent(QPaintEvent* event) {
  if (description_)
    OneLine::paintEvent(event);
  else
    QLabel::paintEvent(event);
}

void LabelView::SyncContent() {
  const QString text = ToQt(label_.Caption);
  if (line_->text() != text) line_->setText(text);
  if (line_->isEnabled() != label_.Enabled) line_->setEnabled(label_.Enabled);
}

}  // namespace desktop

#include "desktop/look/one_line.h"

#include <QPainter>

namespace desktop {

OneLine::OneLine(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void OneLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

}  // namespace desktop

#include "desktop/ficha/ficha_area.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <utility>

#include "desktop/look/look.h"

namespace desktop {

FichaArea::FichaArea(QWidget* window) : QScrollArea(window) {
  setFrameShape(NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  window->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { Reveal(now); });
}

// What is inside loses the keyboard while it is destroyed, when this is no area any more.
FichaArea::~FichaArea() { disconnect(qApp, nullptr, this, nullptr); }

QSize FichaArea::sizeHint() const { return Within(widget()->sizeHint()); }
QSize FichaArea::minimumSizeHint() const { return Within(widget()->minimumSizeHint()); }

/// As much of what is wanted as there is room for, with the bars that scroll to the rest.
QSize FichaArea::Within(const QSize& wanted) const {
  const QSize room = Room();
  QSize size = wanted;
  if (wanted.height() > room.height()) size.rwidth() += verticalScrollBar()->sizeHint().width();
  if (size.width() > room.width()) size.rheight() += horizontalScrollBar()->sizeHint().height();
  return size.boundedTo(room);
}

/// The screen without what stands beside the area.
QSize FichaArea::Room() const {
  const QLayout* layout = window()->layout();
  const QMargins margins = layout->contentsMargins();
  QSize room = RoomOnScreen(window());
  room -= {margins.left() + margins.right(), margins.top() + margins.bottom()};
  room.rheight() -= layout->spacing() * (layout->count() - 1);
  for (int i = 0; i < layout->count(); ++i) {
    const QLayoutItem* item = layout->itemAt(i);
    if (item->widget() == this) continue;
    room.rheight() -=
        item->hasHeightForWidth() ? item->heightForWidth(room.width()) : item->minimumSize().height();
  }
  return room;
}

/// A change of what is inside is a change of what the area needs, and so is one of the room for it.
bool FichaArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window()) {
    const bool changes = event->type() == QEvent::LayoutRequest && std::exchange(room_, Room()) != room_;
    if (changes) updateGeometry();
    return false;
  }
  const bool handled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return handled;
}

void FichaArea::Reveal(QWidget* widget) {
  if (widget != nullptr && isAncestorOf(widget)) ensureWidgetVisible(widget, WideGap(this), WideGap(this));
}

}  // namespace desktop

#include "desktop/look/day_edit.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace desktop {

DayEdit::DayEdit(QWidget* parent) : QDateEdit(parent) {
  setCalendarPopup(true);
  setDisplayFormat(QStringLiteral("dd-MM-yyyy"));
}

/// The toolkit would go on to month and year, and take what is typed next for them.
bool DayEdit::focusNextPrevChild(bool next) { return QWidget::focusNextPrevChild(next); }

/// The toolkit opens its calendar for the mouse alone.
void DayEdit::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Down || event->modifiers() != Qt::AltModifier)
    return QDateEdit::keyPressEvent(event);
  QStyleOptionComboBox box;
  box.initFrom(this);
  box.subControls = QStyle::SC_All;
  const QPointF arrow =
      style()->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, this).center();
  QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  mousePressEvent(&press);
}

}  // namespace desktop

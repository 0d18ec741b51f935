#include "desktop/shell/keyboard_habits.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

#include "desktop/ficha/form_dialog.h"

namespace desktop {
namespace {

/// Qt asks the widget itself where its cursor is.
void OpenMenu(QWidget& widget) {
  const QPoint place = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, place, widget.mapToGlobal(place));
  QApplication::sendEvent(&widget, &event);
}

/// Null for a button that Enter presses by itself.
QAbstractButton* PressedByEnter(QWidget& widget) {
  if (qobject_cast<FormDialog*>(widget.window()) != nullptr) return nullptr;
  auto* button = qobject_cast<QPushButton*>(&widget);
  if (button != nullptr) return button->autoDefault() || button->isDefault() ? nullptr : button;
  return qobject_cast<QToolButton*>(&widget);
}

}  // namespace

KeyboardHabits::KeyboardHabits(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool KeyboardHabits::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window()->focusWidget() != widget) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier) {
    OpenMenu(*widget);
    return true;
  }
  const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
  if (!enter || (key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier || key->isAutoRepeat())
    return false;
  QAbstractButton* button = PressedByEnter(*widget);
  if (button == nullptr) return false;
  button->click();
  return true;
}

}  // namespace desktop

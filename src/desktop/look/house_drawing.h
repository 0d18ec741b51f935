#pragma once

#include <QRect>

class QPainter;
class QStyle;
class QStyleOption;
class QStyleOptionSlider;
class QWidget;

namespace desktop {

// The parts of the window that the house style draws itself.

void DrawButton(const QStyleOption& option, QPainter& painter, bool accent);
/// The line around a control with the keyboard that has no frame of its own.
void DrawFocus(const QStyleOption& option, QPainter& painter);
void DrawToolButton(const QStyleOption& option, QPainter& painter);
void DrawHeading(const QStyleOption& option, QPainter& painter);
/// A page's tab: the one that is turned to stands on a line of the accent, filled where it has the keyboard.
void DrawTab(const QStyleOption& option, QPainter& painter);
void DrawBar(const QStyleOption& option, QPainter& painter);
/// A scroll bar, whose parts lie where `style` has them.
void DrawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QStyle& style,
                   const QWidget* widget);

/// A sorted heading's arrow: small, in its middle. The toolkit's own sticks to the top where margins are
/// wide.
QRect SortArrow(const QStyleOption& option, const QWidget& heading);
QRect BottomLine(const QRect& rect);

}  // namespace desktop

#pragma once

#include <QIcon>

namespace desktop {

/// The signs of the program, drawn as lines in the palette's text colour at any size.
enum class Sign { kNew, kEdit, kRemove, kReload, kPrint, kExport, kSearch, kFirst, kPrevious, kNext, kLast };

QIcon SignIcon(Sign sign);
/// The sign of a message box: a letter on the accent.
QIcon BoxIcon(QChar letter);
/// The mark of an alert band, so that it is told without its colour; `order` is the place of the band's
/// style. Draws inside a square.
void DrawBandMark(QPainter& painter, const QRectF& square, int order, const QColor& color);

}  // namespace desktop

#pragma once

#include <QColor>
#include <QPalette>
#include <QSize>
#include <QWidget>

namespace desktop {

/// Distances, all from the height of a widget's font, so that they follow font and scale.
int Em(const QWidget* widget);       // the height of a line
int Gap(const QWidget* widget);      // between things that belong together
int WideGap(const QWidget* widget);  // between groups, and the margin of a window

/// The largest size that a window may have on its screen, which its title bar shares.
QSize RoomOnScreen(const QWidget* window);

/// Twips in pixels: 15 to a pixel at 100 % and the usual font, more with a larger one.
int FromTwips(float twips, const QWidget* widget);
float ToTwips(int pixels, const QWidget* widget);

/// The contrast of two colours, from 1 to 21.
double Contrast(const QColor& a, const QColor& b);
/// Black or white, whichever reads better on a background: at least 4.5 to 1 on any.
QColor ReadableOn(const QColor& background);
/// A colour between two: 0 is the first, 1 the second.
QColor Blend(const QColor& from, const QColor& to, double share);

/// The one accent: the palette's highlight, as strong as white text on it needs.
QColor Accent(const QPalette& palette);
/// The palette's text, less prominent but still readable on its background.
QColor MutedText(const QPalette& palette);
/// The thin lines between rows and parts of a window.
QColor LineColor(const QPalette& palette);

/// Gives a label the muted colour, and keeps it when the palette changes.
void SetMuted(QWidget* label);
/// A locked field reads like text on paper: nothing to type into, but no less legible.
void SetLocked(QWidget* field, bool locked);
/// Gives a widget a font larger by a factor, and bold.
void SetTitleFont(QWidget* widget, double factor);

}  // namespace desktop

#pragma once

#include <QTextLayout>

namespace desktop {

// What a printed table is measured and drawn by, in points.
inline constexpr double kTextSize = 9;
inline constexpr double kCellPadding = 4;
inline constexpr double kMarkRoom = 9;  // of a band's mark, before the text

/// Breaks a text into lines of a width and gives their height.
double LayOut(QTextLayout& layout, double width, Qt::Alignment alignment);

}  // namespace desktop

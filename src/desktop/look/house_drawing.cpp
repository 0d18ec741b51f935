#include "desktop/look/house_drawing.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>
#include <algorithm>

#include "desktop/look/look.h"

namespace desktop {

void DrawButton(const QStyleOption& option, QPainter& painter, bool accent) {
  const QPalette& palette = option.palette;
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const bool pressed = option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On);
  const QColor text = palette.color(QPalette::WindowText);
  QColor fill = accent && enabled ? Accent(palette) : palette.color(QPalette::Button);
  QColor border = accent && enabled ? fill : Blend(fill, text, enabled ? 0.32 : 0.16);
  if (pressed)
    fill = Blend(fill, accent ? Qt::black : text, 0.18);
  else if (enabled && option.state.testFlag(QStyle::State_MouseOver))
    fill = Blend(fill, accent ? Qt::black : text, 0.07);

  const bool focused = option.state.testFlag(QStyle::State_HasFocus);
  if (focused) border = accent ? QColor(Qt::white) : Accent(palette);
  const double line = focused ? 2.0 : 1.0;
  const double radius = std::max(2.0, option.fontMetrics.height() / 6.0);
  const QRectF outline = QRectF(option.rect).adjusted(line / 2, line / 2, -line / 2, -line / 2);

  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(fill);
  painter.setPen(focused && accent ? QPen(fill) : QPen(border, line));
  painter.drawRoundedRect(outline, radius, radius);
  if (focused && accent) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(border);
    painter.drawRoundedRect(outline.adjusted(line, line, -line, -line), radius / 2, radius / 2);
  }
  painter.restore();
}

void DrawFocus(const QStyleOption& option, QPainter& painter) {
  const double radius = std::max(2.0, option.fontMetrics.height() / 6.0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Accent(option.palette), 2.0));
  painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), radius, radius);
  painter.restore();
}

void DrawToolButton(const QStyleOption& option, QPainter& painter) {
  const bool pressed = option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On);
  const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
  if (!option.state.testFlag(QStyle::State_Enabled) || (!pressed && !hovered)) return;
  const double radius = std::max(2.0, option.fontMetrics.height() / 6.0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Blend(option.palette.color(QPalette::Window), option.palette.color(QPalette::WindowText),
                         pressed ? 0.2 : 0.1));
  painter.drawRoundedRect(option.rect, radius, radius);
  painter.restore();
}

QRect SortArrow(const QStyleOption& option, const QWidget& heading) {
  const int side = option.fontMetrics.height() / 2;
  const auto* header = qobject_cast<const QHeaderView*>(&heading);
  const int height = header != nullptr ? header->viewport()->height() : heading.height();
  return {option.rect.right() - side, (height - side) / 2, side, side};
}

void DrawScrollBar(const QStyleOptionSlider& option, QPainter& painter, const QStyle& style,
                   const QWidget* widget) {
  const QColor ground = option.palette.color(QPalette::Window);
  const QColor ink = option.palette.color(QPalette::WindowText);
  painter.fillRect(option.rect, Blend(ground, ink, 0.05));
  if (!option.state.testFlag(QStyle::State_Enabled) || option.minimum == option.maximum) return;
  const auto fill = [&](QStyle::SubControl part, double share) {
    const QRect rect = style.subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
    if (option.activeSubControls.testFlag(part)) {
      if (option.state.testFlag(QStyle::State_Sunken))
        share += 0.2;
      else if (option.state.testFlag(QStyle::State_MouseOver))
        share += 0.1;
    }
    painter.fillRect(rect, Blend(ground, ink, share));
    return rect;
  };
  fill(QStyle::SC_ScrollBarSlider, 0.25);
  const auto button = [&](QStyle::SubControl part, QStyle::PrimitiveElement arrow) {
    QStyleOption sign(option);
    const QRect rect = fill(part, 0.05);
    const int side = std::min(rect.width(), rect.height()) / 2;
    sign.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), rect);
    style.drawPrimitive(arrow, &sign, &painter, widget);
  };
  const bool upright = option.orientation == Qt::Vertical;
  button(QStyle::SC_ScrollBarSubLine, upright ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowLeft);
  button(QStyle::SC_ScrollBarAddLine,
         upright ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowRight);
}

QRect BottomLine(const QRect& rect) { return {rect.left(), rect.bottom(), rect.width(), 1}; }

void DrawHeading(const QStyleOption& option, QPainter& painter) {
  const QPalette& palette = option.palette;
  QColor fill = palette.color(QPalette::Base);
  if (option.state.testFlag(QStyle::State_MouseOver)) fill = Blend(fill, palette.color(QPalette::Text), 0.06);
  painter.fillRect(option.rect, fill);
  painter.fillRect(BottomLine(option.rect), Blend(fill, palette.color(QPalette::Text), 0.35));
}

void DrawTab(const QStyleOption& option, QPainter& painter) {
  const QPalette& palette = option.palette;
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const QColor window = palette.color(QPalette::Window);
  if (selected && option.state.testFlag(QStyle::State_HasFocus))
    painter.fillRect(option.rect, Blend(window, Accent(palette), 0.2));
  else if (!selected && option.state.testFlag(QStyle::State_MouseOver))
    painter.fillRect(option.rect, Blend(window, palette.color(QPalette::WindowText), 0.06));
  const int thick = std::max(2, option.fontMetrics.height() / 7);
  if (selected)
    painter.fillRect(option.rect.adjusted(0, option.rect.height() - thick, 0, 0), Accent(palette));
  else
    painter.fillRect(BottomLine(option.rect), LineColor(palette));
}

void DrawBar(const QStyleOption& option, QPainter& painter) {
  painter.fillRect(option.rect, option.palette.window());
  painter.fillRect(BottomLine(option.rect), LineColor(option.palette));
}

}  // namespace desktop

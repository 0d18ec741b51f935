#pragma once

#include <QProxyStyle>

namespace desktop {

/// Fusion, drawn flat: buttons, headings and bars without gradients, one accent for what has the keyboard and
/// for the main button of a window.
class HouseStyle : public QProxyStyle {
 public:
  HouseStyle();

  /// Makes a button the main one of its window.
  static void SetAccent(QWidget* button, bool accent = true);

  using QProxyStyle::polish;
  /// What a field wants is said in a colour that is read on it, whatever the desktop gives.
  void polish(QPalette& palette) override;
  /// Calendars and file dialogs tell days as the rest of the program does.
  void polish(QWidget* widget) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget = nullptr) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget = nullptr) const override;
  /// The program's own signs; those of message boxes in the accent, for red and yellow are for alerts.
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
                     const QWidget* widget = nullptr) const override;
  int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                QStyleHintReturn* returned = nullptr) const override;
};

}  // namespace desktop

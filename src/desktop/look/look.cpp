#include "desktop/look/look.h"

#include <QEvent>
#include <QFontMetrics>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace desktop {
namespace {

constexpr double kReadable = 4.5;
constexpr double kUsualPoints = 9;
constexpr double kTwipsPerInch = 1440;

double PixelsPerTwip(const QWidget* widget) {
  const double points = widget->fontInfo().pointSizeF();
  return widget->logicalDpiX() / kTwipsPerInch * std::max(1.0, points / kUsualPoints);
}

double Luminance(const QColor& color) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Colours a widget's text anew whenever the palette around it changes.
class MutedColor : public QObject {
 public:
  explicit MutedColor(QWidget* widget) : QObject(widget), widget_(widget) {
    widget->installEventFilter(this);
    Apply();
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) Apply();
    return false;
  }

 private:
  void Apply() {
    const QWidget* parent = widget_->parentWidget();
    const QColor muted = MutedText(parent != nullptr ? parent->palette() : QPalette());
    QPalette palette = widget_->palette();
    if (palette.color(QPalette::WindowText) == muted) return;
    palette.setColor(QPalette::WindowText, muted);
    palette.setColor(QPalette::Text, muted);
    widget_->setPalette(palette);
  }

  QWidget* widget_;
};

}  // namespace

int Em(const QWidget* widget) { return widget->fontMetrics().height(); }
int Gap(const QWidget* widget) { return std::max(1, Em(widget) / 2); }
int WideGap(const QWidget* widget) { return Em(widget); }

QSize RoomOnScreen(const QWidget* window) {
  const int title = window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return window->screen()->availableSize() - QSize(0, title);
}

int FromTwips(float twips, const QWidget* widget) {
  return static_cast<int>(std::lround(twips * PixelsPerTwip(widget)));
}
float ToTwips(int pixels, const QWidget* widget) {
  return static_cast<float>(pixels / PixelsPerTwip(widget));
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a);
  const double second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor ReadableOn(const QColor& background) {
  return Contrast(background, Qt::black) >= Contrast(background, Qt::white) ? Qt::black : Qt::white;
}

QColor Blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor Accent(const QPalette& palette) {
  QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  while (Contrast(accent, Qt::white) < kReadable) accent = Blend(accent, Qt::black, 0.06);
  return accent;
}

QColor MutedText(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  double share = 0.4;
  while (share > 0 && Contrast(Blend(text, window, share), window) < kReadable) share -= 0.05;
  return Blend(text, window, std::max(0.0, share));
}

QColor LineColor(const QPalette& palette) {
  return Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.16);
}

void SetMuted(QWidget* label) { new MutedColor(label); }

void SetLocked(QWidget* field, bool locked) {
  QPalette palette;
  if (locked) {
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    for (auto role : {QPalette::Text, QPalette::ButtonText})
      palette.setColor(QPalette::Disabled, role, MutedText(palette));
  }
  field->setPalette(palette);
}

void SetTitleFont(QWidget* widget, double factor) {
  QFont font = widget->font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(true);
  widget->setFont(font);
}

}  // namespace desktop

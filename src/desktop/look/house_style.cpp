#include "desktop/look/house_style.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QPainter>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTextCharFormat>
#include <QToolBar>
#include <QTreeView>
#include <QWidget>
#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/look.h"

namespace desktop {
namespace {

constexpr char kAccent[] = "accent";
constexpr int kModifiedColumn = 3;  // of a file dialog

/// Tells when a file was written, which the toolkit does in the language of the system.
class FileDays : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const auto* files = qobject_cast<const QFileSystemModel*>(index.model()))
      option->text = files->lastModified(index).toString(QStringLiteral("dd-MM-yyyy HH:mm"));
  }
};

bool IsAccent(const QWidget* widget) { return widget != nullptr && widget->property(kAccent).toBool(); }

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

/// The line around a control with the keyboard that has no frame of its own.
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

QRect BottomLine(const QRect& rect) { return {rect.left(), rect.bottom(), rect.width(), 1}; }

void DrawHeading(const QStyleOption& option, QPainter& painter) {
  const QPalette& palette = option.palette;
  QColor fill = palette.color(QPalette::Base);
  if (option.state.testFlag(QStyle::State_MouseOver)) fill = Blend(fill, palette.color(QPalette::Text), 0.06);
  painter.fillRect(option.rect, fill);
  painter.fillRect(BottomLine(option.rect), Blend(fill, palette.color(QPalette::Text), 0.35));
}

/// A page's tab: the one that is turned to stands on a line of the accent, filled where it has the keyboard.
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

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// Fusion draws outlines darker than the window, which are not seen where that is dark already.
void ShowOutlines(QPalette& palette) {
  const QColor line = Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.32);
  palette.setColor(QPalette::Window, line.lighter(140));
}

}  // namespace

HouseStyle::HouseStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void HouseStyle::SetAccent(QWidget* button, bool accent) {
  button->setProperty(kAccent, accent);
  button->update();
}

void HouseStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  palette.setColor(QPalette::PlaceholderText, MutedText(palette));
}

void HouseStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (auto* calendar = qobject_cast<QCalendarWidget*>(widget)) {
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) calendar->setWeekdayTextFormat(day, {});
  }
  auto* files = qobject_cast<QTreeView*>(widget);
  if (files == nullptr || qobject_cast<QFileDialog*>(files->window()) == nullptr) return;
  files->setItemDelegateForColumn(kModifiedColumn, new FileDays(files));
  files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      return DrawButton(*option, *painter, IsAccent(widget));
    case PE_PanelButtonTool:
      return DrawToolButton(*option, *painter);
    case PE_FrameTabBarBase:
      return painter->fillRect(BottomLine(option->rect), LineColor(option->palette));
    case PE_FrameFocusRect:
      if (qobject_cast<const QCheckBox*>(widget) != nullptr) DrawFocus(*option, *painter);
      return;
    case PE_FrameStatusBarItem:
      return;
    case PE_FrameLineEdit:
      if (!IsDark(option->palette)) break;
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
        QStyleOptionFrame visible(*frame);
        ShowOutlines(visible.palette);
        return QProxyStyle::drawPrimitive(element, &visible, painter, widget);
      }
      break;
    case PE_IndicatorCheckBox:
      if (!IsDark(option->palette)) break;
      if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
        QStyleOptionButton visible(*button);
        ShowOutlines(visible.palette);
        return QProxyStyle::drawPrimitive(element, &visible, painter, widget);
      }
      break;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  switch (element) {
    case CE_HeaderSection:
      return DrawHeading(*option, *painter);
    case CE_HeaderEmptyArea:
      return painter->fillRect(option->rect, option->palette.base());
    case CE_ToolBar:
      return DrawBar(*option, *painter);
    case CE_TabBarTabShape:
      return DrawTab(*option, *painter);
    case CE_PushButtonLabel: {
      const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
      if (button == nullptr || !IsAccent(widget) || !option->state.testFlag(State_Enabled)) break;
      QStyleOptionButton accented(*button);
      accented.palette.setColor(QPalette::ButtonText, Qt::white);
      return QProxyStyle::drawControl(element, &accented, painter, widget);
    }
    default:
      break;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

int HouseStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_TabBarTabShiftVertical) return 0;
  // Headings and cells leave the same room at their sides, so that they stand in one line.
  if (widget != nullptr && metric == PM_HeaderMargin) return Gap(widget);
  if (qobject_cast<const QAbstractItemView*>(widget) != nullptr && metric == PM_FocusFrameHMargin)
    return Gap(widget) - 1;
  if (qobject_cast<const QToolBar*>(widget) != nullptr) {
    if (metric == PM_ToolBarItemSpacing || metric == PM_ToolBarItemMargin) return Gap(widget) / 2;
    if (metric == PM_ToolBarFrameWidth) return 1;
  }
  return QProxyStyle::pixelMetric(metric, option, widget);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  if (control == CC_ComboBox && !option->state.testFlag(State_Enabled)) {
    // What can't be chosen from looks like any locked field.
    QStyleOptionFrame frame;
    static_cast<QStyleOption&>(frame) = *option;
    frame.lineWidth = pixelMetric(PM_DefaultFrameWidth, option, widget);
    return drawPrimitive(PE_PanelLineEdit, &frame, painter, widget);
  }
  if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      combo && IsDark(combo->palette)) {
    QStyleOptionComboBox visible(*combo);
    ShowOutlines(visible.palette);
    return QProxyStyle::drawComplexControl(control, &visible, painter, widget);
  }
  if (const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
      spin && IsDark(spin->palette)) {
    QStyleOptionSpinBox visible(*spin);
    ShowOutlines(visible.palette);
    return QProxyStyle::drawComplexControl(control, &visible, painter, widget);
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QSize HouseStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
  QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (widget == nullptr) return result;
  if (type == CT_PushButton) result.rwidth() += Gap(widget);
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (type == CT_LineEdit && frame != nullptr && frame->lineWidth == 0)
    return result;  // inside another field
  // Fields and buttons side by side are of one height.
  if (type == CT_PushButton || type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox)
    result.setHeight(std::max(result.height(), Em(widget) * 7 / 4));
  return result;
}

QIcon HouseStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
  switch (icon) {
    case SP_MessageBoxQuestion:
      return BoxIcon(QLatin1Char('?'));
    case SP_MessageBoxWarning:
    case SP_MessageBoxCritical:
      return BoxIcon(QLatin1Char('!'));
    case SP_MessageBoxInformation:
      return BoxIcon(QLatin1Char('i'));
    case SP_LineEditClearButton:
      return SignIcon(Sign::kRemove);
    case SP_ToolBarHorizontalExtensionButton:
      return SignIcon(Sign::kNext);
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  if (hint == SH_EtchDisabledText) return 0;
  if (hint == SH_Header_ArrowAlignment) return Qt::AlignRight | Qt::AlignVCenter;
  if (hint == SH_ItemView_ActivateItemOnSingleClick) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop

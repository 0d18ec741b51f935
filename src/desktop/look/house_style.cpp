#include "desktop/look/house_style.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTextCharFormat>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QWidget>
#include <algorithm>

#include "desktop/look/house_drawing.h"
#include "desktop/look/icons.h"
#include "desktop/look/look.h"

namespace desktop {
namespace {

constexpr char kAccent[] = "accent";
constexpr int kModifiedColumn = 3;  // of a file dialog
constexpr char kMenuArrow[] = " ▾";

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

/// What has no frame of its own to be coloured.
bool ShowsFocus(const QWidget* widget) {
  return qobject_cast<const QCheckBox*>(widget) != nullptr ||
         qobject_cast<const QRadioButton*>(widget) != nullptr ||
         qobject_cast<const QToolButton*>(widget) != nullptr;
}

/// A word that opens a menu: it needs no button around it.
const QStyleOptionToolButton* MenuWord(const QStyleOption* option) {
  const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
  const bool word = button != nullptr && button->toolButtonStyle == Qt::ToolButtonTextOnly;
  return word && button->features.testFlag(QStyleOptionToolButton::HasMenu) ? button : nullptr;
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
      if (ShowsFocus(widget)) DrawFocus(*option, *painter);
      return;
    case PE_IndicatorHeaderArrow:
      if (widget != nullptr) {
        const auto* heading = qstyleoption_cast<const QStyleOptionHeader*>(option);
        if (heading == nullptr) break;
        QStyleOptionHeader placed(*heading);
        placed.rect = SortArrow(*option, *widget);
        return QProxyStyle::drawPrimitive(element, &placed, painter, widget);
      }
      break;
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
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option); bar && control == CC_ScrollBar)
    return DrawScrollBar(*bar, *painter, *this, widget);
  if (control == CC_ComboBox && !option->state.testFlag(State_Enabled)) {
    // What can't be chosen from looks like any locked field.
    QStyleOptionFrame frame;
    static_cast<QStyleOption&>(frame) = *option;
    frame.lineWidth = pixelMetric(PM_DefaultFrameWidth, option, widget);
    return drawPrimitive(PE_PanelLineEdit, &frame, painter, widget);
  }
  if (const QStyleOptionToolButton* word = MenuWord(option); word && control == CC_ToolButton) {
    QStyleOptionToolButton plain(*word);
    plain.features.setFlag(QStyleOptionToolButton::HasMenu, false);
    plain.text += QString::fromUtf8(kMenuArrow);
    return QProxyStyle::drawComplexControl(control, &plain, painter, widget);
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
  if (type == CT_ToolButton && MenuWord(option) != nullptr)
    result.rwidth() += option->fontMetrics.horizontalAdvance(QString::fromUtf8(kMenuArrow));
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
  if (hint == SH_Table_GridLineColor && option != nullptr)
    return static_cast<int>(LineColor(option->palette).rgba());
  if (hint == SH_Header_ArrowAlignment) return Qt::AlignRight | Qt::AlignVCenter;
  if (hint == SH_ItemView_ActivateItemOnSingleClick) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop

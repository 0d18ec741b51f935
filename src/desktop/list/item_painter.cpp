#include "desktop/list/item_painter.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QTableView>
#include <QToolTip>
#include <algorithm>

#include "desktop/list/grid_model.h"
#include "desktop/look/icons.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr double kSoftShare = 0.22;
constexpr double kRowLineShare = 0.1;
constexpr double kHeadingShare = 0.06;
constexpr double kBandShare = 0.24;
constexpr double kBandStep = 0.04;
constexpr double kReadable = 4.5;

/// True in the first column that is shown.
bool IsFirst(const QStyleOptionViewItem& item, const QModelIndex& index) {
  const auto* view = qobject_cast<const QTableView*>(item.widget);
  if (view == nullptr) return false;
  const QHeaderView* header = view->horizontalHeader();
  for (int place = 0; place < header->visualIndex(index.column()); ++place)
    if (!header->isSectionHidden(header->logicalIndex(place))) return false;
  return true;
}

/// Of a row with a band the first column bears the band's mark.
bool BearsMark(const QStyleOptionViewItem& item, const QModelIndex& index) {
  return index.data(GridModel::kBandColor).isValid() && IsFirst(item, index);
}

double MarkSide(const QStyleOptionViewItem& item) { return item.fontMetrics.height() * 0.6; }
/// The bar at the row's edge.
int BarWidth(const QStyleOptionViewItem& item) { return std::max(3, item.fontMetrics.height() / 4); }
/// From the cell's edge to the end of the mark.
int MarkWidth(const QStyleOptionViewItem& item) {
  return BarWidth(item) + static_cast<int>(MarkSide(item) * 1.5);
}

/// A band's colour behind text: so pale that the palette's own text is read on it.
QColor Pale(const QPalette& palette, const QColor& band) {
  const QColor base = palette.color(QPalette::Base);
  double share = kBandShare;
  while (share > 0 && Contrast(Blend(base, band, share), palette.color(QPalette::Text)) < kReadable)
    share -= kBandStep;
  return Blend(base, band, std::max(0.0, share));
}

/// Draws a bar in the band's colour and the band's mark at the left of a row, and moves the text behind them.
void PaintMark(QPainter& painter, QStyleOptionViewItem& item, const QModelIndex& index, const QColor& band) {
  const int bar = BarWidth(item);
  painter.fillRect(QRect(item.rect.left(), item.rect.top(), bar, item.rect.height()), band);
  const double side = MarkSide(item);
  const QRectF square(item.rect.left() + bar + side / 2, item.rect.center().y() - side / 2, side, side);
  DrawBandMark(painter, square, index.data(GridModel::kBandOrder).toInt(),
               item.palette.color(QPalette::Text));
  item.rect.setLeft(item.rect.left() + MarkWidth(item));
}

}  // namespace

bool ItemPainter::HasKeyboard(const QStyleOptionViewItem& item) {
  return item.widget != nullptr && item.widget->hasFocus() && item.state.testFlag(QStyle::State_Active);
}

void ItemPainter::PaintChosen(QPainter& painter, QStyleOptionViewItem& item) {
  const QColor accent = Accent(item.palette);
  const bool strong = HasKeyboard(item);
  painter.fillRect(item.rect,
                   strong ? accent : Blend(item.palette.color(QPalette::Base), accent, kSoftShare));
  item.palette.setColor(QPalette::Text, strong ? QColor(Qt::white) : item.palette.color(QPalette::Text));
  item.state &= ~QStyle::State_Selected;
}

void ItemPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  item.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
  if (item.state.testFlag(QStyle::State_Selected)) PaintChosen(*painter, item);
  QStyledItemDelegate::paint(painter, item, index);
}

QSize CellPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QSize size = ItemPainter::sizeHint(option, index);
  return BearsMark(option, index) ? size + QSize(MarkWidth(option), 0) : size;
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  item.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
  const bool chosen = item.state.testFlag(QStyle::State_Selected);
  const QVariant band = index.data(GridModel::kBandColor);
  if (chosen) {
    PaintChosen(*painter, item);
  } else if (index.data(GridModel::kHeading).toBool()) {
    painter->fillRect(item.rect, Blend(item.palette.color(QPalette::Base), item.palette.color(QPalette::Text),
                                       kHeadingShare));
  } else if (band.isValid()) {
    painter->fillRect(item.rect, Pale(item.palette, band.value<QColor>()));
  }
  if (BearsMark(item, index)) PaintMark(*painter, item, index, band.value<QColor>());
  // The title of a group runs on over other cells: the table writes it.
  if (!index.data(GridModel::kHeading).toBool() || !IsFirst(item, index))
    QStyledItemDelegate::paint(painter, item, index);
  const QPalette& colors = option.palette;
  painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                    Blend(colors.color(QPalette::Base), colors.color(QPalette::Text), kRowLineShare));
}

bool CellPainter::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip) return ItemPainter::helpEvent(event, view, option, index);
  const bool cut = sizeHint(option, index).width() > option.rect.width();
  QToolTip::showText(event->globalPos(), cut ? PlainToolTip(index.data().toString()) : QString(), view);
  return true;
}

}  // namespace desktop

#include "desktop/list/item_painter.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QTableView>
#include <QToolTip>

#include "desktop/list/grid_model.h"
#include "desktop/look/icons.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr double kSoftShare = 0.22;
constexpr double kRowLineShare = 0.1;

/// True in the first column that is shown of a row with a band: it bears the band's mark.
bool BearsMark(const QStyleOptionViewItem& item, const QModelIndex& index) {
  const auto* view = qobject_cast<const QTableView*>(item.widget);
  if (view == nullptr || !index.data(GridModel::kBandColor).isValid()) return false;
  const QHeaderView* header = view->horizontalHeader();
  for (int place = 0; place < header->visualIndex(index.column()); ++place)
    if (!header->isSectionHidden(header->logicalIndex(place))) return false;
  return true;
}

double MarkSide(const QStyleOptionViewItem& item) { return item.fontMetrics.height() * 0.6; }
/// From the cell's edge to the end of the mark.
int MarkWidth(const QStyleOptionViewItem& item) { return static_cast<int>(MarkSide(item) * 1.5); }

/// Draws the band's mark at the left of a row and moves the text behind it.
void PaintMark(QPainter& painter, QStyleOptionViewItem& item, const QModelIndex& index, const QColor& color) {
  const double side = MarkSide(item);
  const QRectF square(item.rect.left() + side / 2, item.rect.center().y() - side / 2, side, side);
  DrawBandMark(painter, square, index.data(GridModel::kBandOrder).toInt(), color);
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
  } else if (band.isValid()) {
    painter->fillRect(item.rect, band.value<QColor>());
    item.palette.setColor(QPalette::Text, ReadableOn(band.value<QColor>()));
  }
  if (BearsMark(item, index)) PaintMark(*painter, item, index, item.palette.color(QPalette::Text));
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

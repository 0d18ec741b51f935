#include "desktop/item_painter.h"

#include <QHeaderView>
#include <QPainter>
#include <QTableView>

#include "desktop/grid_model.h"
#include "desktop/icons.h"
#include "desktop/look.h"

namespace desktop {
namespace {

constexpr double kSoftShare = 0.22;
constexpr double kRowLineShare = 0.1;

bool HasKeyboard(const QStyleOptionViewItem& item) {
  return item.widget != nullptr && item.widget->hasFocus() && item.state.testFlag(QStyle::State_Active);
}

bool IsFirstColumn(const QStyleOptionViewItem& item, const QModelIndex& index) {
  const auto* view = qobject_cast<const QTableView*>(item.widget);
  return view != nullptr && view->horizontalHeader()->logicalIndexAt(0) == index.column();
}

/// Draws the band's mark at the left of a row and moves the text behind it.
void PaintMark(QPainter& painter, QStyleOptionViewItem& item, const QModelIndex& index, const QColor& color) {
  const double side = item.fontMetrics.height() * 0.6;
  const double left = item.rect.left() + side / 2;
  const QRectF square(left, item.rect.center().y() - side / 2, side, side);
  DrawBandMark(painter, square, index.data(GridModel::kBandOrder).toInt(), color);
  item.rect.setLeft(static_cast<int>(left + side));
}

}  // namespace

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
  if (band.isValid() && IsFirstColumn(item, index))
    PaintMark(*painter, item, index, item.palette.color(QPalette::Text));
  QStyledItemDelegate::paint(painter, item, index);
  const QPalette& colors = option.palette;
  painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                    Blend(colors.color(QPalette::Base), colors.color(QPalette::Text), kRowLineShare));
}

}  // namespace desktop

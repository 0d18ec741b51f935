#pragma once

#include <QStyledItemDelegate>

namespace desktop {

/// Paints the items of lists: the chosen one in the accent where the keyboard is, in a soft shade of it
/// elsewhere.
class ItemPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  /// True when the item's table has the keyboard.
  static bool HasKeyboard(const QStyleOptionViewItem& item);
  /// Fills the background of a chosen item, and gives its text the colour that goes with it.
  static void PaintChosen(QPainter& painter, QStyleOptionViewItem& item);
};

/// Paints the cells of tables: the row's alert band with its mark as well, and a thin line below. The pointer
/// at rest over a cell whose text is cut shows it whole.
class CellPainter : public ItemPainter {
 public:
  using ItemPainter::ItemPainter;
  /// With room for the mark.
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
};

}  // namespace desktop

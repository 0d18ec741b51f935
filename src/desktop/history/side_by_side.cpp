#include "desktop/history/side_by_side.h"

#include <QHeaderView>
#include <QTableWidget>

#include "desktop/list/item_painter.h"

namespace desktop {

QTableWidget* SideBySide(const std::vector<const char*>& captions, QWidget* parent) {
  auto* table = new QTableWidget(0, static_cast<int>(captions.size()), parent);
  QStringList names;
  for (const char* caption : captions) names << QString::fromUtf8(caption);
  table->setHorizontalHeaderLabels(names);
  table->horizontalHeader()->setStretchLastSection(true);
  table->horizontalHeader()->setHighlightSections(false);
  table->setItemDelegate(new ItemPainter(table));
  table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table->verticalHeader()->hide();
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setTabKeyNavigation(false);
  table->setShowGrid(false);
  table->setWordWrap(false);
  return table;
}

void AddLine(QTableWidget& table, const QStringList& texts) {
  const int row = table.rowCount();
  table.insertRow(row);
  for (int i = 0; i < texts.size(); ++i) {
    auto* item = new QTableWidgetItem(texts[i]);
    item->setToolTip(texts[i].toHtmlEscaped());
    table.setItem(row, i, item);
  }
}

}  // namespace desktop

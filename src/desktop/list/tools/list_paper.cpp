#include "desktop/list/tools/list_paper.h"

#include <algorithm>

#include "desktop/list/tools/list_look.h"
#include "desktop/look/text.h"
#include "lists/footer.h"

namespace desktop {
namespace {

/// A title in the first column that is shown, and what the others come to.
QStringList HeadingTexts(const TableView& table, const QString& title, const std::vector<long>& rows) {
  const TableSource& source = table.grid().source();
  QStringList texts(static_cast<qsizetype>(source.ColumnCount()));
  const std::vector<std::size_t> visible = source.VisibleColumns();
  for (std::size_t column : visible) {
    const TableColumn& shown = source.Columns()[column];
    texts[static_cast<qsizetype>(column)] =
        ToQt(lists::SubtotalText(table.grid().order(), {column, {}, shown.mask, shown.summed}, rows));
  }
  if (!visible.empty())
    texts[static_cast<qsizetype>(visible.front())] = QStringLiteral("%1 (%2)").arg(title).arg(rows.size());
  return texts;
}

bool IsSummed(const TableSource& source) {
  const std::vector<std::size_t> visible = source.VisibleColumns();
  return std::any_of(visible.begin(), visible.end(), [&source](std::size_t column) {
    return source.Columns()[column].summed != lists::Summed::kNo;
  });
}

}  // namespace

PaperTable PaperOf(const TableView& table, const std::vector<long>& marked) {
  const RowOrder& order = table.grid().order();
  const bool some = marked.size() > 1;
  const std::vector<long> all = some ? marked : order.Rows();
  PaperTable paper{.rows = all};
  if (const QString filters = FiltersInWords(table); !some && !filters.isEmpty()) paper.notes << filters;
  if (!some && order.group()) {
    const QString column = table.grid().source().Columns()[*order.group()].caption;
    paper.notes << QStringLiteral("Agrupado por %1").arg(column);
    paper.counted = order.RowCount();
    paper.rows->clear();
    for (const lists::RowGroup& group : order.groups()) {
      paper.headings.push_back(
          {static_cast<long>(paper.rows->size()), HeadingTexts(table, ToQt(group.title), group.rows)});
      if (group.open) paper.rows->insert(paper.rows->end(), group.rows.begin(), group.rows.end());
    }
  }
  if (IsSummed(table.grid().source()))
    paper.headings.push_back(
        {static_cast<long>(paper.rows->size()), HeadingTexts(table, QStringLiteral("Total"), all)});
  return paper;
}

}  // namespace desktop

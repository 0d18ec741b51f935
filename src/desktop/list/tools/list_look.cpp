#include "desktop/list/tools/list_look.h"

#include "desktop/list/table_view.h"
#include "desktop/look/text.h"
#include "lists/condition.h"
#include "platform/runtime_error.h"

namespace desktop {

lists::ListLook LookOf(const TableView& table) {
  const TableSource& source = table.grid().source();
  const RowOrder& order = table.grid().order();
  lists::ListLook look;
  look.columns = source.chosen();
  look.search = order.search();
  for (const auto& [column, text] : order.filters()) look.filters[source.Columns()[column].key] = text;
  if (order.sort()) {
    look.sort = source.Columns()[order.sort()->column].key;
    look.descending = order.sort()->direction == SortDirection::kDescending;
  }
  if (order.group()) look.group = source.Columns()[*order.group()].key;
  return look;
}

void ApplyLook(TableView& table, const lists::ListLook& look) {
  const TableSource& source = table.grid().source();
  table.ChooseColumns(look.columns);
  table.Reorder([&](RowOrder& order) {
    order.ShowAll();
    const auto sort = source.FindColumn(look.sort);
    order.GroupBy(source.FindColumn(look.group));
    order.Sort(sort ? std::optional(SortBy{
                          *sort, look.descending ? SortDirection::kDescending : SortDirection::kAscending})
                    : std::nullopt);
    order.Search(look.search);
  });
  for (const auto& [key, text] : look.filters) {
    const auto column = source.FindColumn(key);
    if (!column) continue;
    try {
      table.Reorder([&, text = text](RowOrder& order) { order.Filter(*column, text); });
    } catch (const platform::RuntimeError&) {
      table.Reorder([&](RowOrder& order) { order.Filter(*column, {}); });
    }
  }
  ShowFilters(table);
}

void ShowFilters(TableView& table) {
  const auto& filters = table.grid().order().filters();
  for (std::size_t column = 0; column < table.grid().source().Columns().size(); ++column) {
    const auto found = filters.find(column);
    table.filters().SetText(static_cast<int>(column),
                            found == filters.end() ? QString() : ToQt(found->second));
  }
}

QString FiltersInWords(const TableView& table, const std::set<std::size_t>& told) {
  const RowOrder& order = table.grid().order();
  QStringList parts;
  if (!order.search().empty()) parts << QStringLiteral("«%1»").arg(ToQt(order.search()));
  for (const auto& [column, filter] : order.filters())
    if (told.count(column) == 0)
      parts << QStringLiteral("%1: %2").arg(table.grid().source().Columns()[column].caption,
                                            ToQt(lists::ConditionInWords(filter)));
  return parts.isEmpty() ? QString() : QStringLiteral("Só ") + parts.join(QStringLiteral(" · "));
}

}  // namespace desktop

#include "desktop/list/list_memory.h"

#include <QSettings>

#include "desktop/list/table_view.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr char kWidths[] = "larguras";
constexpr char kSortColumn[] = "ordem";
constexpr char kDescending[] = "descendente";
constexpr char kSearch[] = "procura";

}  // namespace

QString ListMemory::Key(const char* name) const {
  return QStringLiteral("listas/%1/%2").arg(list_, QString::fromUtf8(name));
}

/// What is as it was isn't written: a write waits for the disk.
void ListMemory::Store(const char* name, const QVariant& value) const {
  const QString key = Key(name);
  const QVariant kept = settings_.value(key);
  if (kept.isValid() ? kept != value : !value.toString().isEmpty() || !value.toMap().isEmpty())
    settings_.setValue(key, value);
}

void ListMemory::Restore(TableView& table) const {
  std::map<std::string, float> widths;
  const QVariantMap kept = settings_.value(Key(kWidths)).toMap();
  for (auto it = kept.begin(); it != kept.end(); ++it) widths[FromQt(it.key())] = it.value().toFloat();
  if (!widths.empty()) table.SetUserWidths(widths);

  const auto column = table.grid().source().FindColumn(FromQt(settings_.value(Key(kSortColumn)).toString()));
  const bool descending = settings_.value(Key(kDescending)).toBool();
  if (column)
    table.SortBy(SortBy{*column, descending ? SortDirection::kDescending : SortDirection::kAscending});
  const QString search = settings_.value(Key(kSearch)).toString();
  if (!search.isEmpty()) table.Search(search);
}

void ListMemory::Keep(const TableView& table) const {
  QVariantMap widths;
  for (const auto& [key, width] : table.UserWidths()) widths.insert(ToQt(key), width);
  Store(kWidths, widths);

  const auto& sort = table.grid().order().sort();
  const auto& columns = table.grid().source().Columns();
  Store(kSortColumn, sort ? ToQt(columns[sort->column].key) : QString());
  Store(kDescending, sort && sort->direction == SortDirection::kDescending);
  Store(kSearch, table.grid().order().search());
}

}  // namespace desktop

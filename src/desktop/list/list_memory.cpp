#include "desktop/list/list_memory.h"

#include <QSettings>

#include "desktop/list/table_view.h"
#include "desktop/list/tools/list_look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr char kWidths[] = "larguras";
constexpr char kLook[] = "aspecto";
constexpr char kFields[] = "filtros";

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

void ListMemory::Restore(TableView& table, bool newest_first) const {
  std::map<std::string, float> widths;
  const QVariantMap kept = settings_.value(Key(kWidths)).toMap();
  for (auto it = kept.begin(); it != kept.end(); ++it) widths[FromQt(it.key())] = it.value().toFloat();
  if (!widths.empty()) table.SetUserWidths(widths);

  const QVariant remembered = settings_.value(Key(kLook));
  lists::ListLook look = lists::LookOf(FromQt(remembered.toString()));
  if (!remembered.isValid() && newest_first) {
    look.sort = "Data";
    look.descending = true;
  }
  ApplyLook(table, look);
  table.filters().ShowFields(settings_.value(Key(kFields)).toBool());
  ShowFilters(table);
}

void ListMemory::Keep(const TableView& table) const {
  QVariantMap widths;
  for (const auto& [key, width] : table.UserWidths()) widths.insert(ToQt(key), width);
  Store(kWidths, widths);

  Store(kLook, ToQt(lists::LookText(LookOf(table))));
  Store(kFields, table.filters().ShowsFields());
}

}  // namespace desktop

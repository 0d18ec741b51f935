#include "desktop/history/record_commands.h"

#include <cstring>

#include "desktop/history/driver_dialogs.h"
#include "desktop/history/life_dialog.h"
#include "desktop/look/text.h"
#include "history/view/table_names.h"

namespace desktop {
namespace {

void ReloadAfter(ListPage& page, bool changed) {
  if (!changed) return;
  page.Load();
  Q_EMIT page.Worked();
}

}  // namespace

bool HasLife(const ListEntry& list) { return !history::TableOfList(list.key).empty(); }

void ShowLife(ListPage& page, const MarkedRows& rows) {
  const std::string& key = rows.keys.front();
  const bool events = !rows.plate.empty() && rows.plate != key;
  const QString name = events ? ToQt(key) + QStringLiteral(" – ") + ToQt(rows.plate) : ToQt(key);
  ReloadAfter(page, LifeDialog::Show(page.workspace().kept(), history::TableOfList(rows.list.key), key, name,
                                     page.window()));
}

bool ListsDrivers(const ListEntry& list) { return std::strcmp(list.key, "Motoristas") == 0; }

void ExportMarkedDriver(ListPage& page, const MarkedRows& rows) {
  ExportDriverData(page.workspace(), rows.keys.front(), page.window());
}

void EraseMarkedDriver(ListPage& page, const MarkedRows& rows) {
  ReloadAfter(page, EraseDriverData(page.workspace(), rows.keys.front(), page.window()));
}

void ShowQuietDrivers(ListPage& page, const MarkedRows&) {
  ReloadAfter(page, QuietDriversDialog(page.workspace(), page.window()).exec() == QDialog::Accepted);
}

}  // namespace desktop

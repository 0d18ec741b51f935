#include "desktop/list/row_entry.h"

#include "desktop/history/record_commands.h"

namespace desktop {

const std::vector<RowEntry>& RowEntries() {
  static const std::vector<RowEntry> entries = {
      {"&Histórico do registo…", "Ctrl+H", &HasLife, &ShowLife},
      {"E&xportar dados pessoais…", "", &ListsDrivers, &ExportMarkedDriver},
      {"Apagar dados &pessoais…", "", &ListsDrivers, &EraseMarkedDriver},
      {"Motoristas &inactivos…", "", &ListsDrivers, &ShowQuietDrivers},
  };
  return entries;
}

}  // namespace desktop

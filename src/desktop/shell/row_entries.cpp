#include "desktop/list/row_entry.h"

#include <cstring>

#include "desktop/history/record_commands.h"
#include "desktop/list/handling_dialog.h"
#include "desktop/list/vehicle_field_dialog.h"

namespace desktop {
namespace {

bool IsVehicles(const ListEntry& list) { return std::strcmp(list.key, "Viaturas") == 0; }

}  // namespace

const std::vector<RowEntry>& RowEntries() {
  static const std::vector<RowEntry> entries = {
      {"Alterar &campo…", "", &IsVehicles, &ChangeVehicles},
      {"&Adiar até…", "Ctrl+D", &IsAlertList, &PutOffAlerts},
      {"&Tratado…", "Ctrl+T", &IsAlertList, &SettleAlerts},
      {"De novo &por tratar", "", &IsAlertList, &ReopenAlerts},
      {"&Histórico do registo…", "Ctrl+H", &HasLife, &ShowLife},
      {"E&xportar dados pessoais…", "", &ListsDrivers, &ExportMarkedDriver},
      {"Apagar dados &pessoais…", "", &ListsDrivers, &EraseMarkedDriver},
      {"Motoristas &inactivos…", "", &ListsDrivers, &ShowQuietDrivers},
  };
  return entries;
}

}  // namespace desktop

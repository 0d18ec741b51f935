#include "desktop/list/row_entry.h"

#include <cstring>

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
  };
  return entries;
}

}  // namespace desktop

#include <string_view>

#include "desktop/history/record_commands.h"
#include "desktop/list/list_page.h"
#include "desktop/list/row_entry.h"
#include "desktop/list/tools/handling_dialog.h"
#include "desktop/list/tools/vehicle_field_dialog.h"
#include "desktop/look/text.h"
#include "desktop/reports/evolution_dialog.h"

namespace desktop {
namespace {

bool IsVehicles(const ListEntry& list) { return std::string_view(list.key) == "Viaturas"; }

bool HasPlates(const ListEntry& list) { return std::string_view(list.keyColumn) == "Matricula"; }

bool IsAny(const ListEntry&) { return true; }

void CopyRows(ListPage& page, const MarkedRows&) { page.table().Copy(); }

void Evolution(ListPage& page, const MarkedRows& rows) {
  ShowEvolution(page.workspace(), ToQt(rows.keys.front()), page.window());
}

}  // namespace

const std::vector<RowEntry>& RowEntries() {
  static const std::vector<RowEntry> entries = {
      {"E&volução…", "", &HasPlates, &Evolution},
      {"Alterar &campo…", "", &IsVehicles, &ChangeVehicles, "zor_PV_Viaturas"},
      {"&Adiar até…", "Ctrl+D", &IsAlertList, &PutOffAlerts, "parvel_tratados"},
      {"&Tratado…", "Ctrl+T", &IsAlertList, &SettleAlerts, "parvel_tratados"},
      {"De novo &por tratar", "", &IsAlertList, &ReopenAlerts, "parvel_tratados"},
      {"C&opiar", "Ctrl+C", &IsAny, &CopyRows},
      {"&Histórico do registo…", "Ctrl+H", &HasLife, &ShowLife},
      {"E&xportar dados pessoais…", "", &ListsDrivers, &ExportMarkedDriver},
      {"Apagar dados &pessoais…", "", &ListsDrivers, &EraseMarkedDriver, "zor_Funcionarios"},
      {"Motoristas inac&tivos…", "", &ListsDrivers, &ShowQuietDrivers},
  };
  return entries;
}

}  // namespace desktop

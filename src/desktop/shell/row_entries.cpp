#include <string_view>

#include "desktop/list/list_page.h"
#include "desktop/list/row_entry.h"
#include "desktop/look/text.h"
#include "desktop/reports/evolution_dialog.h"

namespace desktop {
namespace {

bool HasPlates(const ListEntry& list) { return std::string_view(list.keyColumn) == "Matricula"; }

void Evolution(ListPage& page, const MarkedRows& rows) {
  ShowEvolution(page.workspace(), ToQt(rows.keys.front()), page.window());
}

}  // namespace

const std::vector<RowEntry>& RowEntries() {
  static const std::vector<RowEntry> entries = {{"&Evolução…", "", &HasPlates, &Evolution}};
  return entries;
}

}  // namespace desktop

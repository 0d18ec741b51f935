#include "desktop/start/handled_counts.h"

#include "due/handled.h"
#include "platform/host.h"

namespace desktop {
namespace {

class GridForm : public platform::Form {
 public:
  platform::SGGrid grid{*this, "Grid"};
};

}  // namespace

long HandledNow(zorCrmParvel::Sistema& sistema, const ListEntry& entry) {
  const due::Handlings handlings =
      due::HandlingsOf(sistema.ICrmSistema_ZorDataAccess, entry.key, platform::Today());
  if (handlings.empty()) return 0;
  GridForm form;
  const auto list = sistema.MostraListas(entry.key);
  list->ICrmVwList_GridMaster(&form.grid);
  list->ICrmVwList_Iniciar();
  long handled = 0;
  for (long row = 0; row < form.grid.RowCount(); ++row) {
    std::vector<std::string> texts;
    for (const char* column : due::AlertColumns(entry.key))
      texts.push_back(form.grid.CellText(row, form.grid.ColumnIndex(column)));
    handled += handlings.count(due::AlertOf(texts)) != 0 ? 1 : 0;
  }
  list->ICrmVwList_Terminar();
  return handled;
}

}  // namespace desktop

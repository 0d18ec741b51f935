#include "desktop/list/list_commands.h"

namespace desktop {

ListCommands::ListCommands(zorCrmParvel::ICrmVwList* list) {
  menu_.Add(kNewCommand, "&Novo");
  menu_.Add(kEditCommand, "&Editar");
  menu_.Add(kRemoveCommand, "&Remover");
  menu_.Add(kPrintCommand, "&Imprimir");
  if (list != nullptr) list->ICrmVwList_BeforePopUpViewListEdit(menu_);
}

bool ListCommands::Has(StandardCommand command) const {
  for (const platform::MenuItem& item : menu_.Items())
    if (item.id == command) return item.visible && item.enabled;
  return false;
}

std::string ListCommands::NameOf(long command) const {
  for (const platform::MenuItem& item : menu_.Items()) {
    if (item.id != command) continue;
    std::string name = item.caption;
    std::erase(name, '&');
    return name;
  }
  return {};
}

void ListCommands::Run(zorCrmParvel::ICrmVwList& list, long command) {
  menu_.Command = command;
  list.ICrmVwList_ExecutePopUpViewListEdit(menu_);
}

bool IsStandard(long command) {
  return command == kNewCommand || command == kEditCommand || command == kRemoveCommand ||
         command == kPrintCommand;
}

}  // namespace desktop

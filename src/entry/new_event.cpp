#include "entry/new_event.h"

#include "vehicles/viaturas_tabs.h"

namespace entry {

using zorCrmParvel::Viaturas;

std::vector<EventButton> EventButtonsOf(platform::Form& form) {
  std::vector<EventButton> buttons;
  auto* ficha = dynamic_cast<Viaturas*>(&form);
  if (ficha == nullptr) return buttons;
  for (const auto& tab : zorCrmParvel::SeparadoresDeEventos())
    buttons.push_back({&(ficha->*tab.editar), tab.indice, tab.campoId});
  return buttons;
}

void OpenNewEvent(platform::Form& form, const EventButton& button) {
  auto* ficha = dynamic_cast<Viaturas*>(&form);
  if (ficha == nullptr) return;
  ficha->Campo[button.field].Text.clear();
  ficha->UserPresses(*button.edit);
}

}  // namespace entry

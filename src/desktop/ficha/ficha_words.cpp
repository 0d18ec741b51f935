#include "desktop/ficha/ficha_words.h"

#include <vector>

#include "desktop/ficha/ficha_contents.h"

namespace desktop {
namespace {

constexpr std::size_t kPartsOfTitle = 2;

void Add(std::string& text, const char* separator, const std::string& part) {
  if (!part.empty()) text += (text.empty() ? "" : separator) + part;
}

std::string KeysOf(const platform::zor_input& field) {
  std::string keys;
  if (field.PedidoLista) Add(keys, ", ", "F3 lista");
  if (field.PedidoFicha) Add(keys, ", ", "F4 ficha");
  if (field.PedidoMapa) Add(keys, ", ", "F7 imprimir");
  if (field.tipo_campo == 1) Add(keys, ", ", "Ctrl+Enter nova linha");
  return keys;
}

std::string WantedBy(const platform::zor_input& field) {
  if (field.formato_campo == platform::zor_input::kInteiro) return "um número inteiro";
  if (field.Numeric()) return "um número";
  return field.maxlength > 0 ? "até " + std::to_string(field.maxlength) + " caracteres" : "";
}

}  // namespace

std::string TitleOf(const platform::Form& form) {
  std::vector<std::string> parts;
  for (const platform::Control* control : form.Controls()) {
    const bool ticked = dynamic_cast<const platform::CheckBox*>(control) != nullptr;
    if (!HoldsValue(*control) || ticked) continue;
    const bool date = dynamic_cast<const platform::DTPicker*>(control) != nullptr;
    const std::string value = ValueOf(*control);
    parts.push_back(date ? value.substr(0, value.find(' ')) : value);  // without the time of day
    if (parts.size() == kPartsOfTitle) break;
  }
  if (parts.empty() || parts.front().empty()) return form.Caption;
  std::string record;
  for (const std::string& part : parts) Add(record, ", ", part);
  return form.Caption + ": " + record;
}

std::string HintFor(const platform::Control* control) {
  if (control == nullptr) return {};
  std::string hint = control->ToolTipText;
  if (hint.ends_with('.')) hint.pop_back();
  if (const auto* field = dynamic_cast<const platform::zor_input*>(control)) {
    Add(hint, " · ", WantedBy(*field));
    Add(hint, " · ", KeysOf(*field));
  } else if (const auto* date = dynamic_cast<const platform::DTPicker*>(control)) {
    Add(hint, " · ", date->Optional ? "uma data; Espaço tira-a ou põe-na" : "uma data");
  }
  return hint;
}

}  // namespace desktop

#include "desktop/ficha/ficha_words.h"

#include <vector>

#include "desktop/ficha/ficha_contents.h"
#include "entry/codes.h"
#include "entry/like_last.h"
#include "host/form_catalog.h"

namespace desktop {
namespace {

using zorCrmParvel::FormCatalog;

constexpr std::size_t kPartsOfTitle = 2;

void Add(std::string& text, const char* separator, const std::string& part) {
  if (!part.empty()) text += (text.empty() ? "" : separator) + part;
}

/// The keys that do something in the field: a ficha has its keys in all fields, and only those of codes
/// answer.
std::string KeysOf(const platform::zor_input& field) {
  const entry::CodeField* code = entry::CodeFieldOf(&field);
  const bool own = code == nullptr || code->use == entry::CodeUse::kOwn;
  const bool plate = code != nullptr && !own && entry::HoldsPlate(*code);
  const bool plain = code == nullptr && !FormCatalog::Shared().Has(field.form().Name);
  std::string keys;
  if (plate) Add(keys, ", ", "Alt+↓ viaturas, F3 registos");
  if (field.PedidoLista && !plate && (code != nullptr || plain)) Add(keys, ", ", "F3 lista");
  if (field.PedidoFicha && (own ? plain : code->use != entry::CodeUse::kPlain)) Add(keys, ", ", "F4 ficha");
  if (field.PedidoMapa && field.Index() == 0) Add(keys, ", ", "F7 imprimir");
  if (field.tipo_campo == 1) Add(keys, ", ", "Ctrl+Enter nova linha");
  if (code != nullptr && !plate && entry::TakesLikeLast(field.form()))
    Add(keys, ", ", "Ctrl+D como o último");
  return keys;
}

std::string WantedBy(const platform::zor_input& field) {
  if (field.formato_campo == platform::zor_input::kInteiro) return "um número inteiro";
  if (field.Numeric()) return "um número";
  std::string wanted = field.maxlength > 0 ? "até " + std::to_string(field.maxlength) + " caracteres" : "";
  const entry::CodeField* code = entry::CodeFieldOf(&field);
  if (code == nullptr || code->use != entry::CodeUse::kNeeded) return wanted;
  return entry::HoldsPlate(*code) ? "" : "um código, ou o princípio do nome";
}

}  // namespace

std::string TitleOf(const platform::Form& form) {
  std::vector<std::string> parts;
  for (const platform::Control* control : form.Controls()) {
    if (!HoldsValue(*control)) continue;
    if (dynamic_cast<const platform::CheckBox*>(control) != nullptr) continue;
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
  } else if (dynamic_cast<const platform::CheckBox*>(control) != nullptr) {
    Add(hint, " · ", "Espaço marca e desmarca");
  } else if (dynamic_cast<const platform::ComboBox*>(control) != nullptr) {
    Add(hint, " · ", "↑ ↓ escolhe");
  } else if (dynamic_cast<const platform::TabControl*>(control) != nullptr) {
    Add(hint, " · ", "← → outro separador");
  }
  return hint;
}

}  // namespace desktop

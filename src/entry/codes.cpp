#include "entry/codes.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "lists/words.h"
#include "platform/text.h"

namespace entry {
namespace {

constexpr char kVehicles[] = "zor_PV_Viaturas";
constexpr char kDrivers[] = "zor_Funcionarios";
constexpr char kPlate[] = "Matricula";
constexpr char kCode[] = "Codigo";

constexpr CodeField kFields[] = {
    {"Viaturas", 0, kVehicles, kPlate},
    {"Viaturas", 1, "zor_PV_Marcas", kCode, CodeUse::kNeeded},
    {"Viaturas", 10, "zor_PV_Departamentos", kCode, CodeUse::kNeeded},
    {"Viaturas", 12, "zor_PV_Modelos", kCode, CodeUse::kNeeded},
    {"Viaturas", 13, "zor_PV_Categorias", kCode, CodeUse::kNeeded},
    {"Viaturas", 20, "zor_PV_Companhias", kCode, CodeUse::kPlain},
    {"Motoristas", 0, kDrivers, kCode},
    {"Gastos", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Gastos", 1, "zor_PV_Viagens", kCode, CodeUse::kOptional},
    {"Gastos", 2, kDrivers, kCode, CodeUse::kNeeded},
    {"Gastos", 4, "zor_PV_TiposGastos", kCode, CodeUse::kNeeded},
    {"Seguros", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Seguros", 1, "zor_PV_Companhias", kCode, CodeUse::kNeeded},
    {"Seguros", 2, "zor_PV_TiposSeguro", kCode, CodeUse::kNeeded},
    {"Revisoes", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Revisoes", 1, "zor_PV_TiposManut", kCode, CodeUse::kNeeded},
    {"Inspecoes", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Acessorios", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Acessorios", 1, "zor_PV_TiposAcessorios", kCode, CodeUse::kNeeded},
    {"Multas", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Multas", 1, kDrivers, kCode, CodeUse::kNeeded},
    {"Sinistros", 0, kVehicles, kPlate, CodeUse::kNeeded},
    {"Sinistros", 1, kDrivers, kCode, CodeUse::kNeeded},
    {"Categorias", 0, "zor_PV_Categorias", kCode},
    {"Companhias", 0, "zor_PV_Companhias", kCode},
    {"Departamentos", 0, "zor_PV_Departamentos", kCode},
    {"Marcas", 0, "zor_PV_Marcas", kCode},
    {"Modelos", 0, "zor_PV_Modelos", kCode},
    {"TiposAcessorios", 0, "zor_PV_TiposAcessorios", kCode},
    {"TiposSeguro", 0, "zor_PV_TiposSeguro", kCode},
    {"TiposGastos", 0, "zor_PV_TiposGastos", kCode},
    {"TiposManut", 0, "zor_PV_TiposManut", kCode},
    {"Viagens", 0, "zor_PV_Viagens", kCode},
};

}  // namespace

const CodeField* CodeFieldOf(const platform::Control* control) {
  const auto* field = dynamic_cast<const platform::zor_input*>(control);
  if (field == nullptr || field->Name() != "Campo") return nullptr;
  for (const CodeField& one : kFields)
    if (one.field == field->Index() && field->form().Name == one.form) return &one;
  return nullptr;
}

bool NamesVehicle(const CodeField& field) { return &field == &kFields[0]; }

bool HoldsPlate(const CodeField& field) { return std::string_view(field.table) == kVehicles; }

std::vector<KnownCode> CodesOf(const zorCrmParvel::DataAccessRef& bd, const CodeField& field) {
  const bool named = field.use != CodeUse::kOwn && !HoldsPlate(field);
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("",
                   zorCrmParvel::Statement{"SELECT ", zorCrmParvel::fixed(field.column),
                                           zorCrmParvel::fixed(named ? ", Nome" : ""), " FROM ",
                                           zorCrmParvel::fixed(field.table)},
                   rows);
  const auto text = [&rows](std::size_t at) {
    const platform::Variant value = rows->Fields(at).Value();
    return value.IsNull() ? std::string() : value.ToText();
  };
  std::vector<KnownCode> codes;
  for (; !rows->Eof(); rows->MoveNext()) codes.push_back({text(0), named ? text(1) : std::string()});
  return codes;
}

std::string CodeMeant(const std::vector<KnownCode>& codes, const std::string& text) {
  constexpr std::size_t kFewest = 3;  // letters by which a name is told
  const std::string wanted = lists::Folded(text);
  if (wanted.empty()) return text;
  const auto is_code = [&text](const KnownCode& known) { return known.code == text; };
  if (std::any_of(codes.begin(), codes.end(), is_code)) return text;
  using Written = bool (*)(const KnownCode& known, const std::string& wanted);
  constexpr Written kWays[] = {
      [](const KnownCode& known, const std::string& as) { return lists::Folded(known.code) == as; },
      [](const KnownCode& known, const std::string& as) { return lists::Folded(known.name) == as; },
      [](const KnownCode& known, const std::string& as) {
        return as.size() >= kFewest && lists::Folded(known.name).starts_with(as);
      }};
  for (const Written way : kWays) {
    const auto written = [&](const KnownCode& known) { return way(known, wanted); };
    const auto found = std::find_if(codes.begin(), codes.end(), written);
    if (found == codes.end()) continue;
    return std::find_if(found + 1, codes.end(), written) == codes.end() ? found->code : text;
  }
  return text;
}

/// Three pairs, each of letters or of digits, both kinds among them.
std::string PlateSpelled(const std::string& text) {
  constexpr std::size_t kSigns = 6;
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  const auto is_letter = [](char c) { return c >= 'a' && c <= 'z'; };
  const std::string signs = lists::Folded(text);
  if (signs.size() != kSigns) return text;
  std::string plate;
  std::size_t digits = 0;
  for (std::size_t i = 0; i < kSigns; ++i) {
    const char pair = signs[i - i % 2];
    if (!(is_digit(signs[i]) && is_digit(pair)) && !(is_letter(signs[i]) && is_letter(pair))) return text;
    if (is_digit(signs[i])) ++digits;
    if (i > 0 && i % 2 == 0) plate += '-';
    plate += is_letter(signs[i]) ? static_cast<char>(signs[i] - 'a' + 'A') : signs[i];
  }
  return digits == 0 || digits == kSigns ? text : plate;
}

std::string CodeMade(const std::vector<KnownCode>& before, const std::vector<KnownCode>& now) {
  std::unordered_set<std::string> known;
  for (const KnownCode& one : before) known.insert(one.code);
  std::string made;
  for (const KnownCode& one : now) {
    if (known.count(one.code) != 0) continue;
    if (!made.empty()) return {};
    made = one.code;
  }
  return made;
}

std::string AdviceOn(const CodeField& field, const std::string& text) {
  if (field.use == CodeUse::kOwn) return {};
  std::string advice = platform::Trim(text).empty() ? "Este campo não pode ficar vazio: "
                                                    : "«" + platform::Trim(text) + "» ainda não existe: ";
  advice += HoldsPlate(field) ? "Alt+↓ mostra as viaturas" : "F3 mostra o que há";
  return advice + (field.use == CodeUse::kPlain ? "." : ", F4 abre a ficha para criar.");
}

}  // namespace entry

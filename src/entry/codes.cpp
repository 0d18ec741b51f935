#include "entry/codes.h"

#include <algorithm>
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
    {"Viaturas", 1, "zor_PV_Marcas", kCode},
    {"Viaturas", 10, "zor_PV_Departamentos", kCode},
    {"Viaturas", 12, "zor_PV_Modelos", kCode},
    {"Viaturas", 13, "zor_PV_Categorias", kCode},
    {"Viaturas", 20, "zor_PV_Companhias", kCode},
    {"Motoristas", 0, kDrivers, kCode},
    {"Gastos", 0, kVehicles, kPlate},
    {"Gastos", 1, "zor_PV_Viagens", kCode},
    {"Gastos", 2, kDrivers, kCode},
    {"Gastos", 4, "zor_PV_TiposGastos", kCode},
    {"Seguros", 0, kVehicles, kPlate},
    {"Seguros", 1, "zor_PV_Companhias", kCode},
    {"Seguros", 2, "zor_PV_TiposSeguro", kCode},
    {"Revisoes", 0, kVehicles, kPlate},
    {"Revisoes", 1, "zor_PV_TiposManut", kCode},
    {"Inspecoes", 0, kVehicles, kPlate},
    {"Acessorios", 0, kVehicles, kPlate},
    {"Acessorios", 1, "zor_PV_TiposAcessorios", kCode},
    {"Multas", 0, kVehicles, kPlate},
    {"Multas", 1, kDrivers, kCode},
    {"Sinistros", 0, kVehicles, kPlate},
    {"Sinistros", 1, kDrivers, kCode},
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

std::vector<std::string> CodesOf(const zorCrmParvel::DataAccessRef& bd, const CodeField& field) {
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirLeitura("",
                   zorCrmParvel::Statement{"SELECT ", zorCrmParvel::fixed(field.column), " FROM ",
                                           zorCrmParvel::fixed(field.table)},
                   rows);
  std::vector<std::string> codes;
  for (; !rows->Eof(); rows->MoveNext()) codes.push_back(rows->Fields(std::size_t{0}).Value().ToText());
  return codes;
}

std::string CodeMeant(const std::vector<std::string>& codes, const std::string& text) {
  const std::string wanted = lists::Folded(text);
  const std::string* meant = nullptr;
  for (const std::string& code : codes) {
    if (code == text) return text;
    if (wanted.empty() || lists::Folded(code) != wanted) continue;
    if (meant != nullptr) return text;
    meant = &code;
  }
  return meant != nullptr ? *meant : text;
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

std::string CodeMade(const std::vector<std::string>& before, const std::vector<std::string>& now) {
  const std::unordered_set<std::string> known(before.begin(), before.end());
  std::string made;
  for (const std::string& code : now) {
    if (known.count(code) != 0) continue;
    if (!made.empty()) return {};
    made = code;
  }
  return made;
}

}  // namespace entry

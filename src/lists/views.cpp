#include "lists/views.h"

#include <nlohmann/json.hpp>

#include "host/literal.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace lists {
namespace {

using nlohmann::json;
using zorCrmParvel::DataAccessRef;
using zorCrmParvel::InsideLiteral;
using zorCrmParvel::Statement;

constexpr std::size_t kNameLimit = 60;

Statement ByKey(const char* begin, const ListView& view) {
  return Statement{begin,
                   " WHERE Lista = N'",
                   zorCrmParvel::value(view.list),
                   "' AND Dono = N'",
                   zorCrmParvel::value(InsideLiteral(view.owner)),
                   "' AND Nome = N'",
                   zorCrmParvel::value(InsideLiteral(view.name)),
                   "'"};
}

}  // namespace

std::string LookText(const ListLook& look) {
  json text = json::object();
  if (!look.columns.empty()) text["colunas"] = look.columns;
  if (!look.search.empty()) text["procura"] = look.search;
  if (!look.filters.empty()) text["filtros"] = look.filters;
  if (!look.sort.empty()) text["ordem"] = look.sort;
  if (look.descending) text["descendente"] = true;
  if (!look.group.empty()) text["grupo"] = look.group;
  return text.dump();
}

ListLook LookOf(const std::string& text) {
  ListLook look;
  const json read = json::parse(text, nullptr, false);
  if (!read.is_object()) return look;
  const auto word = [&read](const char* name) {
    const auto found = read.find(name);
    return found != read.end() && found->is_string() ? found->get<std::string>() : std::string();
  };
  look.search = word("procura");
  look.sort = word("ordem");
  look.group = word("grupo");
  look.descending = read.value("descendente", json(false)) == json(true);
  for (const json& column : read.value("colunas", json::array()))
    if (column.is_string()) look.columns.push_back(column.get<std::string>());
  const json filters = read.value("filtros", json::object());
  for (const auto& [column, filter] : filters.items())
    if (filter.is_string()) look.filters[column] = filter.get<std::string>();
  return look;
}

std::vector<ListView> ViewsOf(const DataAccessRef& bd, const std::string& person) {
  std::vector<ListView> views;
  zorCrmParvel::RecordsetRef rows;
  try {
    bd->AbrirLeitura(
        "",
        Statement{"SELECT Nome, Lista, Dono, Vista FROM parvel_vistas WHERE Dono = N'' OR Dono = N'",
                  zorCrmParvel::value(InsideLiteral(person)), "' ORDER BY Lista, Nome, Dono"},
        rows);
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return views;
  }
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto text = [&rows](std::size_t field) { return rows->Fields(field).Value().ToText(); };
    views.push_back({.name = text(0), .list = text(1), .owner = text(2), .look = LookOf(text(3))});
  }
  return views;
}

void KeepView(const DataAccessRef& bd, const ListView& view) {
  const std::string name = platform::Trim(view.name);
  if (name.empty() || platform::Length(name) > kNameLimit)
    throw platform::RuntimeError(platform::kInvalidCall, "Vistas",
                                 "Dê à vista um nome de 1 a 60 caracteres.");
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirEdicao(ByKey("SELECT * FROM parvel_vistas", {name, view.list, view.owner, {}}), rows);
  if (rows->Eof()) {
    rows->AddNew();
    rows->Fields("Nome").SetValue(name);
    rows->Fields("Lista").SetValue(view.list);
    rows->Fields("Dono").SetValue(view.owner);
  }
  rows->Fields("Vista").SetValue(LookText(view.look));
  rows->Update();
  rows->Close();
}

void RemoveView(const DataAccessRef& bd, const ListView& view) {
  bd->ExecutarSql("", ByKey("DELETE FROM parvel_vistas", view));
}

}  // namespace lists

#include "exchange/profile/profile.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace exchange {
namespace {

using nlohmann::ordered_json;

constexpr std::array kTests = {"igual", "diferente", "contem", "comeca", "vazio"};
constexpr std::array kOrders = {"dia", "mes", "ano"};

template <typename Names>
std::size_t PlaceIn(const Names& names, const std::string& name) {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end())
    throw std::runtime_error("O perfil tem um valor que não se conhece: «" + name + "».");
  return static_cast<std::size_t>(found - names.begin());
}

ordered_json JsonOf(const Piece& piece) {
  if (piece.section) return {{"seccao", true}};
  if (piece.position < 0) return {{"constante", piece.constant}};
  ordered_json json = {{"posicao", piece.position + 1}};
  if (!piece.header.empty()) json["cabecalho"] = piece.header;
  return json;
}

Piece PieceOf(const ordered_json& json) {
  Piece piece;
  piece.section = json.value("seccao", false);
  piece.constant = json.value("constante", "");
  piece.position = json.value("posicao", 0) - 1;
  piece.header = json.value("cabecalho", "");
  return piece;
}

template <typename Items, typename Make>
ordered_json ListOf(const Items& items, Make make) {
  ordered_json list = ordered_json::array();
  for (const auto& item : items) list.push_back(make(item));
  return list;
}

ordered_json JsonOf(const ColumnMapping& mapping) {
  ordered_json json = {{"coluna", mapping.target},
                       {"de", ListOf(mapping.pieces, [](const Piece& piece) { return JsonOf(piece); })}};
  if (mapping.joint != " ") json["junta"] = mapping.joint;
  if (mapping.asAbove) json["comoAcima"] = true;
  if (mapping.turned) json["sinalTrocado"] = true;
  if (mapping.impliedDecimals > 0) json["decimaisImplicitas"] = mapping.impliedDecimals;
  return json;
}

ColumnMapping MappingOf(const ordered_json& json) {
  ColumnMapping mapping;
  mapping.target = json.at("coluna").get<std::string>();
  for (const auto& piece : json.at("de")) mapping.pieces.push_back(PieceOf(piece));
  mapping.joint = json.value("junta", " ");
  mapping.asAbove = json.value("comoAcima", false);
  mapping.turned = json.value("sinalTrocado", false);
  mapping.impliedDecimals = std::clamp(json.value("decimaisImplicitas", 0), 0, 4);
  return mapping;
}

ordered_json JsonOf(const AsideRule& rule) {
  return {{"coluna", JsonOf(rule.column)},
          {"quando", kTests[static_cast<std::size_t>(rule.test)]},
          {"valor", rule.value}};
}

AsideRule RuleOf(const ordered_json& json) {
  return {.column = PieceOf(json.at("coluna")),
          .test = static_cast<AsideRule::Test>(PlaceIn(kTests, json.at("quando").get<std::string>())),
          .value = json.value("valor", "")};
}

std::optional<Piece> OptionalPiece(const ordered_json& json, const char* name) {
  if (!json.contains(name)) return std::nullopt;
  return PieceOf(json.at(name));
}

Profile Read(const ordered_json& json) {
  Profile profile;
  profile.name = json.at("nome").get<std::string>();
  profile.kind = json.at("tipo").get<std::string>();
  profile.sheet = json.value("folha", "");
  profile.encoding = json.value("codificacao", "");
  profile.separator = json.value("separador", "");
  profile.decimal = json.value("decimal", "");
  if (json.contains("datas"))
    profile.dateOrder = static_cast<DateOrder>(PlaceIn(kOrders, json.at("datas").get<std::string>()));
  profile.calendar1904 = json.value("calendario1904", false);
  profile.headerRow = json.value("linhasAntes", -1);
  profile.headerRows = std::clamp(json.value("linhasDeCabecalho", 1), 0, 10);
  profile.header = json.value("cabecalho", std::vector<std::string>());
  for (const auto& rule : json.value("porDeParte", ordered_json::array()))
    profile.aside.push_back(RuleOf(rule));
  profile.recordType = OptionalPiece(json, "tipoDeRegisto");
  profile.recordTypes = json.value("tiposDeRegisto", std::vector<std::string>());
  profile.document = OptionalPiece(json, "documento");
  profile.transaction = OptionalPiece(json, "transaccao");
  for (const auto& mapping : json.at("colunas")) profile.columns.push_back(MappingOf(mapping));
  profile.learned = json.value("aprendido", decltype(profile.learned)());
  profile.proposeKm = json.value("proporKm", false);
  profile.creditNotes = json.value("aceitarCreditos", false);
  return profile;
}

}  // namespace

const ColumnMapping* Profile::Find(const std::string& target) const {
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const ColumnMapping& m) { return m.target == target; });
  return found == columns.end() ? nullptr : &*found;
}

ColumnMapping& Profile::At(const std::string& target) {
  for (ColumnMapping& mapping : columns)
    if (mapping.target == target) return mapping;
  columns.push_back({.target = target, .pieces = {}});
  return columns.back();
}

std::string ToJson(const Profile& profile) {
  ordered_json json = {{"nome", profile.name}, {"tipo", profile.kind}};
  const auto text = [&](const char* name, const std::string& value) {
    if (!value.empty()) json[name] = value;
  };
  const auto flag = [&](const char* name, bool value) {
    if (value) json[name] = true;
  };
  text("folha", profile.sheet);
  text("codificacao", profile.encoding);
  text("separador", profile.separator);
  text("decimal", profile.decimal);
  if (profile.dateOrder) json["datas"] = kOrders[static_cast<std::size_t>(*profile.dateOrder)];
  flag("calendario1904", profile.calendar1904);
  if (profile.headerRow >= 0) json["linhasAntes"] = profile.headerRow;
  json["linhasDeCabecalho"] = profile.headerRows;
  json["cabecalho"] = profile.header;
  if (!profile.aside.empty())
    json["porDeParte"] = ListOf(profile.aside, [](const AsideRule& rule) { return JsonOf(rule); });
  if (profile.recordType) json["tipoDeRegisto"] = JsonOf(*profile.recordType);
  if (!profile.recordTypes.empty()) json["tiposDeRegisto"] = profile.recordTypes;
  if (profile.document) json["documento"] = JsonOf(*profile.document);
  if (profile.transaction) json["transaccao"] = JsonOf(*profile.transaction);
  json["colunas"] = ListOf(profile.columns, [](const ColumnMapping& mapping) { return JsonOf(mapping); });
  if (!profile.learned.empty()) json["aprendido"] = profile.learned;
  flag("proporKm", profile.proposeKm);
  flag("aceitarCreditos", profile.creditNotes);
  return json.dump(2);
}

Profile ProfileFromJson(const std::string& json) {
  try {
    return Read(ordered_json::parse(json));
  } catch (const nlohmann::json::exception&) {
    throw std::runtime_error(
        "O texto não é um perfil de importação, ou está incompleto. Exporte um perfil e veja como se "
        "escreve.");
  }
}

}  // namespace exchange

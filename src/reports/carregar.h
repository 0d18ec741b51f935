#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "host/data_access.h"
#include "reports/frota.h"
#include "reports/rules/excepcoes.h"

namespace reports {

/// Which rows of a kind of event are read.
struct Leitura {
  bool le = false;
  Dia de = kPrimeiroDia;
  Dia ate = kUltimoDia;
  bool soComKm = false;
  bool semDatas = true;  // with those that have no date

  static constexpr Dia kPrimeiroDia = -53688;  // 01-01-1753
  static constexpr Dia kUltimoDia = 2958465;   // 31-12-9999
};

/// What a report needs of the database.
struct Necessidade {
  std::array<Leitura, kEspecies> especies;
  bool motoristas = false;
  bool precos = false;
  bool custos = true;
  bool km = true;
  bool quantidades = true;
  bool tipos = true;
  bool notas = false;
  /// Of each vehicle's fills before this day the ones that matter go back to the last of their type with
  /// kilometres. The expenses are then read from `especies` on, and further back where that is not there.
  std::optional<Dia> basesAntesDe;
  std::function<bool()> cancelar;  // as `Pedido::cancelar`

  Leitura& De(Especie especie) { return especies[static_cast<std::size_t>(especie)]; }
};

/// Reads the fleet and the events wanted, in order, by a number of statements that does not depend on the
/// fleet. What the hosts' own tables hold stays empty where a database lacks them.
Frota Carregar(const zorCrmParvel::DataAccessRef& bd, const Necessidade& necessidade);

Ajustes CarregarAjustes(const zorCrmParvel::DataAccessRef& bd);

/// Findings that were looked at: rule, table and id of the event, with the note.
using Vistos = std::map<std::tuple<std::string, std::string, std::int32_t>, std::string>;
Vistos CarregarVistos(const zorCrmParvel::DataAccessRef& bd);

}  // namespace reports

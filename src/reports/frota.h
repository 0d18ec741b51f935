#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "reports/periodo.h"
#include "reports/soma.h"

/// What reports compute from: the fleet and its events as plain records, whoever read them.
namespace reports {

enum class Especie : std::uint8_t { kGasto, kRevisao, kInspecao, kAcessorio, kMulta, kSinistro, kApolice };
inline constexpr std::size_t kEspecies = 7;

struct TextosDaEspecie {
  const char* chave;   // "revisoes"
  const char* nome;    // "Revisões"
  const char* tabela;  // "zor_PV_Revisoes"
  const char* ficha;   // its name in the catalogue of fichas
};
const TextosDaEspecie& TextosDe(Especie especie);

/// One event of a vehicle. What a kind of event lacks is 0.
struct Evento {
  Date data;      // the zero date for none; of a policy the day on which it begins
  Date validade;  // of a policy
  Currency qtd, km, valorUn, custo;
  std::int32_t id = 0;
  std::int32_t viatura = 0;     // index in `Frota::viaturas`
  std::int32_t tipo = -1;       // of an expense: index in `Frota::tipos`
  std::int32_t motorista = -1;  // index in `Frota::motoristas`
  std::int32_t nota = -1;       // index in `Frota::notas`
  Especie especie = Especie::kGasto;
};

struct Leasing {
  Currency limite;  // kilometres of the whole contract
  Date inicio;      // from when they count
  Currency porKm;   // euros for each km beyond
};

struct Viatura {
  std::string matricula;
  std::string marca, modelo, categoria, departamento;  // codes
  std::string responsavel;
  int combustivel = 0;
  Currency kmInicial;
  Date dataKmInicial, dataMatricula, valContrato;
  Currency valorInicial, valorResidual, mensalidade;
  bool inactiva = false;
  bool existe = true;  // false for a plate that only events name
  // The hosts' own.
  Valor deposito;
  Date foraDeServico;
  std::optional<Leasing> leasing;
};

struct Motorista {
  std::string codigo;
  std::string nome;
  Date validadeDaCarta;
  std::map<int, Date> classes;  // end of each licence class, by its number
  bool existe = true;
};

/// A type of expense. `unidade` is that of its quantities ("L", "kWh").
struct Tipo {
  std::string codigo;
  std::string nome;
  bool combustivel = false;
  bool existe = true;
  std::string unidade;
  std::map<Dia, Currency> co2;  // kg a unit, from a day on
};

/// A code and its name, as a report shows them.
using Nomes = std::map<std::string, std::string>;

struct Frota {
  std::vector<Viatura> viaturas;
  std::vector<Motorista> motoristas;
  std::vector<Tipo> tipos;
  std::vector<Evento> eventos;
  std::deque<std::string> notas;
  Nomes departamentos, categorias, marcas;
  std::map<std::string, int> classeDaCategoria;
  std::map<int, std::vector<std::int32_t>> tiposDoCombustivel;  // which types a vehicle of a fuel takes

  /// Puts the events in order: vehicle, then `Data`, then id. Before any report.
  void Ordenar();
  /// The events of a vehicle, in order.
  std::pair<const Evento*, const Evento*> De(std::size_t viatura) const;

  bool EAbastecimento(const Evento& evento) const {
    return evento.tipo >= 0 && tipos[static_cast<std::size_t>(evento.tipo)].combustivel;
  }
  const Tipo& TipoDe(const Evento& evento) const { return tipos[static_cast<std::size_t>(evento.tipo)]; }
  const Viatura& ViaturaDe(const Evento& evento) const {
    return viaturas[static_cast<std::size_t>(evento.viatura)];
  }

 private:
  std::vector<std::size_t> inicio_;  // of each vehicle's events
};

}  // namespace reports

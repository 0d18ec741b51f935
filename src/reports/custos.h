#pragma once

#include <functional>
#include <string>
#include <vector>

#include "reports/pivot.h"

namespace reports {

/// Key of the rents among the kinds of cost.
inline constexpr const char* kRendas = "rendas";

/// The kind of an event's cost: "gastos:GASOLEO", "revisoes", …
std::string ChaveDoTipo(const Frota& frota, const Evento& evento);
/// What a kind is called: "Gasóleo", "Revisões", "Rendas".
std::string NomeDoTipo(const Frota& frota, const std::string& chave);

/// A cost of the fleet: of one day, or spread over several.
struct Parcela {
  const Evento* evento = nullptr;  // none for a rent
  std::size_t viatura = 0;
  Date data;
  Currency valor;
  bool repartida = false;
  Dia ate = 0;  // of one that is spread from `data` on
};

/// Hands out every cost that a request lets through, whenever it was; rents only of the days of `alcance`.
void CadaParcela(const Frota& frota, const Pedido& pedido, const Periodo& alcance,
                 const std::function<void(const Parcela&)>& recebe);

struct Custos {
  std::vector<Intervalo> colunas;
  std::vector<LinhaDoPivot> linhas;
  LinhaDoPivot total;
};

/// What the fleet cost, by row and column. The cells add up exactly to the events.
Custos CustosDaFrota(const Frota& frota, const Pedido& pedido);

}  // namespace reports

#include "reports/emissoes.h"

#include <algorithm>

namespace reports {
namespace {

/// The number of an event's row, so that its key is made once.
std::size_t NumeroDe(const Evento& evento, Por por) {
  if (por == Por::kTipo) return static_cast<std::size_t>(evento.tipo);
  return static_cast<std::size_t>(por == Por::kMotorista ? evento.motorista + 1 : evento.viatura);
}

std::string ChaveDe(const Frota& frota, const Evento& evento, Por por) {
  if (por == Por::kTipo) return frota.TipoDe(evento).codigo;
  if (por != Por::kMotorista) return GrupoDaViatura(frota.ViaturaDe(evento), por);
  return evento.motorista < 0 ? std::string()
                              : frota.motoristas[static_cast<std::size_t>(evento.motorista)].codigo;
}

}  // namespace

Valor FactorDe(const Tipo& tipo, Dia dia) {
  const auto depois = tipo.co2.upper_bound(dia);
  return depois == tipo.co2.begin() ? Valor() : Valor(std::prev(depois)->second);
}

Emissoes EmissoesDaFrota(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  Pivot pivot(pedido);
  Emissoes emissoes;
  constexpr std::size_t kDesconhecida = static_cast<std::size_t>(-1);
  std::vector<std::size_t> linhas(
      std::max({frota.viaturas.size(), frota.motoristas.size() + 1, frota.tipos.size()}), kDesconhecida);
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    const auto [inicio, fim] = frota.De(i);
    for (const Evento* evento = inicio; evento != fim; ++evento) {
      if (!frota.EAbastecimento(*evento) || !seleccao.Passa(*evento)) continue;
      const Dia dia = evento->data.days();
      const Valor factor = FactorDe(frota.TipoDe(*evento), dia);
      if (!factor) {
        if (pedido.periodo.Tem(evento->data)) emissoes.semFactor += evento->qtd;
        continue;
      }
      std::size_t& linha = linhas[NumeroDe(*evento, pedido.por)];
      if (linha == kDesconhecida) linha = pivot.Linha(ChaveDe(frota, *evento, pedido.por));
      pivot.Junta(linha, evento->data, evento->qtd * *factor);
    }
  }
  emissoes.colunas = pivot.colunas();
  emissoes.linhas = pivot.Linhas(frota, pedido.por);
  emissoes.total = pivot.Total();
  return emissoes;
}

}  // namespace reports

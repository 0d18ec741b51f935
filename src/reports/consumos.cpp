#include "reports/consumos.h"

#include <algorithm>
#include <map>
#include <utility>

#include "reports/consumo_da_viatura.h"

namespace reports {
namespace {

/// The figures that follow from the sums of a line or of a group.
LinhaDeConsumo Figuras(const std::string& chave, int tipo, const SomasDeConsumo& somas) {
  LinhaDeConsumo linha;
  linha.chave = chave;
  linha.tipo = tipo;
  linha.litros = somas.litros.valor();
  linha.custo = somas.custo.valor();
  linha.eurL = PorUnidade(linha.custo, linha.litros);
  linha.semData = somas.semData.valor();
  linha.contados = somas.contados;
  linha.litrosContados = somas.litrosContados.valor();
  linha.custoContado = somas.custoContado.valor();
  bool cabe = linha.litros && linha.custo && linha.litrosContados && linha.custoContado &&
              (linha.eurL || *linha.litros == 0);
  if (somas.temDistancia) {
    linha.distancia = somas.distancia.valor();
    linha.l100 = Por100(linha.litrosContados, linha.distancia);
    linha.margem = Por100(somas.maior, linha.distancia);
    linha.eurKm = PorUnidade(linha.custoContado, linha.distancia);
    cabe = cabe && linha.l100 && linha.margem && linha.eurKm;
  }
  if (!cabe) linha.motivo = "não cabe";
  return linha;
}

using PorChaveETipo = std::map<std::pair<std::string, int>, SomasDeConsumo>;

std::vector<LinhaDeConsumo> LinhasDe(const Frota& frota, const PorChaveETipo& somas) {
  std::vector<LinhaDeConsumo> linhas;
  for (const auto& [chave, soma] : somas) {
    linhas.push_back(Figuras(chave.first, chave.second, soma));
    if (!soma.temDistancia && linhas.back().motivo.empty()) linhas.back().motivo = "sem quilómetros";
  }
  std::stable_sort(linhas.begin(), linhas.end(), [&frota](const auto& a, const auto& b) {
    if (a.chave != b.chave) return AntesNaOrdem(a.chave, b.chave);
    return frota.tipos[static_cast<std::size_t>(a.tipo)].codigo <
           frota.tipos[static_cast<std::size_t>(b.tipo)].codigo;
  });
  return linhas;
}

}  // namespace

MapaDeConsumos Consumos(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  MapaDeConsumos mapa;
  PorChaveETipo grupos, totais;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    const Viatura& viatura = frota.viaturas[i];
    const auto doTipo = ConsumoDaViatura(frota, i, pedido.periodo);
    if (doTipo.empty() && viatura.existe) {
      mapa.linhas.push_back(Figuras(viatura.matricula, -1, {}));
      mapa.linhas.back().motivo = "sem abastecimentos";
    }
    for (const ConsumoDoTipo& consumo : doTipo) {
      LinhaDeConsumo linha = Figuras(viatura.matricula, consumo.tipo, consumo.somas);
      linha.kmBase = consumo.kmBase;
      linha.kmFim = consumo.kmFim;
      if (linha.motivo.empty()) linha.motivo = consumo.motivo;
      mapa.linhas.push_back(std::move(linha));
      const std::string& tipo = frota.tipos[static_cast<std::size_t>(consumo.tipo)].codigo;
      const std::string& chave = pedido.por == Por::kTipo ? tipo : GrupoDaViatura(viatura, pedido.por);
      totais[{"", consumo.tipo}].Junta(consumo.somas);
      if (pedido.por != Por::kViatura) grupos[{chave, consumo.tipo}].Junta(consumo.somas);
    }
  }
  std::stable_sort(mapa.linhas.begin(), mapa.linhas.end(),
                   [](const auto& a, const auto& b) { return AntesNaOrdem(a.chave, b.chave); });
  mapa.grupos = LinhasDe(frota, grupos);
  mapa.totais = LinhasDe(frota, totais);
  return mapa;
}

}  // namespace reports

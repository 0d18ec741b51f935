#include "reports/total.h"

#include <algorithm>
#include <map>

#include "reports/consumo_da_viatura.h"
#include "reports/custos.h"
#include "reports/quilometros.h"

namespace reports {
namespace {

constexpr int kAnosSemContrato = 8;

/// Straight line from the registration to the contract's end, without that over eight years.
Valor Compra(const Viatura& viatura, const Periodo& periodo) {
  Soma perda(viatura.valorInicial);
  perda -= viatura.valorResidual;
  if (SemData(viatura.dataMatricula) || perda.EZero() || !perda.valor()) return {};
  const bool comContrato =
      !SemData(viatura.valContrato) && viatura.valContrato.days() > viatura.dataMatricula.days();
  const Dia fim = comContrato ? viatura.valContrato.days()
                              : viatura.dataMatricula.AddMonths(12 * kAnosSemContrato).days() - 1;
  return Repartido{*perda.valor(), viatura.dataMatricula.days(), fim}.Em(periodo);
}

void JuntaConsumo(const Frota& frota, std::size_t viatura, const Periodo& periodo, LinhaDoTotal& linha) {
  Valor maisLonge;
  for (const ConsumoDoTipo& consumo : ConsumoDaViatura(frota, viatura, periodo)) {
    const Valor distancia = consumo.somas.distancia.valor();
    if (!consumo.somas.temDistancia || !distancia || (maisLonge && *distancia <= *maisLonge)) continue;
    maisLonge = distancia;
    linha.tipoDoConsumo = consumo.tipo;
    linha.l100 = Por100(consumo.somas.litrosContados.valor(), distancia);
  }
}

void Classifica(std::vector<LinhaDoTotal>& linhas) {
  std::map<std::string, std::vector<LinhaDoTotal*>> categorias;
  for (LinhaDoTotal& linha : linhas)
    if (linha.eurKm) categorias[linha.categoria].push_back(&linha);
  for (auto& [codigo, daCategoria] : categorias) {
    std::stable_sort(daCategoria.begin(), daCategoria.end(),
                     [](const auto* a, const auto* b) { return *a->eurKm < *b->eurKm; });
    for (std::size_t i = 0; i < daCategoria.size(); ++i) {
      const bool igual = i > 0 && *daCategoria[i]->eurKm == *daCategoria[i - 1]->eurKm;
      daCategoria[i]->lugar = igual ? *daCategoria[i - 1]->lugar : static_cast<int>(i) + 1;
    }
  }
}

/// Costs of one vehicle by kind.
struct CustosDaViatura {
  std::map<std::string, Soma> tipos;
  Soma semData;
};

std::vector<CustosDaViatura> CustosPorTipo(const Frota& frota, const Pedido& pedido) {
  std::vector<CustosDaViatura> custos(frota.viaturas.size());
  std::map<std::size_t, std::string> chaves;
  std::vector<std::map<std::size_t, Soma>> somas(frota.viaturas.size());
  CadaParcela(frota, pedido, pedido.periodo, [&](const Parcela& parcela) {
    const Evento* const evento = parcela.evento;
    if (SemData(parcela.data)) {
      custos[parcela.viatura].semData += parcela.valor;
      return;
    }
    if (!parcela.repartida && !pedido.periodo.Tem(parcela.data)) return;
    std::size_t numero = 0;
    if (evento != nullptr)
      numero = evento->especie == Especie::kGasto ? kEspecies + 1 + static_cast<std::size_t>(evento->tipo + 1)
                                                  : static_cast<std::size_t>(evento->especie);
    std::string& chave = chaves[numero];
    if (chave.empty()) chave = evento == nullptr ? kRendas : ChaveDoTipo(frota, *evento);
    somas[parcela.viatura][numero] +=
        parcela.repartida ? Repartido{parcela.valor, parcela.data.days(), parcela.ate}.Em(pedido.periodo)
                          : parcela.valor;
  });
  for (std::size_t i = 0; i < somas.size(); ++i)
    for (const auto& [numero, soma] : somas[i])
      if (!soma.EZero()) custos[i].tipos[chaves[numero]] += soma;
  return custos;
}

}  // namespace

CustoTotal CustoTotalDaFrota(const Frota& frota, const Pedido& pedido) {
  const Seleccao seleccao(frota, pedido);
  const auto custos = CustosPorTipo(frota, pedido);
  CustoTotal total;
  std::map<std::string, std::size_t> lugarDoTipo;
  for (const CustosDaViatura& custo : custos)
    for (const auto& [tipo, soma] : custo.tipos) lugarDoTipo.try_emplace(tipo, 0);
  for (auto& [tipo, lugar] : lugarDoTipo) {
    lugar = total.tipos.size();
    total.tipos.push_back(tipo);
  }
  const Currency meses = Currency::FromDouble(pedido.periodo.Meses());
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    if (!seleccao.Passa(i)) continue;
    if (i % 64 == 0) VerSeCancela(pedido);
    const Viatura& viatura = frota.viaturas[i];
    LinhaDoTotal linha;
    linha.matricula = viatura.matricula;
    linha.categoria = viatura.categoria;
    linha.semData = custos[i].semData;
    linha.tipos.resize(total.tipos.size());
    for (const auto& [tipo, soma] : custos[i].tipos) {
      linha.tipos[lugarDoTipo[tipo]] += soma;
      linha.custo += soma;
    }
    const Quilometragem km(frota, i);
    if (!km.vazia()) linha.distancia = km.Em(pedido.periodo);
    linha.eurKm = PorUnidade(linha.custo.valor(), linha.distancia);
    linha.eurMes = PorUnidade(linha.custo.valor(), meses);
    JuntaConsumo(frota, i, pedido.periodo, linha);
    linha.compra = Compra(viatura, pedido.periodo);
    if (viatura.existe || !linha.custo.EZero() || !linha.semData.EZero())
      total.linhas.push_back(std::move(linha));
  }
  Classifica(total.linhas);
  std::stable_sort(total.linhas.begin(), total.linhas.end(),
                   [](const auto& a, const auto& b) { return AntesNaOrdem(a.matricula, b.matricula); });
  return total;
}

}  // namespace reports

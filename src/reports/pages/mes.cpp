#include "reports/pages/mes.h"

#include <algorithm>
#include <array>

#include "platform/format.h"
#include "reports/consumo_da_viatura.h"
#include "reports/custos.h"
#include "reports/quilometros.h"
#include "reports/relatorio.h"

namespace reports {
namespace {

constexpr std::array kMeses = {"Janeiro", "Fevereiro", "Março",    "Abril",   "Maio",     "Junho",
                               "Julho",   "Agosto",    "Setembro", "Outubro", "Novembro", "Dezembro"};

/// The figures of one month. Quantities of the type that the fleet uses most: litres and kWh don't add up.
struct Mes {
  Valor custo, litros, l100;
};

std::string Texto(const Valor& valor, const char* mascara, const std::string& unidade) {
  if (!valor) return "—";
  const std::string numero = platform::FormatNumber(*valor, mascara);
  return unidade.empty() ? numero : numero + " " + unidade;
}

std::string Comparado(const char* quando, const std::string& texto, const Valor& agora, const Valor& antes) {
  std::string comparado = std::string(quando) + " " + texto;
  if (!agora || !antes || *antes <= 0) return comparado;
  const Valor percentagem = Por100(Valor(*agora - *antes), antes);
  if (!percentagem) return comparado;
  const std::string numero = platform::FormatNumber(*percentagem, "###,##0");
  return comparado + " (" + (*percentagem > 0 ? "+" : "") + numero + " %)";
}

/// The type of fill with the most events.
std::int32_t TipoMaisUsado(const Frota& frota) {
  std::vector<long> quantos(frota.tipos.size());
  for (const Evento& evento : frota.eventos)
    if (frota.EAbastecimento(evento)) ++quantos[static_cast<std::size_t>(evento.tipo)];
  const auto mais = std::max_element(quantos.begin(), quantos.end());
  return mais == quantos.end() || *mais == 0 ? -1 : static_cast<std::int32_t>(mais - quantos.begin());
}

Mes MesDe(const Frota& frota, const Periodo& periodo, std::int32_t tipo) {
  Pedido pedido;
  pedido.periodo = periodo;
  Mes mes;
  mes.custo = CustosDaFrota(frota, pedido).total.total.valor();
  SomasDeConsumo somas;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i)
    for (const ConsumoDoTipo& consumo : ConsumoDaViatura(frota, i, periodo))
      if (consumo.tipo == tipo) somas.Junta(consumo.somas);
  mes.litros = somas.litros.valor();
  if (somas.temDistancia) mes.l100 = Por100(somas.litrosContados.valor(), somas.distancia.valor());
  return mes;
}

/// Of contracts that still run.
std::vector<ResumoDoMes::Contrato> ContratosAcima(const zorCrmParvel::DataAccessRef& bd, const Pedido& pedido,
                                                  Date hoje) {
  Frota frota = Carregar(bd, NecessidadeDe(TipoDeRelatorio::kQuilometros, pedido));
  for (Viatura& viatura : frota.viaturas)
    if (viatura.valContrato < hoje) viatura.leasing.reset();
  std::vector<Projeccao> projeccoes = ProjeccoesDeLeasing(frota, pedido);
  std::stable_sort(projeccoes.begin(), projeccoes.end(),
                   [](const auto& a, const auto& b) { return a.custo.value_or(0) > b.custo.value_or(0); });
  std::vector<ResumoDoMes::Contrato> contratos;
  for (const Projeccao& p : projeccoes)
    if (p.acima10)
      contratos.push_back({p.matricula, Texto(p.previstos, "###,##0", "km") + " previstos para " +
                                            Texto(p.limite, "###,##0", "km") + "; " +
                                            Texto(p.custo, "###,##0.00", "€") + " a mais"});
  return contratos;
}

bool HaLeasing(const Frota& frota) {
  return std::any_of(frota.viaturas.begin(), frota.viaturas.end(),
                     [](const Viatura& v) { return v.leasing.has_value(); });
}

}  // namespace

ResumoDoMes ResumoDe(const zorCrmParvel::DataAccessRef& bd, Date hoje) {
  // Months are held against each other as far as this one has come.
  const auto mesDe = [](Date dia) {
    return Periodo{Date::FromParts(dia.year(), dia.month(), 1).days(), dia.days()};
  };
  Pedido pedido;
  pedido.periodo = {mesDe(hoje.AddMonths(-12)).de, mesDe(hoje).ate};
  // Costs need all events of the thirteen months, consumption the fills back to their bases.
  Necessidade necessidade = NecessidadeDe(TipoDeRelatorio::kConsumos, pedido);
  const Leitura gastos = necessidade.De(Especie::kGasto);
  for (Leitura& leitura : necessidade.especies) leitura = {true, pedido.periodo.de, pedido.periodo.ate};
  necessidade.De(Especie::kGasto) = gastos;
  necessidade.De(Especie::kApolice) = {true};
  const Frota frota = Carregar(bd, necessidade);
  const std::int32_t tipo = TipoMaisUsado(frota);
  const Mes agora = MesDe(frota, mesDe(hoje), tipo);
  const Mes antes = MesDe(frota, mesDe(hoje.AddMonths(-1)), tipo);
  const Mes haUmAno = MesDe(frota, mesDe(hoje.AddMonths(-12)), tipo);
  ResumoDoMes resumo;
  resumo.mes = std::string(kMeses[static_cast<std::size_t>(hoje.month() - 1)]) + " de " +
               std::to_string(hoje.year()) + ", até ao dia " + std::to_string(hoje.day());
  const Tipo* const doTipo = tipo < 0 ? nullptr : &frota.tipos[static_cast<std::size_t>(tipo)];
  const std::string unidade = doTipo == nullptr ? "L" : doTipo->unidade;
  const std::string nome = doTipo == nullptr      ? "Combustível"
                           : doTipo->nome.empty() ? doTipo->codigo
                                                  : doTipo->nome;
  const auto junta = [&](const std::string& titulo, Valor Mes::*figura, const char* mascara,
                         const std::string& depois) {
    resumo.figuras.push_back(
        {titulo, Texto(agora.*figura, mascara, depois),
         Comparado("mês anterior", Texto(antes.*figura, mascara, depois), agora.*figura, antes.*figura),
         Comparado("há um ano", Texto(haUmAno.*figura, mascara, depois), agora.*figura, haUmAno.*figura)});
  };
  junta("Custo", &Mes::custo, "###,##0.00", "€");
  junta(nome, &Mes::litros, "###,##0", unidade);
  junta("Consumo", &Mes::l100, "###,##0.00", unidade + "/100 km");
  if (HaLeasing(frota)) resumo.leasing = ContratosAcima(bd, pedido, hoje);
  return resumo;
}

}  // namespace reports

#include "reports/pages/consumo_por_mes.h"

#include <algorithm>

#include "reports/consumo_da_viatura.h"

namespace reports {
namespace {

constexpr double kMaisMeses = 24;
constexpr double kMaisTrimestres = 96;  // in months

Coluna PassoDe(const Periodo& periodo) {
  const double meses = periodo.Meses();
  return meses <= kMaisMeses ? Coluna::kMes : meses <= kMaisTrimestres ? Coluna::kTrimestre : Coluna::kAno;
}

}  // namespace

ConsumoPorMes::ConsumoPorMes(const Frota& frota, const Periodo& periodo)
    : frota_(frota), colunas_(ColunasDe(periodo, PassoDe(periodo))) {}

std::string ConsumoPorMes::TipoMaisUsado(const std::vector<std::size_t>& viaturas) const {
  std::vector<long> quantos(frota_.tipos.size());
  for (const std::size_t viatura : viaturas) {
    const auto [inicio, fim] = frota_.De(viatura);
    for (const Evento* evento = inicio; evento != fim; ++evento)
      if (frota_.EAbastecimento(*evento)) ++quantos[static_cast<std::size_t>(evento->tipo)];
  }
  const auto mais = std::max_element(quantos.begin(), quantos.end());
  return mais == quantos.end() || *mais == 0
             ? std::string()
             : frota_.tipos[static_cast<std::size_t>(mais - quantos.begin())].codigo;
}

Grafico ConsumoPorMes::Vazio(const std::string& tipo) const {
  Grafico grafico{"Consumo de " + tipo, "", Forma::kLinhas, {}, {}};
  for (const Tipo& t : frota_.tipos)
    if (t.codigo == tipo) grafico.unidade = t.unidade + "/100 km";
  for (const Intervalo& coluna : colunas_) grafico.lugares.push_back(coluna.nome);
  return grafico;
}

Serie ConsumoPorMes::De(const std::string& nome, const std::vector<std::size_t>& viaturas,
                        const std::string& tipo) const {
  Serie serie{nome, {}};
  for (const Intervalo& coluna : colunas_) {
    SomasDeConsumo somas;
    for (const std::size_t viatura : viaturas)
      for (const ConsumoDoTipo& consumo : ConsumoDaViatura(frota_, viatura, coluna.dias))
        if (consumo.tipo >= 0 && frota_.tipos[static_cast<std::size_t>(consumo.tipo)].codigo == tipo)
          somas.Junta(consumo.somas);
    const Valor l100 =
        somas.temDistancia ? Por100(somas.litrosContados.valor(), somas.distancia.valor()) : Valor();
    serie.valores.push_back(l100 ? std::optional<double>(l100->ToDouble()) : std::nullopt);
  }
  return serie;
}

}  // namespace reports

#include "reports/pages/evolucao.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "reports/custos.h"
#include "reports/pages/consumo_por_mes.h"
#include "reports/pages/resultado.h"
#include "reports/quilometros.h"

namespace reports {
namespace {

/// The vehicles of a category by their place in the fleet, and the one that is looked at.
struct Grupo {
  std::size_t viatura = 0;
  std::vector<std::size_t> categoria;  // empty when the vehicle is alone in it
};

Grupo GrupoDe(const Frota& frota, const std::string& matricula) {
  const std::string procurada = Dobrado(matricula);
  const auto achada = std::find_if(frota.viaturas.begin(), frota.viaturas.end(),
                                   [&](const Viatura& v) { return Dobrado(v.matricula) == procurada; });
  if (achada == frota.viaturas.end())
    throw platform::RuntimeError(platform::kInvalidCall, "Evolução",
                                 "A viatura " + matricula + " não existe, nem tem eventos.");
  Grupo grupo;
  grupo.viatura = static_cast<std::size_t>(achada - frota.viaturas.begin());
  if (achada->categoria.empty()) return grupo;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i)
    if (frota.viaturas[i].categoria == achada->categoria) grupo.categoria.push_back(i);
  if (grupo.categoria.size() == 1) grupo.categoria.clear();
  return grupo;
}

/// Kilometres of vehicles together in each column; absent where none of them has any.
std::vector<Valor> Km(const Frota& frota, const std::vector<std::size_t>& viaturas,
                      const std::vector<Intervalo>& colunas) {
  std::vector<Soma> somas(colunas.size());
  std::vector<char> tem(colunas.size());
  for (const std::size_t viatura : viaturas) {
    const Quilometragem km(frota, viatura);
    if (km.vazia()) continue;
    for (std::size_t i = 0; i < colunas.size(); ++i) {
      const Valor valor = km.Em(colunas[i].dias);
      if (!valor || km.DiasEm(colunas[i].dias) == 0) continue;
      somas[i] += *valor;
      tem[i] = 1;
    }
  }
  std::vector<Valor> valores;
  for (std::size_t i = 0; i < somas.size(); ++i) valores.push_back(tem[i] != 0 ? somas[i].valor() : Valor());
  return valores;
}

Serie ComoSerie(const std::string& nome, const std::vector<Valor>& valores, double divisor = 1) {
  Serie serie{nome, {}};
  for (const Valor& valor : valores)
    serie.valores.push_back(valor ? std::optional<double>(valor->ToDouble() / divisor) : std::nullopt);
  return serie;
}

/// Cost a kilometre of what a request lets through.
Serie CustoPorKm(const Frota& frota, const std::string& nome, const Pedido& pedido,
                 const std::vector<Valor>& km) {
  const Custos custos = CustosDaFrota(frota, pedido);
  std::vector<Valor> valores;
  for (std::size_t i = 0; i < km.size(); ++i)
    valores.push_back(PorUnidade(custos.total.celulas[i].valor(), km[i]));
  return ComoSerie(nome, valores);
}

std::string TituloDe(const Frota& frota, const Viatura& viatura) {
  std::string titulo = viatura.matricula;
  const auto marca = frota.marcas.find(viatura.marca);
  for (const std::string& parte : {marca == frota.marcas.end() ? viatura.marca : marca->second,
                                   viatura.modelo, viatura.categoria, viatura.departamento})
    if (!parte.empty()) titulo += " · " + parte;
  return titulo;
}

}  // namespace

Evolucao EvolucaoDa(const zorCrmParvel::DataAccessRef& bd, const std::string& matricula,
                    const Periodo& periodo) {
  Pedido pedido;
  pedido.periodo = periodo;
  Resultado resultado{TipoDeRelatorio::kCustos, pedido, nullptr, {}};
  const auto frota =
      std::make_shared<const Frota>(Carregar(bd, NecessidadeDe(TipoDeRelatorio::kTotal, pedido)));
  const Grupo grupo = GrupoDe(*frota, matricula);
  const Viatura& viatura = frota->viaturas[grupo.viatura];
  const std::string categoria = "Categoria " + viatura.categoria;
  const ConsumoPorMes consumo(*frota, periodo);
  const std::string tipo = consumo.TipoMaisUsado({grupo.viatura});
  const std::vector<Intervalo> meses = ColunasDe(periodo, pedido.coluna);

  Grafico doConsumo = consumo.Vazio(tipo);
  doConsumo.series.push_back(consumo.De(viatura.matricula, {grupo.viatura}, tipo));
  Grafico km{"Quilómetros por mês", "km", Forma::kBarras, {}, {}};
  Grafico porKm{"Custo por km", "€/km", Forma::kLinhas, {}, {}};
  for (const Intervalo& mes : meses) {
    km.lugares.push_back(mes.nome);
    porKm.lugares.push_back(mes.nome);
  }
  const auto kmDaViatura = Km(*frota, {grupo.viatura}, meses);
  km.series.push_back(ComoSerie(viatura.matricula, kmDaViatura));
  pedido.viaturas = {viatura.matricula};
  porKm.series.push_back(CustoPorKm(*frota, viatura.matricula, pedido, kmDaViatura));
  resultado.pedido = pedido;
  resultado.frota = frota;
  resultado.relatorio.tabelas.emplace_back();
  Grafico custos = GraficoDa(resultado, 0, nullptr);
  if (!grupo.categoria.empty()) {
    const auto kmDaCategoria = Km(*frota, grupo.categoria, meses);
    doConsumo.series.push_back(consumo.De(categoria, grupo.categoria, tipo));
    km.series.push_back(
        ComoSerie("Média da categoria", kmDaCategoria, static_cast<double>(grupo.categoria.size())));
    pedido.viaturas.clear();
    pedido.categorias = {viatura.categoria};
    porKm.series.push_back(CustoPorKm(*frota, categoria, pedido, kmDaCategoria));
  }
  return {TituloDe(*frota, viatura), {doConsumo, std::move(custos), km, porKm}};
}

}  // namespace reports

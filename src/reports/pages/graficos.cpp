#include <algorithm>
#include <map>

#include "reports/consumo_da_viatura.h"
#include "reports/custos.h"
#include "reports/pages/consumo_por_mes.h"
#include "reports/pages/resultado.h"

// The chart of each report.
namespace reports {
namespace {

constexpr std::size_t kMaisTipos = 6;  // kinds of cost that are told apart

std::optional<double> Numero(const Celula& celula) {
  if (const auto* valor = std::get_if<Currency>(&celula)) return valor->ToDouble();
  if (const auto* inteiro = std::get_if<std::int64_t>(&celula)) return static_cast<double>(*inteiro);
  return {};
}

/// The cells of a row that stand along the axis.
Serie SerieDa(const Tabela& tabela, const LinhaDaTabela& linha, std::string nome) {
  Serie serie{std::move(nome), {}};
  for (std::size_t i = 0; i < tabela.colunas.size(); ++i)
    if (tabela.colunas[i].celula) serie.valores.push_back(Numero(linha.celulas[i]));
  return serie;
}

std::string NomeDa(const LinhaDaTabela& linha) {
  const auto* chave = std::get_if<std::string>(&linha.celulas.front());
  return chave == nullptr || chave->empty() ? "(sem nome)" : *chave;
}

const Viatura* ViaturaDe(const Resultado& resultado, const std::string& matricula) {
  for (const Viatura& viatura : resultado.frota->viaturas)
    if (viatura.matricula == matricula) return &viatura;
  return nullptr;
}

/// What the vehicles of a category have in the same cells, on average.
std::optional<Serie> MediaDaCategoria(const Resultado& resultado, const Tabela& tabela,
                                      const std::string& matricula) {
  const Viatura* const esta = ViaturaDe(resultado, matricula);
  if (esta == nullptr || esta->categoria.empty()) return {};
  std::map<std::string, const Viatura*> viaturas;
  for (const Viatura& viatura : resultado.frota->viaturas) viaturas[viatura.matricula] = &viatura;
  std::vector<double> somas;
  double quantas = 0;
  for (const LinhaDaTabela& linha : tabela.linhas) {
    const auto achada = viaturas.find(linha.alvo.matricula);
    if (achada == viaturas.end() || achada->second->categoria != esta->categoria) continue;
    const Serie serie = SerieDa(tabela, linha, "");
    somas.resize(serie.valores.size());
    for (std::size_t i = 0; i < somas.size(); ++i) somas[i] += serie.valores[i].value_or(0);
    ++quantas;
  }
  if (quantas < 2) return {};
  Serie media{"Média de " + esta->categoria, {}};
  for (const double soma : somas) media.valores.emplace_back(soma / quantas);
  return media;
}

/// Costs by kind along the columns, the largest kinds by themselves and the others together.
Grafico CustosPorTipo(const Resultado& resultado, Pedido pedido, const std::string& titulo) {
  pedido.por = Por::kTipo;
  pedido.cancelar = nullptr;
  Custos custos = CustosDaFrota(*resultado.frota, pedido);
  Grafico grafico{titulo, "€", Forma::kBarrasEmpilhadas, {}, {}};
  for (const Intervalo& coluna : custos.colunas) grafico.lugares.push_back(coluna.nome);
  std::stable_sort(custos.linhas.begin(), custos.linhas.end(), [](const auto& a, const auto& b) {
    return a.total.valor().value_or(0) > b.total.valor().value_or(0);
  });
  for (const LinhaDoPivot& linha : custos.linhas) {
    if (linha.total.EZero()) continue;
    if (!pedido.tipos.empty() &&
        std::find(pedido.tipos.begin(), pedido.tipos.end(), linha.chave) == pedido.tipos.end())
      continue;
    const bool junta = grafico.series.size() == kMaisTipos;
    if (!junta)
      grafico.series.push_back({linha.nome, std::vector<std::optional<double>>(grafico.lugares.size())});
    Serie& serie = grafico.series.back();
    if (junta) serie.nome = "Outros";
    for (std::size_t i = 0; i < linha.celulas.size(); ++i)
      serie.valores[i] = serie.valores[i].value_or(0) + linha.celulas[i].valor().value_or(0).ToDouble();
  }
  return grafico;
}

Grafico DeCustos(const Resultado& resultado, const Tabela& tabela, const LinhaDaTabela* linha) {
  Pedido pedido = resultado.pedido;
  std::string titulo = "Custos por tipo";
  if (linha != nullptr) {
    if (const auto dentro = DentroDa(resultado, 0, *linha)) pedido = dentro->pedido;
    titulo += ": " + NomeDa(*linha);
    if (resultado.pedido.por == Por::kTipo) {
      Grafico grafico{
          "Custo de " + NomeDoTipo(*resultado.frota, NomeDa(*linha)), "€", Forma::kBarras, {}, {}};
      for (const ColunaDaTabela& coluna : tabela.colunas)
        if (coluna.celula) grafico.lugares.push_back(coluna.titulo);
      grafico.series.push_back(SerieDa(tabela, *linha, NomeDa(*linha)));
      return grafico;
    }
  }
  pedido.coluna = resultado.pedido.coluna;
  return CustosPorTipo(resultado, pedido, titulo);
}

/// A row's cells, beside what its category has on average.
Grafico DasCelulas(const Resultado& resultado, const Tabela& tabela, const LinhaDaTabela* linha,
                   const char* titulo, const char* unidade) {
  Grafico grafico{titulo, unidade, Forma::kBarras, {}, {}};
  for (const ColunaDaTabela& coluna : tabela.colunas)
    if (coluna.celula) grafico.lugares.push_back(coluna.titulo);
  if (linha == nullptr) {
    Serie soma{"Todas", std::vector<std::optional<double>>(grafico.lugares.size())};
    for (const LinhaDaTabela& uma : tabela.linhas) {
      const Serie serie = SerieDa(tabela, uma, "");
      for (std::size_t i = 0; i < serie.valores.size(); ++i)
        soma.valores[i] = soma.valores[i].value_or(0) + serie.valores[i].value_or(0);
    }
    grafico.series.push_back(std::move(soma));
    return grafico;
  }
  grafico.titulo += ": " + NomeDa(*linha);
  grafico.series.push_back(SerieDa(tabela, *linha, NomeDa(*linha)));
  if (auto media = MediaDaCategoria(resultado, tabela, linha->alvo.matricula))
    grafico.series.push_back(std::move(*media));
  return grafico;
}

/// Consumption by month of a vehicle or group against that of the category or the fleet.
Grafico DeConsumos(const Resultado& resultado, const Tabela& tabela, const LinhaDaTabela* linha) {
  const Frota& frota = *resultado.frota;
  const Seleccao seleccao(frota, resultado.pedido);
  std::vector<std::size_t> todas, escolhidas, daCategoria;
  std::string categoria;
  if (linha != nullptr)
    if (const Viatura* const viatura = ViaturaDe(resultado, linha->alvo.matricula))
      categoria = viatura->categoria;
  for (std::size_t i = 0; i < frota.viaturas.size(); ++i) {
    const Viatura& viatura = frota.viaturas[i];
    if (!seleccao.Passa(i)) continue;
    todas.push_back(i);
    if (linha != nullptr &&
        (linha->alvo.matricula.empty() ? resultado.pedido.por == Por::kTipo ||
                                             GrupoDaViatura(viatura, resultado.pedido.por) == NomeDa(*linha)
                                       : viatura.matricula == linha->alvo.matricula))
      escolhidas.push_back(i);
    if (!categoria.empty() && viatura.categoria == categoria) daCategoria.push_back(i);
  }
  std::string tipo;
  if (linha != nullptr)
    if (const auto* codigo = std::get_if<std::string>(&linha->celulas[1])) tipo = *codigo;
  (void)tabela;
  ConsumoPorMes consumo(frota, resultado.pedido.periodo);
  if (tipo.empty()) tipo = consumo.TipoMaisUsado(todas);
  Grafico grafico = consumo.Vazio(tipo);
  if (linha != nullptr) {
    grafico.titulo += ", " + NomeDa(*linha);
    grafico.series.push_back(consumo.De(NomeDa(*linha), escolhidas, tipo));
    if (daCategoria.size() > 1)
      grafico.series.push_back(consumo.De("Categoria " + categoria, daCategoria, tipo));
  }
  if (linha == nullptr || daCategoria.size() < 2) grafico.series.push_back(consumo.De("Todas", todas, tipo));
  return grafico;
}

Grafico DeExcepcoes(const Tabela& tabela) {
  Grafico grafico{"Excepções por regra", "", Forma::kBarras, {}, {{"Excepções", {}}}};
  std::map<std::string, double> quantas;
  for (const LinhaDaTabela& linha : tabela.linhas) quantas[NomeDa(linha)] += 1;
  for (const auto& [regra, numero] : quantas) {
    grafico.lugares.push_back(regra);
    grafico.series[0].valores.emplace_back(numero);
  }
  return grafico;
}

}  // namespace

bool Grafico::Vazio() const {
  return std::none_of(series.begin(), series.end(), [](const Serie& serie) {
    return std::any_of(serie.valores.begin(), serie.valores.end(),
                       [](const auto& valor) { return valor.has_value(); });
  });
}

Grafico GraficoDa(const Resultado& resultado, std::size_t tabela, const LinhaDaTabela* linha) {
  const Tabela& t = resultado.relatorio.tabelas[tabela];
  if (t.nome == "leasing") return {};
  switch (resultado.tipo) {
    case TipoDeRelatorio::kConsumos:
      return DeConsumos(resultado, t, linha);
    case TipoDeRelatorio::kCustos:
      return DeCustos(resultado, t, linha);
    case TipoDeRelatorio::kTotal:
      return DasCelulas(resultado, t, linha, "Custo por tipo", "€");
    case TipoDeRelatorio::kQuilometros:
      return DasCelulas(resultado, t, linha, "Quilómetros", "km");
    case TipoDeRelatorio::kEmissoes:
      return DasCelulas(resultado, t, linha, "CO2", "kg");
    case TipoDeRelatorio::kExcepcoes:
      return DeExcepcoes(t);
    case TipoDeRelatorio::kMovimentos:
      break;
  }
  Pedido pedido = resultado.pedido;
  pedido.premiosRepartidos = false;  // as the rows show them
  pedido.comRendas = false;
  std::string titulo = "Custos por tipo";
  if (linha != nullptr) {
    pedido.viaturas = {linha->alvo.matricula};
    titulo += ": " + linha->alvo.matricula;
  }
  return CustosPorTipo(resultado, pedido, titulo);
}

}  // namespace reports

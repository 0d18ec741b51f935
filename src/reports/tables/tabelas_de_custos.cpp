#include "reports/custos.h"
#include "reports/emissoes.h"
#include "reports/relatorio.h"
#include "reports/total.h"

// What is added up by row and column, as tables.
namespace reports {
namespace {

/// Columns of a pivot of amounts, whose format is given.
std::vector<ColunaDaTabela> ColunasDoPivot(const std::vector<Intervalo>& colunas, Por por, Formato formato) {
  std::vector<ColunaDaTabela> todas = {{"chave", TextosDe(por).titulo}, {"nome", "Nome"}};
  for (const Intervalo& coluna : colunas) todas.push_back({coluna.nome, coluna.nome, formato, true});
  todas.push_back({"total", "Total", formato});
  todas.push_back({"anterior", "Anterior", formato});
  todas.push_back({"diferenca", "Diferença", formato});
  todas.push_back({"percentagem", "%", Formato::kEuros});
  todas.push_back({"sem_data", "Sem data", formato});
  return todas;
}

LinhaDaTabela LinhaDe(const LinhaDoPivot& l, Por por) {
  LinhaDaTabela linha;
  linha.celulas = {l.chave, l.nome};
  for (const Soma& celula : l.celulas) linha.celulas.push_back(DoValor(celula.valor()));
  for (const Valor& valor :
       {l.total.valor(), l.anterior.valor(), Diferenca(l), Percentagem(l), l.semData.valor()})
    linha.celulas.push_back(DoValor(valor));
  if (por == Por::kViatura) linha.alvo.matricula = l.chave;
  return linha;
}

Relatorio DoPivot(const std::vector<Intervalo>& colunas, const std::vector<LinhaDoPivot>& linhas,
                  const LinhaDoPivot& total, Por por, Formato formato) {
  Relatorio relatorio;
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = ColunasDoPivot(colunas, por, formato);
  Tabela soma = tabela;
  for (const LinhaDoPivot& linha : linhas) tabela.linhas.push_back(LinhaDe(linha, por));
  soma.nome = "total";
  soma.titulo = "Total";
  soma.umSo = true;
  soma.colunas.erase(soma.colunas.begin(), soma.colunas.begin() + 2);
  soma.linhas.push_back(LinhaDe(total, Por::kTipo));
  soma.linhas.back().celulas.erase(soma.linhas.back().celulas.begin(),
                                   soma.linhas.back().celulas.begin() + 2);
  relatorio.tabelas = {std::move(tabela), std::move(soma)};
  return relatorio;
}

}  // namespace

Relatorio TabelasDeCustos(const Frota& frota, const Pedido& pedido) {
  const Custos custos = CustosDaFrota(frota, pedido);
  return DoPivot(custos.colunas, custos.linhas, custos.total, pedido.por, Formato::kEuros);
}

Relatorio TabelasDeEmissoes(const Frota& frota, const Pedido& pedido) {
  const Emissoes emissoes = EmissoesDaFrota(frota, pedido);
  Relatorio relatorio =
      DoPivot(emissoes.colunas, emissoes.linhas, emissoes.total, pedido.por, Formato::kMedida);
  const Valor semFactor = emissoes.semFactor.valor();
  if (!emissoes.semFactor.EZero() && semFactor)
    relatorio.notas.push_back("Sem factor de CO2: " + TextoDa(*semFactor, Formato::kMedida) +
                              " unidades abastecidas. Escreva os factores em «definicoes co2».");
  return relatorio;
}

Relatorio TabelasDoTotal(const Frota& frota, const Pedido& pedido) {
  const CustoTotal total = CustoTotalDaFrota(frota, pedido);
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = {{"viatura", "Viatura"}, {"categoria", "Categoria"}};
  for (const std::string& tipo : total.tipos)
    tabela.colunas.push_back({tipo, NomeDoTipo(frota, tipo), Formato::kEuros, true});
  const ColunaDaTabela restantes[] = {{"total", "Total", Formato::kEuros},
                                      {"distancia", "Distância", Formato::kMedida},
                                      {"eur_km", "€/km", Formato::kPorUnidade},
                                      {"eur_mes", "€/mês", Formato::kEuros},
                                      {"tipo", "Combustível"},
                                      {"l100", "Aos 100 km", Formato::kEuros},
                                      {"lugar", "Lugar", Formato::kInteiro},
                                      {"compra", "Compra", Formato::kEuros},
                                      {"sem_data", "Sem data", Formato::kEuros}};
  tabela.colunas.insert(tabela.colunas.end(), std::begin(restantes), std::end(restantes));
  for (const LinhaDoTotal& l : total.linhas) {
    LinhaDaTabela linha;
    linha.celulas = {l.matricula, l.categoria};
    for (const Soma& soma : l.tipos) linha.celulas.push_back(DoValor(soma.valor()));
    const auto tipo = static_cast<std::size_t>(l.tipoDoConsumo);
    const Celula depois[] = {DoValor(l.custo.valor()),
                             DoValor(l.distancia),
                             DoValor(l.eurKm),
                             DoValor(l.eurMes),
                             l.tipoDoConsumo < 0 ? Celula() : Celula(frota.tipos[tipo].codigo),
                             DoValor(l.l100),
                             l.lugar ? Celula(std::int64_t{*l.lugar}) : Celula(),
                             DoValor(l.compra),
                             DoValor(l.semData.valor())};
    linha.celulas.insert(linha.celulas.end(), std::begin(depois), std::end(depois));
    linha.alvo.matricula = l.matricula;
    tabela.linhas.push_back(std::move(linha));
  }
  Relatorio relatorio;
  relatorio.tabelas.push_back(std::move(tabela));
  return relatorio;
}

}  // namespace reports

#include "reports/consumos.h"
#include "reports/emissoes.h"
#include "reports/quilometros.h"
#include "reports/relatorio.h"

// Consumption, kilometres and emissions as tables.
namespace reports {
namespace {

ColunaDaTabela Primeira(bool viatura, const std::string& titulo) {
  return {viatura ? "viatura" : "grupo", titulo, Formato::kTexto};
}

Tabela TabelaDeConsumos(const Frota& frota, const char* nome, const ColunaDaTabela& primeira,
                        const std::vector<LinhaDeConsumo>& linhas) {
  Tabela tabela;
  tabela.nome = nome;
  tabela.colunas = {primeira,
                    {"tipo", "Tipo"},
                    {"unidade", "Un."},
                    {"litros", "Quantidade", Formato::kMedida},
                    {"custo", "Custo", Formato::kEuros},
                    {"eur_l", "€/Un.", Formato::kPorUnidade},
                    {"km_base", "Km base", Formato::kMedida},
                    {"km_fim", "Km fim", Formato::kMedida},
                    {"distancia", "Distância", Formato::kMedida},
                    {"contados", "Contados", Formato::kInteiro},
                    {"litros_contados", "Qtd. contada", Formato::kMedida, false, true},
                    {"custo_contado", "Custo contado", Formato::kEuros, false, true},
                    {"l100", "Aos 100 km", Formato::kEuros},
                    {"margem", "±", Formato::kEuros},
                    {"eur_km", "€/km", Formato::kPorUnidade},
                    {"motivo", "Motivo"},
                    {"sem_data", "Sem data", Formato::kMedida, false, true}};
  for (const LinhaDeConsumo& l : linhas) {
    Celula tipo, unidade;
    if (l.tipo >= 0) {
      tipo = frota.tipos[static_cast<std::size_t>(l.tipo)].codigo;
      unidade = frota.tipos[static_cast<std::size_t>(l.tipo)].unidade;
    }
    LinhaDaTabela linha;
    linha.celulas = {l.chave,
                     tipo,
                     unidade,
                     DoValor(l.litros),
                     DoValor(l.custo),
                     DoValor(l.eurL),
                     DoValor(l.kmBase),
                     DoValor(l.kmFim),
                     DoValor(l.distancia),
                     l.contados,
                     DoValor(l.litrosContados),
                     DoValor(l.custoContado),
                     DoValor(l.l100),
                     DoValor(l.margem),
                     DoValor(l.eurKm),
                     l.motivo.empty() ? Celula() : Celula(l.motivo),
                     DoValor(l.semData)};
    if (primeira.chave == "viatura") linha.alvo.matricula = l.chave;
    tabela.linhas.push_back(std::move(linha));
  }
  return tabela;
}

LinhaDaTabela LinhaDe(const LinhaDeQuilometros& l, bool viatura) {
  LinhaDaTabela linha;
  linha.celulas.emplace_back(l.chave);
  for (const Valor& celula : l.celulas) linha.celulas.push_back(DoValor(celula));
  linha.celulas.push_back(DoValor(l.total));
  linha.celulas.emplace_back(l.dias);
  linha.celulas.push_back(l.ultimaLeitura ? Celula(Date().AddDays(*l.ultimaLeitura)) : Celula());
  linha.celulas.emplace_back(l.recuos);
  if (viatura) linha.alvo.matricula = l.chave;
  return linha;
}

}  // namespace

Relatorio TabelasDeConsumos(const Frota& frota, const Pedido& pedido) {
  const MapaDeConsumos mapa = Consumos(frota, pedido);
  Relatorio relatorio;
  relatorio.tabelas = {
      TabelaDeConsumos(frota, "linhas", Primeira(true, "Viatura"), mapa.linhas),
      TabelaDeConsumos(frota, "grupos", Primeira(false, TextosDe(pedido.por).titulo), mapa.grupos),
      TabelaDeConsumos(frota, "totais", Primeira(false, "Total"), mapa.totais)};
  relatorio.tabelas[1].titulo = std::string("Por ") + TextosDe(pedido.por).chave;
  relatorio.tabelas[2].titulo = "Total";
  return relatorio;
}

Relatorio TabelasDeQuilometros(const Frota& frota, const Pedido& pedido) {
  const Quilometros quilometros = QuilometrosDaFrota(frota, pedido);
  const bool viatura = pedido.por == Por::kViatura;
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = {Primeira(viatura, TextosDe(pedido.por).titulo)};
  for (const Intervalo& coluna : quilometros.colunas)
    tabela.colunas.push_back({coluna.nome, coluna.nome, Formato::kMedida, true});
  tabela.colunas.push_back({"total", "Total", Formato::kMedida});
  tabela.colunas.push_back({"dias", "Dias", Formato::kInteiro});
  tabela.colunas.push_back({"ultima_leitura", "Última leitura", Formato::kData});
  tabela.colunas.push_back({"recuos", "Recuos", Formato::kInteiro});
  Tabela total = tabela;
  for (const LinhaDeQuilometros& linha : quilometros.linhas) tabela.linhas.push_back(LinhaDe(linha, viatura));
  total.nome = "total";
  total.titulo = "Total";
  total.umSo = true;
  total.colunas[0].chave = "grupo";
  total.linhas.push_back(LinhaDe(quilometros.total, false));

  Tabela leasing;
  leasing.nome = "leasing";
  leasing.titulo = "Leasing";
  leasing.colunas = {{"viatura", "Viatura"},
                     {"limite", "Limite de km", Formato::kMedida},
                     {"feitos", "Feitos", Formato::kMedida},
                     {"previstos", "Previstos no fim", Formato::kMedida},
                     {"excesso", "A mais", Formato::kMedida},
                     {"custo", "Custo do excesso", Formato::kEuros},
                     {"dia", "Limite atingido em", Formato::kData}};
  for (const Projeccao& p : ProjeccoesDeLeasing(frota, pedido))
    leasing.linhas.push_back(
        {{p.matricula, p.limite, DoValor(p.feitos), DoValor(p.previstos), DoValor(p.excesso),
          DoValor(p.custo), p.dia ? Celula(Date().AddDays(*p.dia)) : Celula()},
         {p.matricula, {}, 0}});
  Relatorio relatorio;
  relatorio.tabelas = {std::move(tabela), std::move(total), std::move(leasing)};
  return relatorio;
}

}  // namespace reports

#include "reports/custos.h"
#include "reports/movimentos.h"
#include "reports/relatorio.h"

// Reports that go event by event, as tables.
namespace reports {
namespace {

std::string CodigoDoMotorista(const Frota& frota, const Evento& evento) {
  return evento.motorista < 0 ? std::string()
                              : frota.motoristas[static_cast<std::size_t>(evento.motorista)].codigo;
}

Alvo AlvoDe(const Frota& frota, const Evento& evento) {
  return {frota.ViaturaDe(evento).matricula, evento.especie, evento.id};
}

Celula SeTem(Currency valor) { return valor == 0 ? Celula() : Celula(valor); }

LinhaDaTabela LinhaDe(const Frota& frota, const Movimento& m) {
  const Evento& e = *m.evento;
  LinhaDaTabela linha;
  linha.celulas = {frota.ViaturaDe(e).matricula,
                   e.data,
                   std::string(TextosDe(e.especie).tabela),
                   std::int64_t{e.id},
                   ChaveDoTipo(frota, e),
                   SeTem(e.km),
                   frota.EAbastecimento(e) ? Celula(e.qtd) : Celula(),
                   SeTem(e.valorUn),
                   e.custo,
                   CodigoDoMotorista(frota, e),
                   e.nota < 0 ? std::string() : std::string(frota.notas[static_cast<std::size_t>(e.nota)]),
                   DoValor(m.litros.valor()),
                   DoValor(m.custo.valor())};
  linha.alvo = AlvoDe(frota, e);
  return linha;
}

}  // namespace

Relatorio TabelasDeMovimentos(const std::shared_ptr<const Frota>& frota, const Pedido& pedido) {
  const auto movimentos = std::make_shared<const Movimentos>(MovimentosDaFrota(*frota, pedido));
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = {{"viatura", "Viatura"},
                    {"data", "Data", Formato::kData},
                    {"tabela", "Tabela", Formato::kTexto, false, true},
                    {"id", "N.º", Formato::kInteiro},
                    {"tipo", "Tipo"},
                    {"km", "Km", Formato::kMedida},
                    {"litros", "Quantidade", Formato::kMedida},
                    {"valor_un", "Valor un.", Formato::kPorUnidade},
                    {"custo", "Custo", Formato::kEuros},
                    {"motorista", "Motorista"},
                    {"obs", "Observações"},
                    {"litros_acumulados", "Qtd. acumulada", Formato::kMedida},
                    {"custo_acumulado", "Custo acumulado", Formato::kEuros}};
  tabela.porFazer = movimentos->linhas.size();
  tabela.faz = [frota, movimentos](std::size_t i) { return LinhaDe(*frota, movimentos->linhas[i]); };
  Tabela total;
  total.nome = "total";
  total.titulo = "Total";
  total.umSo = true;
  total.colunas = {{"movimentos", "Movimentos", Formato::kInteiro},
                   {"litros", "Quantidade", Formato::kMedida},
                   {"custo", "Custo", Formato::kEuros},
                   {"sem_data", "Sem data", Formato::kInteiro}};
  total.linhas.push_back(
      {{static_cast<std::int64_t>(movimentos->linhas.size()), DoValor(movimentos->litros.valor()),
        DoValor(movimentos->custo.valor()), movimentos->semData},
       {}});
  Relatorio relatorio;
  relatorio.tabelas = {std::move(tabela), std::move(total)};
  return relatorio;
}

Relatorio TabelasDeExcepcoes(const Frota& frota, const Pedido& pedido, const Ajustes& ajustes,
                             const Vistos& vistos, bool mostraVistos) {
  Tabela tabela;
  tabela.nome = "linhas";
  tabela.colunas = {{"regra", "Regra"},
                    {"viatura", "Viatura"},
                    {"data", "Data", Formato::kData},
                    {"tabela", "Tabela"},
                    {"id", "N.º", Formato::kInteiro},
                    {"texto", "O que se viu"},
                    {"visto", "Visto", Formato::kLogico},
                    {"nota", "Nota"}};
  for (const Achado& achado : Excepcoes(frota, pedido, ajustes)) {
    const Evento& e = *achado.evento;
    const char* const regra = TextosDe(achado.regra).chave;
    const auto visto = vistos.find({regra, TextosDe(e.especie).tabela, e.id});
    if (visto != vistos.end() && !mostraVistos) continue;
    LinhaDaTabela linha;
    linha.celulas = {std::string(regra),
                     frota.ViaturaDe(e).matricula,
                     e.data,
                     std::string(TextosDe(e.especie).tabela),
                     std::int64_t{e.id},
                     achado.texto,
                     visto != vistos.end(),
                     visto == vistos.end() ? Celula() : Celula(visto->second)};
    linha.alvo = AlvoDe(frota, e);
    tabela.linhas.push_back(std::move(linha));
  }
  Relatorio relatorio;
  relatorio.tabelas.push_back(std::move(tabela));
  return relatorio;
}

}  // namespace reports

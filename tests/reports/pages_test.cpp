#include <gtest/gtest.h>

#include "reports/pages/consumo_por_mes.h"
#include "reports/pages/definicoes_pagina.h"
#include "reports/pages/escolha.h"
#include "reports/pages/evolucao.h"
#include "reports/pages/mes.h"
#include "reports/pages/resultado.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace {

using namespace reports;
using zorCrmParvel::DataAccessRef;

class Pages : public testing::Test {
 protected:
  Pages() : bd(testing_support::MemoryDatabase()) {
    host.clock = platform::Date::FromParts(2026, 3, 15);
    Run("INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel) VALUES (N'G', N'Gasóleo', 1)");
    Run("INSERT INTO zor_PV_Categorias (Codigo, Nome) VALUES (N'L', N'Ligeiros')");
    for (const char* plate : {"AA", "BB"})
      Run(std::string("INSERT INTO zor_PV_Viaturas (Matricula, Categoria, Departamento) VALUES (N'") + plate +
          "', N'L', N'D')");
    Fill("AA", "2026.02.01", 30, 1000);
    Fill("AA", "2026.02.10", 30, 1500);  // 6 in February
    Fill("AA", "2026.03.10", 40, 2000);  // 8 in March
    Fill("BB", "2026.02.01", 30, 1000);
    Fill("BB", "2026.03.20", 50, 1500);  // beyond today
  }

  void Run(const std::string& statement) { bd->ExecutarSql("", zorCrmParvel::Statement(statement.c_str())); }
  void Fill(const std::string& plate, const std::string& day, int litres, int km) {
    Run("INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, Custo, Km) VALUES (N'" + plate + "', '" +
        day + "', N'G', " + std::to_string(litres) + ", " + std::to_string(litres * 2) + ", " +
        std::to_string(km) + ")");
  }
  Resultado Of(TipoDeRelatorio kind, Por por) {
    Pedido request;
    request.periodo = Periodo::Ano(2026);
    request.por = por;
    return Calcular(bd, kind, request);
  }

  testing_support::ScriptedHost host;
  DataAccessRef bd;
};

TEST_F(Pages, PeriodsFollowToday) {
  struct Case {
    Prazo period;
    const char* from;
    const char* to;
  };
  const platform::Date today = platform::Date::FromParts(2026, 1, 31);
  for (const Case& c :
       {Case{Prazo::kMes, "2026-01-01", "2026-01-31"}, Case{Prazo::kMesAnterior, "2025-12-01", "2025-12-31"},
        Case{Prazo::kTrimestre, "2026-01-01", "2026-03-31"},
        Case{Prazo::kTrimestreAnterior, "2025-10-01", "2025-12-31"},
        Case{Prazo::kAnoAnterior, "2025-01-01", "2025-12-31"},
        Case{Prazo::k12Meses, "2025-01-01", "2025-12-31"}}) {
    const Periodo period = PeriodoDe(c.period, today, {});
    EXPECT_EQ(TextoDoDia(period.de), c.from);
    EXPECT_EQ(TextoDoDia(period.ate), c.to);
  }
}

TEST_F(Pages, AChoiceIsKeptAndLeadsToItsRequest) {
  Escolha choice;
  choice.prazo = Prazo::kDias;
  choice.dias = {46000, 46010};
  choice.por = Por::kMarca;
  choice.coluna = Coluna::kAno;
  choice.filtros = {{"departamento", {"D", ""}}, {"combustivel", {"3"}}, {"servico", {"0"}}};
  Escolha again;
  again.Repoe(choice.Guardada());
  EXPECT_EQ(again.Guardada(), choice.Guardada());
  again.Repoe("dias marca? 2026-13-01 x");  // nothing of it can be told
  EXPECT_EQ(again.Guardada(), choice.Guardada());
  const Pedido request = choice.PedidoEm(host.clock);
  EXPECT_EQ(request.departamentos, (std::vector<std::string>{"D", ""}));
  EXPECT_TRUE(request.soInactivas);
  EXPECT_EQ(Escolha::De(request).filtros, choice.filtros);
}

TEST_F(Pages, RowsAreLookedIntoFromGroupToVehicleToEvent) {
  const Resultado groups = Of(TipoDeRelatorio::kConsumos, Por::kDepartamento);
  const std::size_t shown = TabelasMostradas(groups).front();
  const auto vehicles = DentroDa(groups, shown, groups.relatorio.tabelas[shown].Linha(0));
  ASSERT_TRUE(vehicles);
  EXPECT_EQ(vehicles->titulo, "Mapa de consumos: D");
  const Resultado lines = Calcular(bd, vehicles->tipo, vehicles->pedido);
  const auto events = DentroDa(lines, 0, lines.relatorio.tabelas[0].Linha(0));
  ASSERT_TRUE(events);
  EXPECT_EQ(events->titulo, "Movimentos de AA");
  const Resultado movements = Calcular(bd, events->tipo, events->pedido);
  ASSERT_EQ(movements.relatorio.tabelas[0].Quantas(), 3u);
  EXPECT_EQ(movements.relatorio.tabelas[0].Linha(0).alvo.id, 1);
  EXPECT_FALSE(DentroDa(movements, 0, movements.relatorio.tabelas[0].Linha(0)));
  EXPECT_EQ(Totais(lines).front(), "G: 180 L · 1.500 km · 8,00 aos 100 km · 0,1600 €/km · 360,00 €");
}

TEST_F(Pages, TheChartOfAVehicleStandsBesideItsCategory) {
  const Resultado lines = Of(TipoDeRelatorio::kConsumos, Por::kViatura);
  const LinhaDaTabela row = lines.relatorio.tabelas[0].Linha(0);
  const Grafico chart = GraficoDa(lines, 0, &row);
  ASSERT_EQ(chart.series.size(), 2u);
  EXPECT_EQ(chart.series[1].nome, "Categoria L");
  EXPECT_EQ(chart.series[0].valores[0], std::nullopt);
  EXPECT_EQ(chart.series[0].valores[1], 6.0);
  EXPECT_EQ(chart.series[0].valores[2], 8.0);
  EXPECT_EQ(chart.series[1].valores[2], 9.0);  // 90 L over 1,000 km, and no mean of means
  const Evolucao evolution = EvolucaoDa(bd, "aa ", Periodo::Ano(2026));
  ASSERT_EQ(evolution.graficos.size(), 4u);
  EXPECT_EQ(evolution.titulo, "AA · L · D");
  EXPECT_EQ(evolution.graficos[0].series[0].valores[2], 8.0);
  EXPECT_ANY_THROW(EvolucaoDa(bd, "ZZ", Periodo::Ano(2026)));
}

TEST_F(Pages, WhatIsLookedIntoGoesOnWhereItsReportWasGivenUp) {
  bool given_up = false;
  Pedido request;
  request.periodo = Periodo::Ano(2026);
  request.cancelar = [&] { return given_up; };
  for (const TextosDoRelatorio& report : Relatorios()) {
    SCOPED_TRACE(report.chave);
    given_up = false;
    const Resultado shown = Calcular(bd, report.tipo, request);
    given_up = true;
    for (std::size_t table : TabelasMostradas(shown)) {
      const Tabela& rows = shown.relatorio.tabelas[table];
      for (std::size_t i = 0; i < rows.Quantas(); ++i) {
        const LinhaDaTabela row = rows.Linha(i);
        EXPECT_NO_THROW(GraficoDa(shown, table, &row));
        const auto inside = DentroDa(shown, table, row);
        EXPECT_FALSE(inside && inside->pedido.cancelar);
      }
      EXPECT_NO_THROW(GraficoDa(shown, table, nullptr));
    }
  }
}

TEST_F(Pages, TheMonthIsHeldAgainstOthersAsFarAsItHasCome) {
  const ResumoDoMes month = ResumoDe(bd, host.clock);
  EXPECT_EQ(month.mes, "Março de 2026, até ao dia 15");
  ASSERT_EQ(month.figuras.size(), 3u);
  EXPECT_EQ(month.figuras[0].valor, "80,00 €");
  EXPECT_EQ(month.figuras[0].antes, "mês anterior 180,00 € (-56 %)");
  EXPECT_EQ(month.figuras[1].nome, "Gasóleo");
  EXPECT_EQ(month.figuras[2].valor, "8,00 L/100 km");
  EXPECT_EQ(month.figuras[2].ano, "há um ano —");
}

TEST_F(Pages, SettingsShowWhatCanBeSet) {
  Gravar(bd, *DefinicaoDe("viaturas"), {"BB"}, {{"Deposito", "50"}});
  const Tabela vehicles = VerParaEditar(bd, *DefinicaoDe("viaturas"));
  ASSERT_EQ(vehicles.Quantas(), 2u);
  EXPECT_EQ(Textos(vehicles, vehicles.Linha(0))["Deposito"], "");
  EXPECT_EQ(Textos(vehicles, vehicles.Linha(1))["Deposito"], "50");
  EXPECT_EQ(vehicles.colunas[1].titulo, "Depósito");
  Gravar(bd, *DefinicaoDe("regras"), {"preco"}, {{"Activa", "0"}, {"Limiar", "12,5"}});
  const Tabela rules = VerParaEditar(bd, *DefinicaoDe("regras"));
  EXPECT_EQ(rules.Quantas(), kRegras);
  for (const LinhaDaTabela& row : rules.linhas) {
    auto texts = Textos(rules, row);
    if (texts["Regra"] != "preco") continue;
    EXPECT_EQ(texts["Activa"], "0");
    EXPECT_EQ(texts["Limiar"], "12,5");
  }
}

TEST_F(Pages, AReportThatIsGivenUpEndsWithoutAResult) {
  Pedido request;
  request.periodo = Periodo::Ano(2026);
  request.cancelar = [] { return true; };
  for (const TextosDoRelatorio& report : Relatorios())
    EXPECT_THROW(Calcular(bd, report.tipo, request), Cancelado) << report.chave;
}

}  // namespace

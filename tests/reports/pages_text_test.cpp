// What the pages of all reports show of one fleet, whole.

#include <gtest/gtest.h>

#include "reports/pages/definicoes_pagina.h"
#include "reports/pages/evolucao.h"
#include "reports/pages/filtros.h"
#include "reports/pages/mes.h"
#include "reports/pages/resultado.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"
#include "support/whole_text.h"

namespace {

using namespace reports;
using zorCrmParvel::DataAccessRef;

/// The rows of the fleet: a table, its columns, and the values of each row.
const struct {
  const char* table;
  const char* columns;
  std::vector<const char*> rows;
} kFleet[] = {
    {"zor_PV_TiposGastos",
     "Codigo, Nome, Combustivel",
     {"'G', 'Gasóleo', 1", "'E', 'Carga', 1", "'P', 'Portagens', 0", "'Q', 'Lavagem', 0", "'R', 'Pneus', 0",
      "'S', 'Água', 0", "'T', 'Óleo', 0"}},
    {"zor_PV_Categorias", "Codigo, Nome", {"'L', 'Ligeiros'", "'P', 'Pesados'"}},
    {"zor_PV_Departamentos", "Codigo, Nome", {"'D', 'Vendas'", "'O', 'Obras'"}},
    {"zor_PV_Marcas", "Codigo, Nome", {"'REN', 'Renault'"}},
    {"zor_Funcionarios", "Codigo, Nome", {"'1', 'Ana'", "'2', 'Rui'"}},
    {"zor_PV_Viaturas",
     "Matricula, Marca, Modelo, Categoria, Departamento, Combustivel, Inactiva, KmInicial, DataKmInicial, "
     "DataMatricula, "
     "Mensalidade, ValContrato, ValorInicial",
     {"'AA', 'REN', 'Clio', 'L', 'D', 0, 0, 1000, '2025.01.01', '2024.05.01', 250.5, '2026.12.31', 15000",
      "'BB', 'REN', NULL, 'L', 'O', 3, 0, 500, '2025.01.01', '2024.05.01', 0, NULL, 0",
      "'CC', NULL, NULL, 'P', NULL, 0, 1, 90000, '2025.01.01', '2020.05.01', 0, NULL, 0"}},
    {"zor_PV_Gastos",
     "Matricula, Data, TipoGasto, Motorista, Qtd, ValorUn, Custo, Km, Obs",
     {"'AA', '2025.03.05', 'G', '1', 40, 1.5, 60, 1600, ''",
      "'AA', '2026.01.08 09:10:00', 'G', '1', 41, 1.6, 65.6, 9000, ''",
      "'AA', '2026.02.01', 'G', '2', 42, 1.7, 71.4, 9700, 'cheio'",
      "'AA', '2026.03.10', 'G', '1', 60, 1.8, 108, 10300, ''",
      "'AA', '2026.03.10', 'P', '1', 1, 0, 12.35, 0, 'A1'", "'AA', '2026.03.11', 'Q', NULL, 1, 0, 9, 0, ''",
      "'AA', '2026.03.11', 'R', NULL, 4, 0, 320, 0, ''", "'AA', '2026.03.11', 'S', NULL, 4, 0, 2, 0, ''",
      "'AA', '2026.03.11', 'T', NULL, 4, 0, 30, 0, ''", "'BB', '2026.01.20', 'E', '2', 30, 0.2, 6, 900, ''",
      "'BB', '2026.02.20', 'E', '2', 33, 0.2, 6.6, 1200, ''",
      "'CC', '2025.12.30', 'G', '2', 300, 1.4, 420, 90800, ''",
      "'CC', '2026.02.14 23:30:00', 'G', '9', 310, 1.5, 465, 90700, ''",
      "'CC', NULL, 'P', '2', 1, 0, 5, 0, ''"}},
    {"zor_PV_Seguros",
     "Matricula, DataInicio, Validade, Apolice, Premio, Inactiva",
     {"'AA', '2026.01.01', '2026.12.31', 'A1', 365, 0", "'BB', '2025.07.01', '2026.06.30', 'A2', 730, 0"}},
    {"zor_PV_Revisoes", "Matricula, Data, Km, Custo, Obs", {"'AA', '2026.02.25', 9900, 180.5, 'FT 1'"}},
    {"zor_PV_Inspecoes", "Matricula, Data, Km, Custo", {"'BB', '2026.02.26', 1250, 31.2"}},
    {"zor_PV_Multas", "Matricula, Data, Motorista, ValorMulta", {"'AA', '2026.02.27', '2', 60"}},
    {"zor_PV_Sinistros", "Matricula, Data, Motorista, Custo", {"'BB', '2026.02.28', '1', 750"}},
    {"zor_PV_Acessorios",
     "Matricula, Data, Qtd, KmInicial, KmFinal, Custo",
     {"'CC', '2026.03.01', 4, 90000, 91000, 1200"}}};

class PagesText : public testing::Test {
 protected:
  PagesText() : bd(testing_support::MemoryDatabase()) {
    host.clock = platform::Date::FromParts(2026, 3, 15);
    for (const auto& [table, columns, rows] : kFleet)
      for (const char* row : rows)
        bd->ExecutarSql(
            "", (std::string("INSERT INTO ") + table + " (" + columns + ") VALUES (" + row + ")").c_str());
    Gravar(bd, *DefinicaoDe("viaturas"), {"AA"},
           {{"Deposito", "45"}, {"LimiteKm", "9000"}, {"InicioLeasing", "01-01-2025"}, {"EurosKm", "0,05"}});
    Gravar(bd, *DefinicaoDe("unidades"), {"E"}, {{"Unidade", "kWh"}});
    Gravar(bd, *DefinicaoDe("co2"), {"G", "01-01-2025"}, {{"Kg", "2,66"}});
    Gravar(bd, *DefinicaoDe("aceites"), {"0", "G"}, {});
    Gravar(bd, *DefinicaoDe("classes"), {"P"}, {{"Classe", "3"}});
  }

  static std::string Number(const std::optional<double>& value) {
    return value ? platform::Currency::FromDouble(*value).ToText() : "-";
  }
  static std::string Of(const Grafico& chart) {
    std::string text = "  gráfico " + chart.titulo + " [" + chart.unidade + "] " +
                       std::to_string(static_cast<int>(chart.forma)) + (chart.Vazio() ? " vazio" : "") + ":";
    for (const std::string& place : chart.lugares) text += " " + place;
    for (const Serie& series : chart.series) {
      text += "\n    " + series.nome + ":";
      for (const auto& value : series.valores) text += " " + Number(value);
    }
    return text + "\n";
  }
  std::string Of(const Resultado& result) {
    std::string text;
    const std::vector<std::size_t> tables = TabelasMostradas(result);
    for (const std::size_t shown : tables) {
      // Below groups the lines are those of the vehicles once more.
      if (shown != tables.front() && result.relatorio.tabelas[shown].nome == "linhas") continue;
      const Tabela& table = result.relatorio.tabelas[shown];
      text += "  tabela " + std::string(table.nome) + " " + table.titulo + "\n   ";
      // Each column's key, heading, format, and whether it is one of time or for machines.
      for (const ColunaDaTabela& column : table.colunas)
        text += " " + column.chave + "=" + column.titulo + ":" +
                std::to_string(static_cast<int>(column.formato)) + (column.celula ? "t" : "") +
                (column.soParaMaquinas ? "m" : "") + ";";
      text += "\n" + Of(GraficoDa(result, shown, nullptr));
      for (std::size_t i = 0; i < table.Quantas(); ++i) {
        const LinhaDaTabela row = table.Linha(i);
        text += "   ";
        for (const ColunaDaTabela& column : table.colunas)
          text += " " + TextoDaChave(table, row, column.chave) + "|";
        const auto inside = DentroDa(result, shown, row);
        text += (inside ? " > " + inside->titulo + " " + TextosDe(inside->tipo).chave : "") + "\n";
        if (i < 2) text += Of(GraficoDa(result, shown, &row));
        if (!inside) continue;
        for (const auto& [filter, codes] : FiltrosDe(inside->pedido))
          for (const std::string& code : codes)
            text.append("      ").append(filter).append(" ").append(code).append("\n");
        for (const std::string& type : inside->pedido.tipos) text += "      tipo " + type + "\n";
      }
    }
    for (const std::string& note : result.relatorio.notas) text += "  nota " + note + "\n";
    for (const std::string& total : Totais(result)) text += "  " + total + "\n";
    return text;
  }

  testing_support::ScriptedHost host;
  DataAccessRef bd;
};

TEST_F(PagesText, EachReportIsShownWhole) {
  std::string text;
  for (const TextosDoRelatorio& report : Relatorios())
    for (const Por por : report.por) {
      Pedido request;
      request.periodo = {platform::Date::FromParts(2026, 1, 1).days(),
                         platform::Date::FromParts(2026, 3, 31).days()};
      request.por = por;
      text += std::string("= ") + report.chave + " por " + TextosDe(por).chave + "\n" +
              Of(Calcular(bd, report.tipo, request));
    }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/reports/pages.txt", text);
}

TEST_F(PagesText, FiltersAndColumnsOfTimeChangeEachReport) {
  const struct {
    const char* what;
    platform::Date from, to;
    void (*change)(Pedido&);
  } requests[] = {{"trimestres, ao serviço, de D e O", platform::Date::FromParts(2025, 12, 30),
                   platform::Date::FromParts(2026, 4, 2),
                   [](Pedido& p) {
                     p.coluna = Coluna::kTrimestre;
                     p.soActivas = true;
                     p.departamentos = {"d ", "O"};
                   }},
                  {"anos, fora de serviço, sem departamento, prémios por inteiro e sem rendas",
                   platform::Date::FromParts(2025, 1, 1), platform::Date::FromParts(2026, 12, 31),
                   [](Pedido& p) {
                     p.coluna = Coluna::kAno;
                     p.soInactivas = true;
                     p.departamentos = {""};
                     p.premiosRepartidos = p.comRendas = false;
                   }},
                  {"dias de Fevereiro, sem rendas, de Diesel e Renault",
                   platform::Date::FromParts(2026, 2, 10), platform::Date::FromParts(2026, 2, 27),
                   [](Pedido& p) {
                     p.combustiveis = {0};
                     p.marcas = {"REN"};
                     p.premiosRepartidos = p.comRendas = false;
                   }},
                  {"sem departamento", platform::Date::FromParts(2026, 2, 10),
                   platform::Date::FromParts(2026, 2, 27), [](Pedido& p) { p.departamentos = {""}; }},
                  {"do motorista 2 ou de nenhum", platform::Date::FromParts(2026, 1, 1),
                   platform::Date::FromParts(2026, 3, 31),
                   [](Pedido& p) {
                     p.motoristas = {"2", ""};
                   }},
                  {"só da viatura BB, ligeira", platform::Date::FromParts(2026, 1, 1),
                   platform::Date::FromParts(2026, 3, 31), [](Pedido& p) {
                     p.viaturas = {"BB"};
                     p.categorias = {"L"};
                     p.tipos = {"E", "P"};
                   }}};
  // Of a vehicle that is gone nothing is known: no filter of vehicles lets it through.
  bd->ExecutarSql("",
                  "INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, Custo, Km) VALUES ('ZZ', "
                  "'2026.02.12', 'G', 20, 33, 700)");
  std::string text;
  for (const TextosDoRelatorio& report : Relatorios()) {
    for (const auto& [what, from, to, change] : requests) {
      Pedido request;
      request.periodo = {from.days(), to.days()};
      request.por = report.por.front();
      change(request);
      text += std::string("= ") + report.chave + ", " + what + "\n";
      const std::string objection = Objeccao(report.tipo, request);
      text += objection.empty() ? Of(Calcular(bd, report.tipo, request)) : "  " + objection + "\n";
    }
    text += std::string("  ") + report.titulo + ": " + report.texto + (report.colunas ? " colunas" : "") +
            (report.motoristas ? " motoristas" : "") + "\n";
    Pedido request;
    request.periodo = {2, 1};
    text += "  " + Objeccao(report.tipo, request) + "\n";
    request.periodo.ate = 2;
    for (const PalavraDeGrupo& group : Grupos()) {
      request.por = group.por;
      if (const std::string objection = Objeccao(report.tipo, request); !objection.empty())
        text += "  " + objection + "\n";
    }
  }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/reports/filtered.txt", text);
}

TEST_F(PagesText, WhatStandsBesideTheReports) {
  std::string text;
  for (const TipoDeRelatorio type : {TipoDeRelatorio::kCustos, TipoDeRelatorio::kQuilometros}) {
    text += std::string("= filtros de ") + TextosDe(type).chave + "\n";
    for (const Filtro& filter : LerFiltros(bd, type)) {
      text += std::string(filter.chave) + " " + filter.titulo + ":";
      for (const Filtro::Opcao& option : filter.opcoes) text += " " + option.codigo + "=" + option.nome;
      text += "\n";
    }
  }
  for (const char* plate : {"AA", "CC"}) {
    const Evolucao evolution = EvolucaoDa(bd, plate, Periodo::Ano(2026));
    text += "= evolução de " + evolution.titulo + "\n";
    for (const Grafico& chart : evolution.graficos) text += Of(chart);
  }
  const ResumoDoMes month = ResumoDe(bd, host.clock);
  text += "= " + month.mes + "\n";
  for (const FiguraDoMes& figure : month.figuras)
    text += figure.nome + ": " + figure.valor + "; " + figure.antes + "; " + figure.ano + "\n";
  for (const ResumoDoMes::Contrato& contract : month.leasing)
    text += contract.matricula + ": " + contract.texto + "\n";
  for (const Definicao& setting : Definicoes()) {
    text += std::string("= definição ") + setting.chave + "\n";
    const Tabela table = VerParaEditar(bd, setting);
    for (const LinhaDaTabela& row : table.linhas) {
      for (const auto& [column, value] : Textos(table, row))
        text.append(column).append("=").append(value).append(";");
      text += "\n";
    }
  }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/reports/beside.txt", text);
  Gravar(bd, *DefinicaoDe("viaturas"), {"AA"},
         {{"LimiteKm", "8000"}, {"InicioLeasing", "01-01-2025"}, {"EurosKm", "0,05"}});
  for (const char* end : {"2026.03.15", "2026.03.14"}) {
    bd->ExecutarSql("", (std::string("UPDATE zor_PV_Viaturas SET ValContrato='") + end + "'").c_str());
    EXPECT_EQ(ResumoDe(bd, host.clock).leasing.size(), std::string(end).ends_with("15") ? 1U : 0U)
        << "a contract is told until its last day";
  }
}

}  // namespace

// What the pages of all reports show of one fleet, whole.

#include <gtest/gtest.h>

#include <fstream>

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

class PagesText : public testing::Test {
 protected:
  PagesText() : bd(testing_support::MemoryDatabase()) {
    host.clock = platform::Date::FromParts(2026, 3, 15);
    std::ifstream fleet(PARVEL_SOURCE_DIR "/tests/reports/fleet.sql");
    for (std::string row; std::getline(fleet, row);) bd->ExecutarSql("", row.c_str());
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

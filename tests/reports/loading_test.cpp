#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "reports/consumos.h"
#include "reports/relatorio.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"

namespace {

using namespace reports;
using zorCrmParvel::DataAccessRef;

constexpr int kMostStatements = 22;

/// Vehicles with fills of two types over three years, now and then a long time apart, without kilometres or
/// without a date.
void FillRandomly(const DataAccessRef& bd, int vehicles, unsigned seed) {
  std::mt19937 dice(seed);
  const auto roll = [&dice](int least, int most) {
    return least + static_cast<int>(dice() % static_cast<unsigned>(most - least + 1));
  };
  const auto run = [&bd](const std::string& sql) {
    bd->ExecutarSql("", zorCrmParvel::Statement(sql.c_str()));
  };
  run("INSERT INTO zor_PV_TiposGastos (Codigo, Combustivel) VALUES (N'G', 1)");
  run("INSERT INTO zor_PV_TiposGastos (Codigo, Combustivel) VALUES (N'H', 1)");
  for (int v = 0; v < vehicles; ++v) {
    const std::string plate = "N'V" + std::to_string(v) + "'";
    run("INSERT INTO zor_PV_Viaturas (Matricula, KmInicial) VALUES (" + plate + ", " +
        std::to_string(roll(0, 2) * 500) + ")");
    platform::Date day = platform::Date::FromParts(2023, 1, 1).AddDays(roll(0, 900));
    int km = 1000;
    for (int i = roll(0, 25); i > 0; --i) {
      day = day.AddDays(roll(0, 5) == 0 ? roll(50, 300) : roll(1, 40));
      km += roll(-200, 900);
      std::ostringstream sql;
      sql << "INSERT INTO zor_PV_Gastos (Matricula, Data, TipoGasto, Qtd, Km, Custo) VALUES (" << plate
          << ", " << (roll(0, 12) == 0 ? "NULL" : "'" + TextoDoDia(day.days()) + "'") << ", N'"
          << (roll(0, 3) == 0 ? "H" : "G") << "', " << roll(1, 60) << ", " << (roll(0, 3) == 0 ? 0 : km)
          << ", 50)";
      run(sql.str());
    }
  }
}

std::string Written(const Relatorio& report) {
  std::ostringstream text;
  for (const Tabela& table : report.tabelas)
    for (std::size_t i = 0; i < table.Quantas(); ++i) {
      const LinhaDaTabela row = table.Linha(i);
      for (std::size_t j = 0; j < row.celulas.size(); ++j)
        text << TextoDa(row.celulas[j], table.colunas[j].formato) << '|';
      text << '\n';
    }
  return text.str();
}

TEST(Loading, WhatIsReadOfTheTimeBeforeAPeriodIsEnoughForItsConsumption) {
  testing_support::ScriptedHost host;
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    const DataAccessRef bd(testing_support::MemoryDatabase());
    FillRandomly(bd, seed == 12 ? 230 : 12, seed);
    for (const Periodo& period : {Periodo::Mes(2024, 5), Periodo::Trimestre(2025, 1), Periodo::Ano(2025)}) {
      Pedido request;
      request.periodo = period;
      Necessidade everything = NecessidadeDe(TipoDeRelatorio::kConsumos, request);
      everything.De(Especie::kGasto).de = Leitura::kPrimeiroDia;
      everything.basesAntesDe.reset();
      Relatorio report = Fazer(bd, TipoDeRelatorio::kConsumos, request);
      EXPECT_EQ(Written(report), Written(TabelasDeConsumos(Carregar(bd, everything), request)));
    }
  }
}

TEST(Loading, StatementsDoNotGrowWithTheFleet) {
  testing_support::ScriptedHost host;
  for (const TextosDoRelatorio& report : Relatorios()) {
    SCOPED_TRACE(report.chave);
    std::vector<std::size_t> counts;
    for (const int vehicles : {1, 60}) {
      const DataAccessRef bd(testing_support::MemoryDatabase());
      FillRandomly(bd, vehicles, 3);
      const auto recording = platform::MakeRef<testing_support::RecordingDataAccess>(bd);
      Pedido request;
      request.periodo = Periodo::Ano(2025);
      Fazer(recording, report.tipo, request);
      counts.push_back(recording->statements.size());
    }
    EXPECT_LE(counts[1], counts[0] + 1);  // older bases, which a small fleet may not need
    EXPECT_LE(counts[1], kMostStatements);
  }
}

}  // namespace

#include "reports/quilometros.h"

#include <gtest/gtest.h>

#include "reports/emissoes.h"
#include "reports/total.h"
#include "reports/written_fleet.h"

namespace {

using namespace reports;
using testing_support::Day;
using testing_support::Shown;
using testing_support::WrittenFleet;

struct Case {
  const char* name;
  const char* kmInicial;  // "date km", or nothing
  const char* fills;
  const char* expected;  // January, February, March; total, days, last reading, lower ones
};

const Case kCases[] = {
    {"nothing read", "", "", "- - - = - d0 - r0"},
    {"one reading", "", "10-01-2026 G 1 5000 1", "0 0 0 = 0 d0 2026-01-10 r0"},
    {"evenly by days over months", "31-12-2025 0", "01-03-2026 G 1 600 1",
     "310 280 10 = 600 d60 2026-03-01 r0"},
    {"initial kilometres without a date are none", "", "01-03-2026 G 1 600 1;11-03-2026 G 1 700 1",
     "0 0 100 = 100 d10 2026-03-11 r0"},
    {"of a day the highest", "31-12-2025 0", "31-01-2026 G 1 900 1;31-01-2026 H 1 310 1;31-01-2026 G 1 5 1",
     "900 0 0 = 900 d31 2026-01-31 r0"},
    {"lower ones are left out, one a day", "31-12-2025 1000",
     "10-01-2026 G 1 900 1;10-01-2026 G 1 800 1;20-01-2026 G 1 850 1;31-01-2026 G 1 1310 1",
     "310 0 0 = 310 d31 2026-01-31 r2"},
    {"an equal one stands still", "31-12-2025 1000", "31-01-2026 G 1 1000 1;28-02-2026 G 1 1280 1",
     "0 280 0 = 280 d59 2026-02-28 r0"},
    {"a new count", "31-12-2025 90000",
     "31-01-2026 G 1 90310 1;05-02-2026 G 1 10 1;10-02-2026 G 1 60 1;28-02-2026 G 1 240 1",
     "310 230 0 = 540 d59 2026-02-28 r0"},
    {"readings beyond the period spread into it", "01-12-2025 0", "10-04-2026 G 1 1300 1",
     "310 280 310 = 900 d90 2026-04-10 r0"},
    {"half to even at four decimals", "31-12-2025 0",
     "03-01-2026 G 1 1 1;02-02-2026 G 1 1 1;05-03-2026 G 1 2 1", "1 0.8387 0.1613 = 2 d64 2026-03-05 r0"},
};

TEST(Quilometros, ReadingsAreSpreadEvenlyBetweenThem) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    WrittenFleet fleet;
    fleet.frota.viaturas.pop_back();
    std::istringstream inicial(c.kmInicial);
    std::string day, km;
    if (inicial >> day >> km) {
      fleet.AA().dataKmInicial = Date::Parse(day);
      fleet.AA().kmInicial = testing_support::Money(km);
    }
    fleet.Fills(c.fills);
    Pedido pedido;
    pedido.periodo = Periodo::Trimestre(2026, 1);
    const LinhaDeQuilometros linha = QuilometrosDaFrota(fleet.Ready(), pedido).linhas.at(0);
    std::string text;
    for (const Valor& celula : linha.celulas) text += Shown(celula) + " ";
    text += "= " + Shown(linha.total) + " d" + std::to_string(linha.dias) + " " +
            (linha.ultimaLeitura ? TextoDoDia(*linha.ultimaLeitura) : "-") + " r" +
            std::to_string(linha.recuos);
    EXPECT_EQ(text, c.expected);
  }
}

TEST(Quilometros, ALeasingContractIsSeenAheadToItsEnd) {
  WrittenFleet fleet;
  fleet.AA().valContrato = Date::Parse("31-12-2026");
  fleet.AA().leasing = Leasing{60000, Date::Parse("31-12-2024"), Currency::FromDouble(0.05)};
  fleet.Fills("31-12-2024 G 1 1000 1;31-12-2025 G 1 37500 1");  // 36,500 km in 365 days
  const Projeccao p = ProjeccoesDeLeasing(fleet.Ready(), Pedido()).at(0);
  EXPECT_EQ(Shown(p.feitos) + " " + Shown(p.previstos) + " " + Shown(p.excesso) + " " + Shown(p.custo) + " " +
                TextoDoDia(p.dia.value()),
            "36500 73000 13000 650 2026-08-23");
  EXPECT_TRUE(p.acima10);
}

TEST(Total, VehiclesAreRankedByEurosAKmWithinTheirCategory) {
  WrittenFleet fleet;
  fleet.frota.viaturas.resize(4);
  const char* const categories[] = {"L", "L", "L", "P"};
  for (std::size_t i = 0; i < 4; ++i) {
    fleet.frota.viaturas[i].matricula = std::string(1, static_cast<char>('A' + i));
    fleet.frota.viaturas[i].categoria = categories[i];
    fleet.frota.viaturas[i].dataKmInicial = Date::Parse("31-12-2025");
    Evento& fill = fleet.Add(Especie::kGasto, "31-12-2026", static_cast<int>(i));
    fill.tipo = 0;
    fill.km = i == 2 ? 0 : 1000;
    fill.custo = i == 3 ? 900 : 120;
  }
  fleet.AA().dataMatricula = Date::Parse("01-01-2020");
  fleet.AA().valorInicial = 30000;
  fleet.AA().valorResidual = 780;  // 29,220 lost in the 2,922 days of eight years
  Pedido pedido;
  pedido.periodo = Periodo::Ano(2026);
  std::string text;
  for (const LinhaDoTotal& linha : CustoTotalDaFrota(fleet.Ready(), pedido).linhas)
    text += linha.matricula + " " + Shown(linha.eurKm) + " " + Shown(linha.eurMes) + " " +
            (linha.lugar ? std::to_string(*linha.lugar) : "-") + " " + Shown(linha.compra) + "; ";
  EXPECT_EQ(text, "A 0.12 10 1 3650; B 0.12 10 1 -; C - 10 - -; D 0.9 75 1 -; ");
}

TEST(Total, WhatAVehicleLosesIsSpreadToTheEndOfItsContractOrOverEightYears) {
  const struct {
    const char* registered;
    const char* ends;  // "-": no contract
    int bought;
    int sold;
    const char* lost;  // in 2026
  } cases[] = {{"01-01-2026", "31-12-2027", 7300, 0, "3650"},
               {"01-01-2025", "31-12-2025", 7300, 0, "0"},
               {"01-01-2025", "01-01-2025", 29220, 0, "3650"},
               {"01-01-2025", "31-12-2020", 29220, 0, "3650"},
               {"01-01-2025", "02-01-2025", 29220, 0, "0"},
               {"01-07-2026", "-", 29220, 0, "1840"},
               {"01-01-2018", "-", 29220, 0, "0"},
               {"01-01-2019", "-", 29220, 7305, "2737.5"},
               {"01-01-2025", "-", 500, 500, "-"},
               {"-", "31-12-2027", 7300, 0, "-"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.registered) + " " + c.ends);
    WrittenFleet fleet;
    if (*c.registered != '-') fleet.AA().dataMatricula = Date::Parse(c.registered);
    if (*c.ends != '-') fleet.AA().valContrato = Date::Parse(c.ends);
    fleet.AA().valorInicial = c.bought;
    fleet.AA().valorResidual = c.sold;
    Pedido pedido;
    pedido.periodo = Periodo::Ano(2026);
    EXPECT_EQ(Shown(CustoTotalDaFrota(fleet.Ready(), pedido).linhas.at(0).compra), c.lost);
  }
}

TEST(Emissoes, EachFillTakesTheFactorOfItsDay) {
  WrittenFleet fleet;
  fleet.frota.tipos[0].co2 = {{Day("01-01-2026"), Currency::FromDouble(2.5)}, {Day("01-02-2026"), 3}};
  fleet.Fills("31-12-2025 G 10 0 1;31-01-2026 G 10 0 1;01-02-2026 G 10 0 1;05-02-2026 H 7 0 1;- G 2 0 1");
  Pedido pedido;
  pedido.periodo = {Day("01-12-2025"), Day("28-02-2026")};
  const Emissoes emissoes = EmissoesDaFrota(fleet.Ready(), pedido);
  std::string cells;
  for (const Soma& celula : emissoes.total.celulas) cells += Shown(celula.valor()) + " ";
  EXPECT_EQ(cells + Shown(emissoes.semFactor.valor()), "0 25 30 17");
}

}  // namespace

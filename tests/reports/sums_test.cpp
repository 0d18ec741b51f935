#include <gtest/gtest.h>

#include <random>

#include "reports/consumos.h"
#include "reports/custos.h"
#include "reports/quilometros.h"
#include "reports/written_fleet.h"

namespace {

using namespace reports;
using testing_support::Day;
using testing_support::WrittenFleet;

/// A fleet of two vehicles with events of all kinds, some without a date, from 2023 to 2027.
WrittenFleet RandomFleet(unsigned seed) {
  std::mt19937 dice(seed);
  const auto roll = [&dice](int least, int most) {
    return least + static_cast<int>(dice() % static_cast<unsigned>(most - least + 1));
  };
  WrittenFleet fleet;
  const Date first = Date::FromParts(2023, 1, 1);
  for (int i = 0; i < 120; ++i) {
    const auto kind = static_cast<Especie>(roll(0, 6));
    Evento& evento = fleet.Add(kind, "-", roll(0, 1));
    if (roll(0, 9) != 0) evento.data = first.AddDays(roll(0, 1800));
    evento.custo = Currency::FromTenThousandths(roll(-10000, 30000000));
    evento.motorista = roll(-1, 1);
    if (kind == Especie::kApolice && roll(0, 3) != 0) evento.validade = evento.data.AddDays(roll(-5, 400));
    if (kind != Especie::kGasto && kind != Especie::kRevisao) continue;
    evento.km = roll(0, 3) == 0 ? Currency() : Currency(roll(1, 5) * 1000 + i * 250);
    if (kind != Especie::kGasto) continue;
    evento.tipo = roll(0, 3);
    evento.qtd = Currency::FromTenThousandths(roll(0, 900000));
  }
  for (Viatura& viatura : fleet.frota.viaturas) {
    viatura.departamento = roll(0, 1) == 0 ? "" : "D";
    viatura.dataKmInicial = first.AddDays(roll(-50, 300));
    viatura.mensalidade = Currency::FromTenThousandths(roll(0, 5000000));
    viatura.dataMatricula = first.AddDays(roll(0, 100));
    viatura.valContrato = first.AddDays(roll(0, 1500));
  }
  fleet.Ready();
  return fleet;
}

TEST(Sums, CellsOfCostsAddUpToTheEventsByEveryRowAndColumn) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    const WrittenFleet fleet = RandomFleet(seed);
    Soma events;
    for (const Evento& evento : fleet.frota.eventos) events += evento.custo;
    Pedido pedido;
    pedido.periodo = {Day("01-01-2020"), Day("31-12-2029")};
    CadaParcela(fleet.frota, pedido, pedido.periodo, [&](const Parcela& parcela) {
      if (parcela.evento == nullptr) events += parcela.valor;
    });
    for (const Por por : {Por::kViatura, Por::kDepartamento, Por::kMotorista, Por::kTipo})
      for (const Coluna coluna : {Coluna::kMes, Coluna::kTrimestre, Coluna::kAno})
        for (const bool spread : {true, false}) {
          pedido.por = por;
          pedido.coluna = coluna;
          pedido.premiosRepartidos = spread;
          const Custos custos = CustosDaFrota(fleet.frota, pedido);
          Soma cells;
          for (const LinhaDoPivot& linha : custos.linhas) {
            Soma row;
            for (const Soma& celula : linha.celulas) row += celula;
            EXPECT_EQ(row.valor(), linha.total.valor());
            cells += row;
            cells += linha.semData;
          }
          EXPECT_EQ(cells.valor(), events.valor());
          cells -= custos.total.total;
          cells -= custos.total.semData;
          EXPECT_TRUE(cells.EZero());
        }
  }
}

TEST(Sums, AFleetOfManyDriversHasARowForTheLastOfThem) {
  WrittenFleet fleet;
  fleet.frota.motoristas.resize(50);
  fleet.frota.motoristas.back().codigo = "50";
  Evento& fine = fleet.Add(Especie::kMulta, "05-03-2025");
  fine.motorista = 49;
  fine.custo = Currency(120);
  Pedido pedido;
  pedido.periodo = Periodo::Trimestre(2025, 1);
  pedido.por = Por::kMotorista;
  const Custos custos = CustosDaFrota(fleet.Ready(), pedido);
  ASSERT_EQ(custos.linhas.size(), 1U);
  EXPECT_EQ(custos.linhas[0].chave, "50");
  EXPECT_EQ(custos.total.total.valor(), Currency(120));
}

TEST(Sums, ThePeriodBeforeIsWhatItsOwnReportSays) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    const WrittenFleet fleet = RandomFleet(seed);
    Pedido pedido;
    for (const Periodo& periodo :
         {Periodo::Trimestre(2025, 2), Periodo{Day("05-03-2025"), Day("20-04-2025")}}) {
      pedido.periodo = periodo;
      const Custos este = CustosDaFrota(fleet.frota, pedido);
      pedido.periodo = periodo.Anterior();
      const Custos anterior = CustosDaFrota(fleet.frota, pedido);
      EXPECT_EQ(este.total.anterior.valor(), anterior.total.total.valor()) << seed;
    }
  }
}

TEST(Sums, LitresAndKilometresAddUpOverAnySplitOfTime) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    const WrittenFleet fleet = RandomFleet(seed);
    const Dia de = Day("01-01-2023"), ate = Day("31-12-2027");
    std::mt19937 dice(seed);
    const auto litros = [&](const Periodo& periodo) {
      Pedido pedido;
      pedido.periodo = periodo;
      Soma soma;
      for (const LinhaDeConsumo& linha : Consumos(fleet.frota, pedido).linhas) soma += linha.litros.value();
      return soma;
    };
    Soma parts, kilometres;
    std::int64_t days = 0;
    const Quilometragem km(fleet.frota, 0);
    for (Dia from = de; from <= ate;) {
      const Dia to = std::min<Dia>(ate, from + static_cast<Dia>(dice() % 200));
      parts += litros({from, to});
      kilometres += km.Em({from, to}).value();
      days += km.DiasEm({from, to});
      from = to + 1;
    }
    EXPECT_EQ(parts.valor(), litros({de, ate}).valor());
    EXPECT_EQ(kilometres.valor(), km.Em({de, ate}));
    EXPECT_EQ(days, km.DiasEm({de, ate}));
  }
}

}  // namespace

#include "reports/consumos.h"

#include <gtest/gtest.h>

#include "reports/written_fleet.h"

namespace {

using namespace reports;
using testing_support::Shown;
using testing_support::WrittenFleet;

/// "G 1000>1600 d600 n2 l90 c135 15 ±7.5 0.225; motive"
std::string Shown(const Frota& frota, const LinhaDeConsumo& linha) {
  std::string text = linha.tipo < 0 ? "-" : frota.tipos[static_cast<std::size_t>(linha.tipo)].codigo;
  text += " " + Shown(linha.kmBase) + ">" + Shown(linha.kmFim) + " d" + Shown(linha.distancia) + " n" +
          std::to_string(linha.contados) + " l" + Shown(linha.litrosContados) + " c" +
          Shown(linha.custoContado) + " " + Shown(linha.l100) + " ±" + Shown(linha.margem) + " " +
          Shown(linha.eurKm);
  return text + (linha.motivo.empty() ? "" : "; " + linha.motivo);
}

std::string LinesOf(const Frota& frota, const std::vector<LinhaDeConsumo>& linhas) {
  std::string text;
  for (const LinhaDeConsumo& linha : linhas) text += (text.empty() ? "" : "\n") + Shown(frota, linha);
  return text;
}

struct History {
  const char* name;
  int kmInicial;
  const char* fills;
  const char* de;
  const char* ate;
  const char* expected;
};

/// Worked out by hand.
const History kHistories[] = {
    {"nothing at all", 500, "", "01-01-2026", "31-12-2026", "- ->- d- n0 l0 c0 - ±- -; sem abastecimentos"},
    {"fills before and after the period only", 0, "31-12-2025 G 40 1000 60;01-01-2027 G 40 1500 60",
     "01-01-2026", "31-12-2026", "- ->- d- n0 l0 c0 - ±- -; sem abastecimentos"},
    {"first fill is the base", 0, "05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45;20-01-2026 G 33 2100 50",
     "01-01-2026", "31-01-2026", "G 1000>2100 d1100 n2 l63 c95 5.7273 ±3 0.0864"},
    {"initial kilometres are the base of the first type", 400,
     "05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45", "01-01-2026", "31-01-2026",
     "G 400>1500 d1100 n2 l70 c105 6.3636 ±3.6364 0.0955"},
    {"initial kilometres serve the first type alone", 400,
     "05-01-2026 G 40 1000 60;06-01-2026 H 10 1010 9;12-01-2026 H 30 1500 45", "01-01-2026", "31-01-2026",
     "G 400>1000 d600 n1 l40 c60 6.6667 ±6.6667 0.1\nH 1010>1500 d490 n1 l30 c45 6.1224 ±6.1224 0.0918"},
    {"initial kilometres don't count after earlier fills of another type", 400,
     "31-12-2025 H 10 900 9;05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45", "01-01-2026", "31-01-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"base before the period", 0, "20-12-2025 G 50 800 70;05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45",
     "01-01-2026", "31-01-2026", "G 800>1500 d700 n2 l70 c105 10 ±5.7143 0.15"},
    {"the last with kilometres before the period, though a higher one was before it", 0,
     "10-12-2025 G 50 900 70;20-12-2025 G 50 800 70;05-01-2026 G 40 1000 60", "01-01-2026", "31-01-2026",
     "G 800>1000 d200 n1 l40 c60 20 ±20 0.3"},
    {"litres between base and period without kilometres count", 0,
     "10-12-2025 G 50 900 70;20-12-2025 G 20 0 28;05-01-2026 G 40 1500 60", "01-01-2026", "31-01-2026",
     "G 900>1500 d600 n2 l60 c88 10 ±6.6667 0.1467"},
    {"earlier fills without kilometres: the base lies in the period", 400,
     "20-12-2025 G 20 0 28;05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45", "01-01-2026", "31-01-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"fills before the base in the period don't count", 0,
     "02-01-2026 G 20 0 28;05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45", "01-01-2026", "31-01-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"a lost reading: its litres count", 0,
     "05-01-2026 G 40 1000 60;08-01-2026 G 30 0 45;12-01-2026 G 30 2000 45", "01-01-2026", "31-01-2026",
     "G 1000>2000 d1000 n2 l60 c90 6 ±3 0.09"},
    {"a lower reading is none, its litres count", 0,
     "05-01-2026 G 40 1000 60;08-01-2026 G 30 150 45;12-01-2026 G 30 2000 45", "01-01-2026", "31-01-2026",
     "G 1000>2000 d1000 n2 l60 c90 6 ±3 0.09"},
    {"an equal reading is none", 0, "05-01-2026 G 40 1000 60;08-01-2026 G 30 1000 45;12-01-2026 G 30 2000 45",
     "01-01-2026", "31-01-2026", "G 1000>2000 d1000 n2 l60 c90 6 ±3 0.09"},
    {"litres after the last reading don't count", 0,
     "05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45;20-01-2026 G 99 0 150", "01-01-2026", "31-01-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"odometer changed: both counts, without the first of the three", 0,
     "01-01-2026 G 40 90000 60;05-01-2026 G 50 91000 70;10-01-2026 G 45 100 65;15-01-2026 G 48 900 68;"
     "20-01-2026 G 42 1700 58",
     "01-01-2026", "31-01-2026", "G 90000>1700 d2600 n3 l140 c196 5.3846 ±1.9231 0.0754"},
    {"two lower ones are no new count", 0,
     "01-01-2026 G 40 90000 60;05-01-2026 G 50 100 70;10-01-2026 G 45 900 65;15-01-2026 G 48 92000 68",
     "01-01-2026", "31-01-2026", "G 90000>92000 d2000 n3 l143 c203 7.15 ±2.5 0.1015"},
    {"three lower ones that don't ascend are no new count", 0,
     "01-01-2026 G 40 90000 60;05-01-2026 G 50 500 70;10-01-2026 G 45 400 65;15-01-2026 G 48 450 68",
     "01-01-2026", "31-01-2026", "G 90000>- d- n0 l0 c0 - ±- -; quilómetros não avançam"},
    {"two fuels never blend", 0,
     "05-01-2026 G 40 1000 60;06-01-2026 E 20 1010 8;12-01-2026 G 30 1500 45;13-01-2026 E 60 1510 24",
     "01-01-2026", "31-01-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09\nE 1010>1510 d500 n1 l60 c24 12 ±12 0.048"},
    {"no kilometres", 700, "05-01-2026 G 40 0 60;12-01-2026 G 30 0 45", "01-01-2026", "31-01-2026",
     "G 700>- d- n0 l0 c0 - ±- -; sem quilómetros"},
    {"one fill", 0, "05-01-2026 G 40 1000 60", "01-01-2026", "31-01-2026",
     "G 1000>- d- n0 l0 c0 - ±- -; só um abastecimento"},
    {"one fill with kilometres among others", 0,
     "02-01-2026 G 9 0 9;05-01-2026 G 40 1000 60;06-01-2026 G 9 0 9", "01-01-2026", "31-01-2026",
     "G 1000>- d- n0 l0 c0 - ±- -; só um abastecimento"},
    {"one fill that doesn't get beyond the base", 0, "05-12-2025 G 40 1000 60;05-01-2026 G 40 1000 60",
     "01-01-2026", "31-01-2026", "G 1000>- d- n0 l0 c0 - ±- -; quilómetros não avançam"},
    {"fills without a date alone", 0, "- G 40 1000 60", "01-01-2026", "31-01-2026",
     "G ->- d- n0 l0 c0 - ±- -; sem data"},
    {"vehicle sold: the last reading ends it", 0,
     "05-01-2026 G 40 1000 60;12-03-2026 G 30 1500 45;- G 20 9000 30", "01-01-2026", "31-12-2026",
     "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"of one moment the lower number comes first", 0,
     "05-01-2026 G 40 1000 60;06-01-2026 G 10 1100 15;06-01-2026 G 20 1050 30", "01-01-2026", "31-01-2026",
     "G 1000>1100 d100 n1 l10 c15 10 ±10 0.15"},
    {"whole days: the last evening is in", 0, "05-01-2026 G 40 1000 60;31-01-2026 23:59:59 G 30 1500 45",
     "01-01-2026", "31-01-2026", "G 1000>1500 d500 n1 l30 c45 6 ±6 0.09"},
    {"what does not fit", 0, "05-01-2026 G 40 1000 60;08-01-2026 G 900000000000000 1000.5 45", "01-01-2026",
     "31-01-2026", "G 1000>1000.5 d0.5 n1 l900000000000000 c45 - ±- 90; não cabe"},
    {"litres that together do not fit", 0,
     "05-01-2026 G 40 1000 60;08-01-2026 G 600000000000000 900000 45;09-01-2026 G 600000000000000 950000 45",
     "01-01-2026", "31-01-2026", "G 1000>950000 d949000 n2 l- c90 - ±63224446786.0906 0.0001; não cabe"},
    {"costs that together do not fit", 0,
     "05-01-2026 G 40 1000 60;08-01-2026 G 30 2000 600000000000000;09-01-2026 G 30 3000 600000000000000",
     "01-01-2026", "31-01-2026", "G 1000>3000 d2000 n2 l60 c- 3 ±1.5 -; não cabe"},
    {"a price that does not fit", 0, "05-01-2026 G 0.5 1000 0;08-01-2026 G 0.01 901000 900000000000000",
     "01-01-2026", "31-01-2026", "G 1000>901000 d900000 n1 l0.01 c900000000000000 0 ±0 1000000000; não cabe"},
    {"a price of the kilometre that does not fit", 0,
     "05-01-2026 G 40 1000 60;08-01-2026 G 9000 1000.5 900000000000000", "01-01-2026", "31-01-2026",
     "G 1000>1000.5 d0.5 n1 l9000 c900000000000000 1800000 ±1800000 -; não cabe"},
};

TEST(Consumos, HistoriesGiveWhatWasWorkedOutByHand) {
  for (const History& history : kHistories) {
    SCOPED_TRACE(history.name);
    WrittenFleet fleet;
    fleet.frota.viaturas.pop_back();
    fleet.AA().kmInicial = history.kmInicial;
    std::string fills = history.fills;
    // A time belongs to its date: the fleet's reader parts words by blanks.
    const auto time = fills.find(" 23:59:59");
    if (time != std::string::npos) fills.erase(time, 9);
    fleet.Fills(fills);
    if (time != std::string::npos)
      fleet.frota.eventos.back().data = platform::Date::Parse("31-01-2026 23:59:59");
    Pedido pedido;
    pedido.periodo = {testing_support::Day(history.de), testing_support::Day(history.ate)};
    EXPECT_EQ(LinesOf(fleet.frota, Consumos(fleet.Ready(), pedido).linhas), history.expected);
  }
}

TEST(Consumos, GroupsAddLitresAndDistancesOfTheLinesThatHaveOne) {
  WrittenFleet fleet;
  fleet.Fills(
      "05-01-2026 G 40 1000 60;12-01-2026 G 30 1500 45;13-01-2026 E 10 1600 4;20-01-2026 E 50 2100 20");
  fleet.Fills("05-01-2026 G 40 1000 60;12-01-2026 G 90 2500 140;13-01-2026 H 25 0 30");
  for (std::size_t i = 4; i < 7; ++i) fleet.frota.eventos[i].viatura = 1;
  for (Viatura& viatura : fleet.frota.viaturas) viatura.departamento = "D";
  Pedido pedido;
  pedido.periodo = Periodo::Ano(2026);
  pedido.por = Por::kDepartamento;
  const MapaDeConsumos mapa = Consumos(fleet.Ready(), pedido);
  EXPECT_EQ(LinesOf(fleet.frota, mapa.grupos),
            "E ->- d500 n1 l50 c20 10 ±10 0.04\n"
            "G ->- d2000 n2 l120 c185 6 ±4.5 0.0925\n"
            "H ->- d- n0 l0 c0 - ±- -; sem quilómetros");
  EXPECT_EQ(mapa.grupos[1].chave, "D");
  EXPECT_EQ(LinesOf(fleet.frota, mapa.totais), LinesOf(fleet.frota, mapa.grupos));
}

}  // namespace

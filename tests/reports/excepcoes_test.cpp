#include "reports/rules/excepcoes.h"

#include <gtest/gtest.h>

#include "reports/written_fleet.h"
#include "support/whole_text.h"

namespace {

using namespace reports;
using testing_support::WrittenFleet;

/// Two vehicles with a quiet past: fills of 60 L each 1,000 km, on Mondays, at one price.
struct Rules {
  Rules() {
    for (int i = 0; i < 12; ++i) Fill(monday_.AddDays(7L * i), 60, 10000 + 1000 * i);
    fleet.AA().categoria = "PES";
    fleet.frota.classeDaCategoria["PES"] = 1;
    fleet.frota.tiposDoCombustivel[0] = {0, 2};
  }

  Evento& Fill(Date when, int litres, int km) {
    Evento& fill = fleet.Add(Especie::kGasto, "-");
    fill.data = when;
    fill.tipo = 0;
    fill.qtd = litres;
    fill.km = km;
    fill.valorUn = Currency::FromDouble(1.6);
    fill.custo = fill.qtd * fill.valorUn;
    fill.motorista = 0;
    return fill;
  }
  /// The next fill as it should be: 30-03-2026.
  Evento& Next(int litres = 60, int km = 22000) { return Fill(monday_.AddDays(84), litres, km); }

  /// "rule id; …" of all findings.
  std::string Found() {
    Pedido pedido;
    pedido.periodo = Periodo::Ano(2026);
    std::string text;
    for (const Achado& achado : Excepcoes(fleet.Ready(), pedido, ajustes)) {
      text += std::string(text.empty() ? "" : "; ") + TextosDe(achado.regra).chave + " " +
              std::to_string(achado.evento->id);
      texts += "  " + achado.texto + "\n";
    }
    return text;
  }

  const Date monday_ = Date::Parse("05-01-2026 10:00");
  WrittenFleet fleet;
  Ajustes ajustes = AjustesIniciais();
  std::string texts;
};

TEST(Excepcoes, AQuietFleetHasNone) {
  Rules rules;
  rules.Next();
  EXPECT_EQ(rules.Found(), "");
}

TEST(Excepcoes, EachRuleFindsItsFault) {
  struct Case {
    const char* name;
    std::function<void(Rules&)> fault;
    const char* found;
  };
  const Case cases[] = {
      {"consumption of two intervals above a quarter more", [](Rules& r) { r.Next(91); },
       "consumo 13; deposito 13"},
      {"a quarter more is not above it", [](Rules& r) { r.Next(90); }, ""},
      {"consumption far below", [](Rules& r) { r.Next(29); }, "consumo 13"},
      {"more than the tank holds",
       [](Rules& r) {
         r.fleet.AA().deposito = 60;
         r.Next(61);
       },
       "deposito 13"},
      {"the second of a day", [](Rules& r) { r.Next(30, 21500), r.Fill(r.monday_.AddDays(84), 31, 22000); },
       "mesmo_dia 14"},
      {"kilometres that go back", [](Rules& r) { r.Next(60, 20999); }, "km_recua 13"},
      {"too far since the last reading", [](Rules& r) { r.Next(60 * 11, 21000 + 10501); },
       "deposito 13; km_por_dia 13"},
      {"as far as may be", [](Rules& r) { r.Next(80, 21000 + 10500); }, "consumo 13"},
      {"price off the month's median", [](Rules& r) { r.Next().valorUn = Currency::FromDouble(1.8401); },
       "preco 13"},
      {"price among those below one",
       [](Rules& r) {
         for (Evento& fill : r.fleet.frota.eventos) fill.valorUn = Currency::FromDouble(0.9);
         r.Next().valorUn = Currency::FromDouble(0.7);
       },
       "preco 13"},
      {"price as far off as may be", [](Rules& r) { r.Next().valorUn = Currency::FromDouble(1.84); }, ""},
      {"after it went out of service",
       [](Rules& r) {
         r.fleet.AA().foraDeServico = Date::Parse("23-03-2026");
         r.Next();
       },
       "inactiva 13"},
      {"a Sunday, when asked for",
       [](Rules& r) {
         r.ajustes[static_cast<std::size_t>(Regra::kFimDeSemana)].activa = true;
         r.Fill(Date::Parse("29-03-2026 12:00"), 60, 22000);
       },
       "fim_de_semana 13"},
      {"at night, when asked for; midnight is no time",
       [](Rules& r) {
         r.ajustes[static_cast<std::size_t>(Regra::kNoite)].activa = true;
         r.Fill(Date::Parse("30-03-2026 00:00"), 60, 22000);
         r.Fill(Date::Parse("31-03-2026 22:00"), 60, 23000);
         r.Fill(Date::Parse("02-04-2026 05:59"), 60, 24000);
         r.Fill(Date::Parse("03-04-2026 06:00"), 60, 25000);
       },
       "noite 14; noite 15"},
      {"a type that the vehicle doesn't take", [](Rules& r) { r.Next().tipo = 1; }, "combustivel 13"},
      {"equal expenses of one day",
       [](Rules& r) {
         for (const int custo : {5, 6, 5}) {
           Evento& toll = r.fleet.Add(Especie::kGasto, "10-03-2026");
           toll.tipo = 3;
           toll.custo = custo;
         }
       },
       "repetido 15"},
      {"a licence that had run out, also for a fine",
       [](Rules& r) {
         r.fleet.frota.motoristas[1].validadeDaCarta = Date::Parse("22-03-2026");
         r.Next().motorista = 1;
         r.fleet.Add(Especie::kMulta, "22-03-2026").motorista = 1;
         r.fleet.Add(Especie::kMulta, "23-03-2026").motorista = 1;
       },
       "carta 15; carta 13"},
      {"the class of the vehicle's category alone",
       [](Rules& r) {
         r.fleet.frota.motoristas[1].classes = {{0, Date::Parse("01-01-2020")},
                                                {1, Date::Parse("22-03-2026")}};
         r.Next().motorista = 1;
       },
       "carta 13"},
      {"a plate that does not exist",
       [](Rules& r) {
         r.fleet.frota.viaturas[1].existe = false;
         r.fleet.Add(Especie::kRevisao, "10-03-2026", 1);
       },
       "sem_viatura 13"},
      {"a driver who does not exist",
       [](Rules& r) {
         r.fleet.frota.motoristas[1].existe = false;
         r.Next().motorista = 1;
       },
       "sem_motorista 13"},
      {"a rule that is off",
       [](Rules& r) {
         r.ajustes[static_cast<std::size_t>(Regra::kKmRecua)].activa = false;
         r.Next(60, 20999);
       },
       ""},
  };
  std::string texts;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Rules rules;
    c.fault(rules);
    EXPECT_EQ(rules.Found(), c.found) << rules.texts;
    texts += std::string(c.name) + "\n" + rules.texts;
  }
  testing_support::ExpectWholeText(PARVEL_SOURCE_DIR "/tests/reports/findings.txt", texts);
}

}  // namespace

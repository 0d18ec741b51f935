#include <algorithm>
#include <array>

#include "demo/demo_parts.h"
#include "events/expense_figures.h"
#include "events/gastos.h"
#include "platform/host.h"
#include "vehicles/viaturas.h"

namespace demo {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;

constexpr int kVehicles = 40;
constexpr int kDaysOfHistory = 3 * 365;
constexpr int kMonthsOfLeasing = 96;

/// A model as fleets use it.
struct Profile {
  const char* marca;
  const char* modelo;
  const char* categoria;
  const char* departamento;
  std::int16_t combustivel;  // of the vehicle: 0 Diesel, 1 Gasolina, 2 GPL, 3 Eléctrico
  const char* tipoGasto;
  int price;        // of a unit, thousandths of a euro
  int consumption;  // tenths of a unit per 100 km
  int tank;         // units
  int kmPerDay;
  const char* cilindrada;
};

constexpr std::array kProfiles = {
    Profile{"REN", "KANGOO", "LIGM", "DIST", 0, "GASOLEO", 1659, 62, 54, 110, "1461"},
    Profile{"REN", "CLIO", "LIGP", "COM", 1, "GASOLINA", 1749, 58, 42, 70, "999"},
    Profile{"REN", "MASTER", "LIGM", "DIST", 0, "GASOLEO", 1659, 93, 80, 140, "2299"},
    Profile{"PEUG", "PARTNER", "LIGM", "MAN", 0, "GASOLEO", 1659, 60, 50, 90, "1499"},
    Profile{"PEUG", "BOXER", "LIGM", "OBRAS", 0, "GASOLEO", 1659, 98, 90, 95, "2179"},
    Profile{"CITR", "BERLINGO", "LIGM", "MAN", 0, "GASOLEO", 1659, 59, 50, 85, "1499"},
    Profile{"VW", "GOLF", "LIGP", "COM", 0, "GASOLEO", 1659, 52, 50, 130, "1968"},
    Profile{"VW", "CRAFTER", "LIGM", "ARM", 0, "GASOLEO", 1659, 101, 75, 120, "1968"},
    Profile{"OPEL", "CORSA", "LIGP", "QUAL", 2, "GPL", 899, 82, 40, 60, "1199"},
    Profile{"TESLA", "MODEL3", "LIGP", "ADM", 3, "ELECTRIC", 390, 165, 60, 95, ""},
    Profile{"TOY", "YARIS", "LIGP", "COM", 1, "GASOLINA", 1749, 43, 36, 75, "1490"},
    Profile{"SKODA", "OCTAVIA", "LIGP", "ADM", 0, "GASOLEO", 1659, 49, 50, 115, "1968"},
    Profile{"MERC", "SPRINTER", "TESC", "TRP", 0, "GASOLEO", 1659, 105, 93, 80, "2143"},
    Profile{"MERC", "ACTROS", "PESM", "TRP", 0, "GASOLEO", 1659, 285, 620, 380, "12809"},
    Profile{"VOLVO", "FH460", "PESM", "TRP", 0, "GASOLEO", 1659, 272, 600, 410, "12777"},
    Profile{"DAF", "XF480", "PESM", "TRP", 0, "GASOLEO", 1659, 279, 610, 360, "12902"},
};

struct OtherCost {
  const char* tipo;
  int everyDays;
  int least;  // euros
  int most;
  const char* obs;
};

constexpr std::array kOtherCosts = {
    OtherCost{"PORTAGEM", 30, 12, 140, "Via Verde"}, OtherCost{"LAVAGEM", 45, 8, 25, ""},
    OtherCost{"ESTAC", 40, 3, 18, "Parque"}, OtherCost{"PNEUS", 400, 20, 60, "Furo"}};

constexpr std::array kStations = {"Posto da A1, Aveiras", "Posto da A2, Alcácer", "Posto de Leça",
                                  "Posto do Marão",       "Posto da Ponte",       "Posto do Freixo",
                                  "Posto de Loures",      "Posto de Évora"};

/// A plate in the series of its year.
std::string Plate(DemoDice& dice, int year, int number) {
  const auto letter = [&] { return std::string(1, "ABCDEFGHIJLMNOPQRSTUVXZ"[dice.Roll(0, 22)]); };
  const auto pair = [](int value) { return std::string(value < 10 ? "0" : "") + std::to_string(value); };
  const std::string low = pair(number);
  const std::string high = pair(dice.Roll(0, 99));
  if (year < 2020) return low + "-" + letter() + letter() + "-" + high;
  return "A" + letter() + "-" + low + "-" + letter() + letter();
}

class Vehicle {
 public:
  Vehicle(const DataAccessRef& bd, DemoDice& dice, const std::vector<std::string>& drivers, int number)
      : dice_(dice),
        drivers_(drivers),
        profile_(kProfiles[static_cast<std::size_t>(number) % kProfiles.size()]) {
    viatura_.bd = bd;
    gasto_.bd = bd;
    const int age = dice.Roll(2, 9);
    const Date registered = today_.AddDays(-age * 365 - dice.Roll(0, 300));
    viatura_.DataMatricula = registered;
    viatura_.AnoMatricula = static_cast<std::int16_t>(registered.year());
    viatura_.Matricula = Plate(dice, registered.year(), number + 10);
    start_ = std::max(registered, today_.AddDays(-kDaysOfHistory));
    km_ = static_cast<int>(platform::DaysBetween(registered, start_)) * profile_.kmPerDay / 2 +
          dice.Roll(5, 60);
    driver_ = dice.Pick(drivers_);
  }

  void Write() {
    viatura_.KmInicial = viatura_.KmActual = km_;
    viatura_.DataKmInicial = start_;
    Describe();
    PlanAhead();
    viatura_.Escrever();
    Fill();
    for (const OtherCost& cost : kOtherCosts) Spend(cost);
    WriteForReports(viatura_, profile_.tank, profile_.kmPerDay);
    RecalcularViatura(viatura_.bd, viatura_.Matricula);
  }

 private:
  void Describe() {
    viatura_.Marca = profile_.marca;
    viatura_.Modelo = profile_.modelo;
    viatura_.Categoria = profile_.categoria;
    viatura_.Departamento = profile_.departamento;
    viatura_.Combustivel = profile_.combustivel;
    viatura_.Cilindrada = profile_.cilindrada;
    viatura_.Responsavel = "Departamento " + viatura_.Departamento;
    viatura_.NoMotor = "M" + std::to_string(dice_.Roll(100000, 999999));
    viatura_.NoChassis =
        "VF1" + std::to_string(dice_.Roll(10000000, 99999999)) + std::to_string(dice_.Roll(100000, 999999));
    viatura_.Inactiva = dice_.Roll(1, 20) == 1 ? 1 : 0;
    if (dice_.Roll(1, 3) != 1) return;
    viatura_.CompLeasing = dice_.Roll(0, 1) == 0 ? "DOURO" : "LUSITRUST";
    viatura_.NoContrato = "L-" + std::to_string(dice_.Roll(10000, 99999));
    viatura_.ValContrato = viatura_.DataMatricula.AddMonths(kMonthsOfLeasing);
    viatura_.ValorInicial = dice_.Roll(14, 95) * 1000;
    viatura_.ValorResidual = Currency(dice_.Roll(2, 9) * 500);
    viatura_.Mensalidade = Currency(dice_.Roll(180, 1400));
  }

  /// Next dates spread around today, so that something is always due.
  void PlanAhead() {
    const bool heavy = std::string_view(profile_.categoria).rfind("PES", 0) == 0;
    viatura_.DataPrxRev = today_.AddDays(dice_.Roll(-15, 240));
    viatura_.DataPrxInsp = today_.AddDays(dice_.Roll(5, 360));
    viatura_.Tacografo = heavy ? 1 : 0;
    viatura_.DtDescarga = today_.AddDays(dice_.Roll(-4, 27));
    const Date first = Date::FromParts(today_.year(), viatura_.DataMatricula.month(), 1);
    viatura_.DataSelo = first.AddMonths(1).AddDays(-1);
    viatura_.SeloPago = viatura_.DataSelo < today_.AddDays(-10);
  }

  void Fill() {
    Date when = start_;
    int km = km_;
    while (when < today_) {
      const int units = profile_.tank * dice_.Roll(62, 94) / 100;
      Store(when, profile_.tipoGasto, units * 10 + dice_.Roll(0, 9), km);
      const int distance = units * 1000 / (profile_.consumption + dice_.Roll(-4, 5));
      km += distance;
      when = when.AddDays(std::max(1, distance / profile_.kmPerDay));
    }
  }

  /// A fill of `tenths` of a unit.
  void Store(Date day, const char* tipo, int tenths, int km) {
    gasto_.Codigo = viatura_.Matricula;
    gasto_.Data = Date::FromParts(day.year(), day.month(), day.day(), dice_.Roll(6, 20), dice_.Roll(0, 59));
    gasto_.TipoGasto = tipo;
    gasto_.Motorista = dice_.Roll(1, 6) == 1 ? dice_.Pick(drivers_) : driver_;
    gasto_.Viagem.clear();
    gasto_.Qtd = Currency::FromTenThousandths(std::int64_t{tenths} * 1000);
    gasto_.ValorUn = Currency::FromTenThousandths((profile_.price + dice_.Roll(-60, 60)) * std::int64_t{10});
    gasto_.Custo = gasto_.Qtd * gasto_.ValorUn;
    gasto_.Km = km;
    gasto_.Obs = dice_.Pick(kStations);
    gasto_.Escrever();
  }

  void Spend(const OtherCost& cost) {
    for (Date day = start_.AddDays(dice_.Roll(1, cost.everyDays)); day < today_;
         day = day.AddDays(cost.everyDays + dice_.Roll(-5, 5))) {
      gasto_.Codigo = viatura_.Matricula;
      gasto_.Data = day;
      gasto_.TipoGasto = cost.tipo;
      gasto_.Motorista = driver_;
      gasto_.Viagem = std::string_view(cost.tipo) == "PORTAGEM" ? "NORTE" : "";
      gasto_.Qtd = 1;
      gasto_.ValorUn = gasto_.Custo =
          Currency::FromTenThousandths(std::int64_t{dice_.Roll(cost.least * 100, cost.most * 100)} * 100);
      gasto_.Km = 0;
      gasto_.Obs = cost.obs;
      gasto_.Escrever();
    }
  }

  DemoDice& dice_;
  const std::vector<std::string>& drivers_;
  const Profile& profile_;
  const Date today_ = platform::Today();
  clViaturas viatura_;
  clGastos gasto_;
  Date start_;
  int km_ = 0;
  std::string driver_;
};

}  // namespace

void FillDemoFleet(const DataAccessRef& bd, const std::vector<std::string>& drivers, DemoDice& dice) {
  for (int number = 0; number < kVehicles; ++number) Vehicle(bd, dice, drivers, number).Write();
}

}  // namespace demo

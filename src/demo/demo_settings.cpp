#include <algorithm>
#include <array>

#include "demo/demo_parts.h"
#include "platform/host.h"

namespace demo {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;
using platform::DaysBetween;

struct Fuel {
  std::int16_t combustivel;  // of vehicles
  const char* tipoGasto;
  const char* unidade;
  std::int64_t co2;  // ten-thousandths of a kg a unit
};

constexpr std::array kFuels = {Fuel{0, "GASOLEO", "L", 26800}, Fuel{1, "GASOLINA", "L", 23100},
                               Fuel{2, "GPL", "L", 16100}, Fuel{3, "ELECTRIC", "kWh", 1800}};

constexpr int kYearOfFactors = 2020;
constexpr int kDaysOfYear = 365;

/// A new row of one of the hosts' own tables.
RecordsetRef NewRow(const DataAccessRef& bd, const std::string& table, const std::string& key,
                    const std::string& value) {
  RecordsetRef rows;
  bd->AbrirEdicao(
      {"SELECT * FROM ", fixed(table), " WHERE ", fixed(key), "=N'", zorCrmParvel::value(value), "'"}, rows);
  rows->AddNew();
  rows->Fields(key).SetValue(value);
  return rows;
}

}  // namespace

void FillDemoSettings(const DataAccessRef& bd) {
  for (const Fuel& fuel : kFuels) {
    const RecordsetRef unit = NewRow(bd, "parvel_TiposGastos", "TipoGasto", fuel.tipoGasto);
    unit->Fields("Unidade").SetValue(std::string(fuel.unidade));
    unit->Update();
    const RecordsetRef factor = NewRow(bd, "parvel_FactoresCO2", "TipoGasto", fuel.tipoGasto);
    factor->Fields("Desde").SetValue(Date::FromParts(kYearOfFactors, 1, 1));
    factor->Fields("Kg").SetValue(Currency::FromTenThousandths(fuel.co2));
    factor->Update();
    const RecordsetRef taken = NewRow(bd, "parvel_TiposAceites", "TipoGasto", fuel.tipoGasto);
    taken->Fields("Combustivel").SetValue(fuel.combustivel);
    taken->Update();
  }
}

/// Limits are what the vehicle usually does, a little more or less: some contracts run away.
void WriteForReports(const clViaturas& vehicle, int tank, int kmPerDay) {
  const RecordsetRef row = NewRow(vehicle.bd, "parvel_Viaturas", "Matricula", vehicle.Matricula);
  row->Fields("Deposito").SetValue(Currency(tank));
  if (vehicle.Inactiva != 0) row->Fields("ForaDeServico").SetValue(platform::Today());
  if (!vehicle.NoContrato.empty()) {
    const int share = 80 + kmPerDay % 4 * 15;  // per cent
    const std::int64_t days =
        std::max<std::int64_t>(kDaysOfYear, DaysBetween(vehicle.DataKmInicial, vehicle.ValContrato));
    row->Fields("LimiteKm").SetValue(Currency(static_cast<int>(days * kmPerDay * share / 100 / 1000 * 1000)));
    row->Fields("InicioLeasing").SetValue(vehicle.DataKmInicial);
    row->Fields("EurosKm").SetValue(Currency::FromTenThousandths(500));
  }
  row->Update();
}

}  // namespace demo

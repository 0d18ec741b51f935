#include "exchange/plan/km_proposals.h"

#include <cmath>
#include <iterator>

#include "exchange/plan/source_row.h"
#include "masterdata/tipos_gastos.h"
#include "vehicles/viaturas.h"

namespace exchange {

using platform::Currency;
using platform::Date;
using zorCrmParvel::value;

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kLooksBack = 90 * kDay;

/// Whole kilometres on the line through two readings.
std::optional<Currency> OnLine(Date a, Currency kmA, Date b, Currency kmB, Date date) {
  const auto span = static_cast<double>(b.seconds() - a.seconds());
  if (span <= 0 || kmB < kmA) return std::nullopt;
  const double share = static_cast<double>(date.seconds() - a.seconds()) / span;
  return Currency(static_cast<long long>(std::floor(kmA.ToDouble() + share * (kmB - kmA).ToDouble())));
}

}  // namespace

std::optional<Currency> KmProposals::Propose(const std::string& plate, Date date) {
  Readings& readings = ReadingsOf(plate);
  const auto after = readings.lower_bound(date);
  if (after == readings.begin()) return std::nullopt;
  const auto before = std::prev(after);
  if (after != readings.end())
    return OnLine(before->first, before->second, after->first, after->second, date);
  const auto oldest = readings.lower_bound(Date::FromSeconds(before->first.seconds() - kLooksBack));
  if (oldest == before) return std::nullopt;
  return OnLine(oldest->first, oldest->second, before->first, before->second, date);
}

bool KmProposals::IsFuel(const std::string& code) {
  const auto [place, fresh] = fuels_.try_emplace(code, false);
  if (fresh) {
    zorCrmParvel::clTiposGastos type;
    type.bd = plan_.bd;
    type.Codigo = code;
    place->second = type.Ler() && type.Combustivel == 1;
  }
  return place->second;
}

KmProposals::Readings& KmProposals::ReadingsOf(const std::string& plate) {
  const auto [place, fresh] = stored_.try_emplace(plate);
  Readings& readings = place->second;
  if (!fresh) return readings;
  ReadFile();
  readings = file_[plate];
  zorCrmParvel::clViaturas vehicle;
  vehicle.bd = plan_.bd;
  vehicle.Matricula = plate;
  if (vehicle.Ler() && vehicle.KmInicial > 0) readings.emplace(vehicle.DataKmInicial, vehicle.KmInicial);
  zorCrmParvel::RecordsetRef rows;
  plan_.bd->AbrirLeitura("",
                         {"SELECT G.Data, G.Km FROM zor_PV_Gastos G INNER JOIN zor_PV_TiposGastos T ON "
                          "T.Codigo=G.TipoGasto WHERE G.Matricula=N'",
                          value(plate), "' and T.Combustivel=1 and G.Km>0"},
                         rows);
  for (; !rows->Eof(); rows->MoveNext())
    readings.emplace(rows->Fields("Data").Value().ToDate(), rows->Fields("Km").Value().ToCurrency());
  rows->Close();
  return readings;
}

void KmProposals::ReadFile() {
  if (fileRead_) return;
  fileRead_ = true;
  std::vector<TableCell> cells;
  MappedRow mapped{
      .row = ImportRow(plan_.mapper->columns()), .refusal = {}, .warning = {}, .transaction = {}};
  for (std::size_t i = 0; i < plan_.table.rows.size(); ++i) {
    if (plan_.table.rows[i].state == RowState::kAside) continue;
    plan_.mapper->Map(plan_.Source(i, cells), mapped);
    const auto km = mapped.row.number("Km");
    const auto date = mapped.row.date("Data");
    if (km && date && *km > 0) file_[mapped.row.text("Matricula")].emplace(*date, *km);
  }
}

}  // namespace exchange

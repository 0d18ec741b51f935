#include "exchange/import_codes.h"
#include "exchange/import_targets.h"
#include "masterdata/code_table.h"
#include "platform/host.h"
#include "vehicles/computed_dates.h"
#include "vehicles/viaturas.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;

/// What a vehicle gets whose next revision nobody set by kilometres. The column may not be null, and 0 would
/// be told as overdue for ever.
constexpr Currency kSemKmDeRevisao = Currency::FromTenThousandths(std::int64_t{9'999'999} * 10'000);

/// Vehicles that exist stay as they are.
class VehicleTarget : public ImportTarget {
 public:
  explicit VehicleTarget(const DataAccessRef& bd)
      : bd_(bd), makes_(bd), models_(bd), categories_(bd), departments_(bd), companies_(bd) {}

  const std::vector<ImportColumn>& Columns() const override {
    using K = ColumnKind;
    static const std::vector<ImportColumn> columns = {
        {"Matricula", K::kText, 10, true}, {"Marca", K::kText, 10},       {"Modelo", K::kText, 10},
        {"Responsavel", K::kText, 40},     {"Categoria", K::kText, 10},   {"Departamento", K::kText, 10},
        {"KmInicial", K::kInteger},        {"KmActual", K::kInteger},     {"DataKmInicial", K::kDate},
        {"DataMatricula", K::kDate},       {"AnoMatricula", K::kInteger}, {"NoMotor", K::kText, 15},
        {"Cilindrada", K::kText, 10},      {"CompLeasing", K::kText, 10}, {"NoContrato", K::kText, 20},
        {"ValContrato", K::kDate},         {"ValorInicial", K::kNumber},  {"ValorResidual", K::kNumber},
        {"Mensalidade", K::kNumber},       {"QtdInicial", K::kNumber},    {"Obs", K::kText, 150},
        {"NoChassis", K::kText, 50},       {"Combustivel", K::kInteger},  {"DataPrxRev", K::kDate},
        {"DataPrxInsp", K::kDate},         {"KmPrxRev", K::kInteger},     {"Inactiva", K::kInteger},
        {"Tacografo", K::kInteger},        {"DtDescarga", K::kDate},      {"DataSelo", K::kDate},
        {"SeloPago", K::kInteger}};
    return columns;
  }

  Outcome Store(const ImportRow& row) override {
    RefuseApostrophe("Matricula", row.text("Matricula"));
    clViaturas viatura;
    viatura.bd = bd_;
    viatura.Matricula = row.text("Matricula");
    if (viatura.Ler()) return Outcome::kKnown;
    Check(row);
    Take(row, viatura);
    viatura.Escrever();
    return Outcome::kAdded;
  }

 private:
  void Check(const ImportRow& row) {
    if (row.given("Marca")) makes_.Require("Marca", row.text("Marca"), "Marca não existente!");
    if (row.given("Modelo")) models_.Require("Modelo", row.text("Modelo"), "Modelo não existente!");
    if (row.given("Categoria"))
      categories_.Require("Categoria", row.text("Categoria"), "Categoria não existente!");
    if (row.given("Departamento"))
      departments_.Require("Departamento", row.text("Departamento"), "Departamento não existente!");
    if (!row.text("CompLeasing").empty())
      companies_.Require("CompLeasing", row.text("CompLeasing"), "Companhia não existente!");
    if (row.given("AnoMatricula")) {
      if (!row.number("AnoMatricula")) throw Refusal{"AnoMatricula", "Campo obrigatório!"};
      const int year = row.integer("AnoMatricula");
      if (year < 1951 || year >= platform::Today().year()) throw Refusal{"AnoMatricula", "Valor inválido!"};
    }
    if (row.integer("Combustivel") < 0 || row.integer("Combustivel") > 3)
      throw Refusal{"Combustivel", "Valor inválido!"};
  }

  static void Take(const ImportRow& row, clViaturas& viatura) {
    const Date today = platform::Today();
    const auto number = [&](const char* column) { return row.number(column).value_or(Currency()); };
    viatura.Marca = row.text("Marca");
    viatura.Modelo = row.text("Modelo");
    viatura.Responsavel = row.text("Responsavel");
    viatura.Categoria = row.text("Categoria");
    viatura.Departamento = row.text("Departamento");
    viatura.KmInicial = number("KmInicial");
    viatura.KmActual = number("KmActual") == 0 ? viatura.KmInicial : number("KmActual");
    viatura.DataKmInicial = row.date("DataKmInicial").value_or(today);
    viatura.DataMatricula = row.date("DataMatricula").value_or(today);
    viatura.AnoMatricula = row.integer("AnoMatricula");
    viatura.NoMotor = row.text("NoMotor");
    viatura.Cilindrada = row.text("Cilindrada");
    viatura.CompLeasing = row.text("CompLeasing");
    viatura.NoContrato = row.text("NoContrato");
    viatura.ValContrato = row.date("ValContrato").value_or(Date());
    viatura.ValorInicial = number("ValorInicial");
    viatura.ValorResidual = number("ValorResidual");
    viatura.Mensalidade = number("Mensalidade");
    viatura.QtdInicial = number("QtdInicial");
    viatura.Obs = row.text("Obs");
    viatura.NoChassis = row.text("NoChassis");
    viatura.Combustivel = row.integer("Combustivel");
    viatura.DataPrxRev = row.date("DataPrxRev").value_or(Date());
    viatura.DataPrxInsp = row.date("DataPrxInsp").value_or(Date());
    viatura.KmPrxRev = row.number("KmPrxRev").value_or(kSemKmDeRevisao);
    viatura.Inactiva = row.integer("Inactiva") != 0 ? 1 : 0;
    viatura.Tacografo = row.integer("Tacografo") != 0 ? 1 : 0;
    viatura.DtDescarga = row.date("DtDescarga").value_or(today);
    viatura.DataSelo = row.date("DataSelo").value_or(FimDoPrazoDoSelo(viatura.DataMatricula.month(), today));
    viatura.SeloPago = row.integer("SeloPago") != 0;
  }

  DataAccessRef bd_;
  Codes<clMarcas> makes_;
  Codes<clModelos> models_;
  Codes<clCategorias> categories_;
  Codes<clDepartamentos> departments_;
  Codes<clCompanhias> companies_;
};

}  // namespace

std::unique_ptr<ImportTarget> MakeVehicleImport(const DataAccessRef& bd) {
  return std::make_unique<VehicleTarget>(bd);
}

}  // namespace exchange

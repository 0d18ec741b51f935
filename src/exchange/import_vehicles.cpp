#include "exchange/import_fields.h"
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

std::vector<ImportField<clViaturas>> VehicleFields() {
  using E = clViaturas;
  using F = Fields<E>;
  using K = ColumnKind;
  return {F::Key("Matricula", 10, &E::Matricula),
          F::Text("Marca", 10, &E::Marca),
          F::Text("Modelo", 10, &E::Modelo),
          {{"Responsavel", K::kText, 40},
           [](E& v, const ImportRow& row, const char* column) { v.Responsavel = row.text(column); }},
          F::Text("Categoria", 10, &E::Categoria),
          F::Text("Departamento", 10, &E::Departamento),
          F::Whole("KmInicial", &E::KmInicial),
          {{"KmActual", K::kInteger},
           [](E& v, const ImportRow& row, const char* column) {
             const Currency km = row.number(column).value_or(Currency());
             v.KmActual = km == 0 ? v.KmInicial : km;
           }},
          F::Day("DataKmInicial", &E::DataKmInicial, &platform::Today),
          F::Day("DataMatricula", &E::DataMatricula, &platform::Today),
          F::Whole("AnoMatricula", &E::AnoMatricula),
          F::Text("NoMotor", 15, &E::NoMotor),
          F::Text("Cilindrada", 10, &E::Cilindrada),
          F::Text("CompLeasing", 10, &E::CompLeasing),
          F::Text("NoContrato", 20, &E::NoContrato),
          F::Day("ValContrato", &E::ValContrato),
          F::Number("ValorInicial", &E::ValorInicial),
          F::Number("ValorResidual", &E::ValorResidual),
          F::Number("Mensalidade", &E::Mensalidade),
          F::Number("QtdInicial", &E::QtdInicial),
          F::Text("Obs", 150, &E::Obs),
          F::Text("NoChassis", 50, &E::NoChassis),
          F::Whole("Combustivel", &E::Combustivel),
          F::Day("DataPrxRev", &E::DataPrxRev),
          F::Day("DataPrxInsp", &E::DataPrxInsp),
          {{"KmPrxRev", K::kInteger},
           [](E& v, const ImportRow& row, const char* column) {
             v.KmPrxRev = row.number(column).value_or(kSemKmDeRevisao);
           }},
          F::Flag("Inactiva", &E::Inactiva),
          F::Flag("Tacografo", &E::Tacografo),
          F::Day("DtDescarga", &E::DtDescarga, &platform::Today),
          {{"DataSelo", K::kDate},
           [](E& v, const ImportRow& row, const char* column) {
             v.DataSelo =
                 row.date(column).value_or(FimDoPrazoDoSelo(v.DataMatricula.month(), platform::Today()));
           }},
          {{"SeloPago", K::kInteger},
           [](E& v, const ImportRow& row, const char* column) { v.SeloPago = row.integer(column) != 0; }}};
}

class VehicleTarget : public RecordTarget<clViaturas> {
 public:
  explicit VehicleTarget(const DataAccessRef& bd)
      : RecordTarget(bd, &clViaturas::Matricula, VehicleFields()),
        makes_(bd),
        models_(bd),
        categories_(bd),
        departments_(bd),
        companies_(bd) {}

 protected:
  void Check(const ImportRow& row) override {
    CheckGiven(row, "Marca", makes_, "Marca não existente!");
    CheckGiven(row, "Modelo", models_, "Modelo não existente!");
    CheckGiven(row, "Categoria", categories_, "Categoria não existente!");
    CheckGiven(row, "Departamento", departments_, "Departamento não existente!");
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

 private:
  template <typename Entity>
  static void CheckGiven(const ImportRow& row, const char* column, Codes<Entity>& codes,
                         const char* missing) {
    if (row.given(column)) codes.Require(column, row.text(column), missing);
  }

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

#include "drivers/motoristas.h"
#include "exchange/import_fields.h"
#include "exchange/import_targets.h"

namespace exchange {
namespace {

using zorCrmParvel::clMotoristas;
using zorCrmParvel::DataAccessRef;

std::vector<ImportField<clMotoristas>> DriverFields() {
  using E = clMotoristas;
  using F = Fields<E>;
  return {F::Key("Codigo", 10, &E::Codigo),
          F::Text("Nome", 60, &E::Descrição),
          F::Text("Morada", 50, &E::Morada),
          F::Text("Localidade", 40, &E::Localidade),
          F::Text("CodPostal", 8, &E::CodPostal),
          F::Text("NIF", 13, &E::NIF),
          F::Day("DataNasc", &E::DataNasc),
          F::Text("BI", 13, &E::BI),
          F::Day("DataBI", &E::DataBI),
          F::Text("EmissaoBI", 20, &E::EmissaoBI),
          F::Text("Telefone", 20, &E::Telefone),
          F::Text("Telemovel", 20, &E::Telemovel),
          F::Text("Email", 50, &E::Email),
          F::Text("Passaporte", 13, &E::Passaporte),
          F::Day("DataPassa", &E::DataPassa),
          F::Day("ValidadePassa", &E::ValidadePassa),
          F::Text("CartaoCid", 13, &E::CartaoCid),
          F::Day("DataCartaoCid", &E::DataCartaoCid),
          F::Day("ValCartaoCid", &E::ValCartaoCid),
          F::Text("CartaCond", 13, &E::CartaCond),
          F::Day("DataCartaCond", &E::DataCartaCond),
          F::Day("ValCartaCond", &E::ValCartaCond),
          F::Whole("TipoCartaCond", &E::TipoCartaCond),
          F::Text("DGV", 20, &E::DGV),
          F::Text("LocalPassa", 20, &E::LocalPassa),
          F::Text("Obs", 150, &E::Obs),
          F::Text("LocalCid", 20, &E::LocalCid),
          F::Day("DataValBI", &E::DataValBI),
          F::Day("DtInicioCartaoCondutor", &E::DtInicioCartaoCondutor),
          F::Day("DtFimCartaoCondutor", &E::DtFimCartaoCondutor),
          F::Day("DtDescarga", &E::DtDescarga),
          F::Text("NoCartaoCondutor", 16, &E::NoCartaoCondutor),
          F::Text("EmissoraCartaoCondutor", 20, &E::EmissoraCartaoCondutor),
          F::Flag("Inactivo", &E::Inactivo)};
}

class DriverTarget : public RecordTarget<clMotoristas> {
 public:
  explicit DriverTarget(const DataAccessRef& bd) : RecordTarget(bd, &clMotoristas::Codigo, DriverFields()) {}

 protected:
  void Check(const ImportRow& row) override {
    if (row.integer("TipoCartaCond") < 0 || row.integer("TipoCartaCond") > 9)
      throw Refusal{"TipoCartaCond", "Valor inválido!"};
  }
};

}  // namespace

std::unique_ptr<ImportTarget> MakeDriverImport(const DataAccessRef& bd) {
  return std::make_unique<DriverTarget>(bd);
}

}  // namespace exchange

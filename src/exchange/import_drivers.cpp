#include "drivers/motoristas.h"
#include "exchange/import_codes.h"
#include "exchange/import_targets.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Date;

/// Drivers that exist stay as they are.
class DriverTarget : public ImportTarget {
 public:
  explicit DriverTarget(const DataAccessRef& bd) : bd_(bd) {}

  const std::vector<ImportColumn>& Columns() const override {
    using K = ColumnKind;
    static const std::vector<ImportColumn> columns = {{"Codigo", K::kText, 10, true},
                                                      {"Nome", K::kText, 60},
                                                      {"Morada", K::kText, 50},
                                                      {"Localidade", K::kText, 40},
                                                      {"CodPostal", K::kText, 8},
                                                      {"NIF", K::kText, 13},
                                                      {"DataNasc", K::kDate},
                                                      {"BI", K::kText, 13},
                                                      {"DataBI", K::kDate},
                                                      {"EmissaoBI", K::kText, 20},
                                                      {"Telefone", K::kText, 20},
                                                      {"Telemovel", K::kText, 20},
                                                      {"Email", K::kText, 50},
                                                      {"Passaporte", K::kText, 13},
                                                      {"DataPassa", K::kDate},
                                                      {"ValidadePassa", K::kDate},
                                                      {"CartaoCid", K::kText, 13},
                                                      {"DataCartaoCid", K::kDate},
                                                      {"ValCartaoCid", K::kDate},
                                                      {"CartaCond", K::kText, 13},
                                                      {"DataCartaCond", K::kDate},
                                                      {"ValCartaCond", K::kDate},
                                                      {"TipoCartaCond", K::kInteger},
                                                      {"DGV", K::kText, 20},
                                                      {"LocalPassa", K::kText, 20},
                                                      {"Obs", K::kText, 150},
                                                      {"LocalCid", K::kText, 20},
                                                      {"DataValBI", K::kDate},
                                                      {"DtInicioCartaoCondutor", K::kDate},
                                                      {"DtFimCartaoCondutor", K::kDate},
                                                      {"DtDescarga", K::kDate},
                                                      {"NoCartaoCondutor", K::kText, 16},
                                                      {"EmissoraCartaoCondutor", K::kText, 20},
                                                      {"Inactivo", K::kInteger}};
    return columns;
  }

  Outcome Store(const ImportRow& row) override {
    RefuseApostrophe("Codigo", row.text("Codigo"));
    clMotoristas motorista;
    motorista.bd = bd_;
    motorista.Codigo = row.text("Codigo");
    if (motorista.Ler()) return Outcome::kKnown;
    if (row.integer("TipoCartaCond") < 0 || row.integer("TipoCartaCond") > 9)
      throw Refusal{"TipoCartaCond", "Valor inválido!"};
    Take(row, motorista);
    motorista.Escrever();
    return Outcome::kAdded;
  }

 private:
  static void Take(const ImportRow& row, clMotoristas& motorista) {
    const auto date = [&](const char* column) { return row.date(column).value_or(Date()); };
    motorista.Descrição = row.text("Nome");
    motorista.Morada = row.text("Morada");
    motorista.Localidade = row.text("Localidade");
    motorista.CodPostal = row.text("CodPostal");
    motorista.NIF = row.text("NIF");
    motorista.DataNasc = date("DataNasc");
    motorista.BI = row.text("BI");
    motorista.DataBI = date("DataBI");
    motorista.EmissaoBI = row.text("EmissaoBI");
    motorista.Telefone = row.text("Telefone");
    motorista.Telemovel = row.text("Telemovel");
    motorista.Email = row.text("Email");
    motorista.Passaporte = row.text("Passaporte");
    motorista.DataPassa = date("DataPassa");
    motorista.ValidadePassa = date("ValidadePassa");
    motorista.CartaoCid = row.text("CartaoCid");
    motorista.DataCartaoCid = date("DataCartaoCid");
    motorista.ValCartaoCid = date("ValCartaoCid");
    motorista.CartaCond = row.text("CartaCond");
    motorista.DataCartaCond = date("DataCartaCond");
    motorista.ValCartaCond = date("ValCartaCond");
    motorista.TipoCartaCond = row.integer("TipoCartaCond");
    motorista.DGV = row.text("DGV");
    motorista.LocalPassa = row.text("LocalPassa");
    motorista.Obs = row.text("Obs");
    motorista.LocalCid = row.text("LocalCid");
    motorista.DataValBI = date("DataValBI");
    motorista.DtInicioCartaoCondutor = date("DtInicioCartaoCondutor");
    motorista.DtFimCartaoCondutor = date("DtFimCartaoCondutor");
    motorista.DtDescarga = date("DtDescarga");
    motorista.NoCartaoCondutor = row.text("NoCartaoCondutor");
    motorista.EmissoraCartaoCondutor = row.text("EmissoraCartaoCondutor");
    motorista.Inactivo = row.integer("Inactivo") != 0 ? 1 : 0;
  }

  DataAccessRef bd_;
};

}  // namespace

std::unique_ptr<ImportTarget> MakeDriverImport(const DataAccessRef& bd) {
  return std::make_unique<DriverTarget>(bd);
}

}  // namespace exchange

#include "drivers/motoristas.h"
#include "exchange/import_fields.h"
#include "exchange/import_targets.h"
#include "masterdata/tipos_gastos.h"
#include "platform/host.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;

/// A code table: codes that exist stay as they are.
template <typename Entity>
class CodeTarget : public RecordTarget<Entity> {
 public:
  explicit CodeTarget(const DataAccessRef& bd, std::vector<ImportField<Entity>> more = {})
      : RecordTarget<Entity>(bd, &Entity::Codigo, FieldsWith(std::move(more))) {}

 private:
  void Check(const ImportRow&) override {}

  static std::vector<ImportField<Entity>> FieldsWith(std::vector<ImportField<Entity>> more) {
    using F = Fields<Entity>;
    more.insert(more.begin(),
                {F::Key("Codigo", 10, &Entity::Codigo), F::Text("Nome", 50, &Entity::Descrição)});
    return more;
  }
};

template <typename Entity>
std::unique_ptr<ImportTarget> Make(const DataAccessRef& bd) {
  return std::make_unique<CodeTarget<Entity>>(bd);
}

std::unique_ptr<ImportTarget> MakeExpenseTypes(const DataAccessRef& bd) {
  using E = clTiposGastos;
  using F = Fields<E>;
  return std::make_unique<CodeTarget<E>>(
      bd, std::vector{F::Flag("Combustivel", &E::Combustivel), F::Number("CustoUnit", &E::CustoUnit)});
}

/// Licence classes, one a row. A class that the driver has stays as it is.
class LicenceTarget : public ImportTarget {
 public:
  explicit LicenceTarget(const DataAccessRef& bd) : bd_(bd), drivers_(bd) {}

  const std::vector<ImportColumn>& Columns() const override {
    static const std::vector<ImportColumn> columns = {{"Motorista", ColumnKind::kText, 10, true},
                                                      {"TipoCarta", ColumnKind::kInteger, 0, true},
                                                      {"DataValidade", ColumnKind::kDate, 0, true}};
    return columns;
  }

  Outcome Judge(const ImportRow& row) override {
    const std::string& driver = row.text("Motorista");
    RefuseApostrophe("Motorista", driver);
    drivers_.Require("Motorista", driver, "Motorista não existente!");
    const std::int16_t licence = row.integer("TipoCarta");
    if (licence < 0 || licence > 9) throw Refusal{"TipoCarta", "Valor inválido!"};
    RecordsetRef rows;
    bd_->AbrirEdicao({"SELECT * From zor_CartasCond WHERE     (Motorista = N'", value(driver),
                      "' and TipoCarta=", value(licence), ")"},
                     rows);
    if (!rows->Eof()) return Outcome::kKnown;
    if (row.date("DataValidade")->DayOnly() < platform::Today())
      throw Refusal{"DataValidade", "A Data de Validade não pode ser inferior à data dia!"};
    rows->AddNew();
    Row fields(*rows);
    fields.put("Motorista", driver);
    fields.put("TipoCarta", licence);
    fields.put("DataValidade", *row.date("DataValidade"));
    row_ = rows;
    return Outcome::kAdded;
  }

  void Write() override {
    row_->Update();
    row_->Close();
  }

 private:
  DataAccessRef bd_;
  Codes<clMotoristas> drivers_;
  RecordsetRef row_;  // judged, and not written yet
};

}  // namespace

std::unique_ptr<ImportTarget> MakeLicenceImport(const DataAccessRef& bd) {
  return std::make_unique<LicenceTarget>(bd);
}

std::unique_ptr<ImportTarget> MakeCodeImport(const std::string& what, const DataAccessRef& bd) {
  const struct {
    const char* what;
    std::unique_ptr<ImportTarget> (*make)(const DataAccessRef&);
  } tables[] = {{"marcas", &Make<clMarcas>},
                {"modelos", &Make<clModelos>},
                {"categorias", &Make<clCategorias>},
                {"departamentos", &Make<clDepartamentos>},
                {"companhias", &Make<clCompanhias>},
                {"tipos-gastos", &MakeExpenseTypes},
                {"tipos-manutencao", &Make<clTiposManut>},
                {"tipos-seguro", &Make<clTiposSeguros>},
                {"tipos-acessorios", &Make<clTiposAcessorios>},
                {"viagens", &Make<clViagens>}};
  for (const auto& table : tables)
    if (what == table.what) return table.make(bd);
  return nullptr;
}

}  // namespace exchange

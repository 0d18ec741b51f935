#include "exchange/import_fixture.h"
#include "platform/runtime_error.h"
#include "store/forwarding_store.h"

namespace exchange {
namespace {

/// A server whose administrator made the module's tables alone.
class OfOthersMaking : public store::ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    return ForwardingStore::OpenForReading(Known(statement));
  }
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override {
    return ForwardingStore::OpenForEditing(Known(statement));
  }

 private:
  static const std::string& Known(const std::string& statement) {
    if (statement.find("parvel_") == std::string::npos) return statement;
    throw platform::RuntimeError(platform::kInvalidObject);
  }
};

TEST_F(ImportTest, ADatabaseWithoutATableOfImportsTakesThemAllTheSame) {
  std::istringstream file(
      "Matricula;Data;TipoGasto;Motorista;Qtd;ValorUn;Km\n"
      "12-AB-34;01-03-2024 08:00;GASOLEO;1;50,00;1,500;10000\n"
      "12-AB-34;10-03-2024;GASOLEO;1;40;1,5;10500\n");
  const ImportedFile about{"gastos", "a.csv", "soma", "ana", {}};
  const ImportResult result =
      ImportCsvToLog(std::make_shared<OfOthersMaking>(bd.shared()), about, file, report, {});
  EXPECT_EQ(result.added, 2);
  EXPECT_EQ(result.number, 0);
  EXPECT_EQ(Rows(bd, "SELECT Gst_Id FROM zor_PV_Gastos").size(), 2U);
}

}  // namespace
}  // namespace exchange

#include <gtest/gtest.h>

#include "embedded/database.h"
#include "platform/files.h"
#include "platform/screen/dialogs.h"
#include "store/late_photos.h"
#include "store/late_rows.h"
#include "support/temporary_folder.h"

namespace store_tests {
namespace {

using zorCrmParvel::RecordsetRef;

class LateTest : public testing::Test {
 protected:
  static platform::ListaPesquisa Lookup(zorCrmParvel::Store& store, const std::string& sql) {
    platform::ListaPesquisa lookup;
    store.ObterLigacao(lookup.Ligacao);
    lookup.Sql = sql;
    lookup.Carrega();
    return lookup;
  }
  long Count() {
    RecordsetRef rows;
    database_->AbrirLeitura("", "SELECT Codigo FROM zor_PV_Marcas", rows);
    return rows->RecordCount();
  }
  void Add(const char* code) {
    database_->ExecutarSql(
        "", {"INSERT INTO zor_PV_Marcas (Codigo, Nome) VALUES ('", zorCrmParvel::value(code), "', 'x')"});
  }

  std::shared_ptr<zorCrmParvel::Store> database_ = embedded::Database::Open(":memory:");
  testing_support::TemporaryFolder folder_;
};

TEST_F(LateTest, ALookupIsReadWhenItsRowsAreWantedOrBrought) {
  store::LateLookups late(database_);
  for (const bool brought : {false, true}) {
    const long before = Count();
    auto lookup = Lookup(late, "SELECT Codigo as Código, Nome From zor_PV_Marcas ORDER BY Codigo");
    lookup.Coluna(2).Width = 7;
    EXPECT_THROW(lookup.Coluna(3), platform::RuntimeError);
    Add(brought ? "VW" : "REN");
    auto& rows = dynamic_cast<store::LateRows&>(*lookup.Linhas());
    EXPECT_TRUE(rows.IsWaiting());
    if (brought) {
      RecordsetRef read;
      database_->AbrirLeitura("", rows.statement().c_str(), read);
      rows.Bring(*read);
      Add("FORD");  // too late
    }
    EXPECT_EQ(rows.RecordCount(), before + 1);
    EXPECT_EQ(rows.FieldList()[0].name, "Código");
    EXPECT_EQ(rows.CellAt(0, 0).ToText(), "REN");
    EXPECT_FALSE(rows.IsWaiting());
  }
}

TEST_F(LateTest, AStatementThatDoesNotTellItsColumnsIsRunAtOnce) {
  store::LateLookups late(database_);
  EXPECT_EQ(dynamic_cast<store::LateRows*>(Lookup(late, "SELECT * FROM zor_PV_Marcas").Linhas().get()),
            nullptr);
  EXPECT_THROW(Lookup(late, "SELEC Codigo FROM zor_PV_Marcas"), platform::RuntimeError);
}

TEST_F(LateTest, APhotoIsAMarkUntilItIsBrought) {
  store::LatePhotos late(database_);
  const std::string photo = "\xFF\xD8 fotografia";
  RecordsetRef rows;
  database_->AbrirEdicao("SELECT * FROM zor_Fotos WHERE 1 = 0", rows);
  rows->AddNew();
  rows->Fields("zor_Fotos_Entidade").SetValue("AA-10-AA");
  rows->Fields("zor_Fotos_TipoEntidade").SetValue(std::int16_t{5});
  rows->Fields("zor_Fotos_NumeroFoto").SetValue(std::int16_t{1});
  rows->Fields("zor_Fotos_Imagem").SetValue(platform::Bytes(photo.begin(), photo.end()));
  rows->Update();
  const std::string file = folder_.File("foto1.jpg");
  for (const char* of : {"AA-10-AA", "ZZ-99-ZZ"}) {
    late.AbrirLeitura(
        "",
        {"SELECT zor_Fotos_Entidade, zor_Fotos_Imagem FROM zor_Fotos WHERE zor_Fotos_Entidade = '",
         zorCrmParvel::value(of), "'"},
        rows);
    ASSERT_FALSE(rows->Eof());
    const platform::Bytes mark = rows->Fields("zor_Fotos_Imagem").Value().ToBytes();
    platform::WriteFile(file, {reinterpret_cast<const char*>(mark.data()), mark.size()});
    const auto statement = store::LatePhotoIn(file);
    ASSERT_TRUE(statement);
    EXPECT_EQ(store::BringPhoto(*database_, *statement, file), of == std::string("AA-10-AA"));
    if (of != std::string("AA-10-AA")) continue;
    EXPECT_FALSE(store::LatePhotoIn(file));
    const platform::Bytes brought = platform::ReadFile(file);
    EXPECT_EQ(std::string(brought.begin(), brought.end()), photo);
  }
  late.AbrirLeitura("", "SELECT zor_Fotos_Entidade FROM zor_Fotos", rows);
  EXPECT_EQ(rows->Fields("zor_Fotos_Entidade").Value().ToText(), "AA-10-AA");
  // Whatever else reads photos has them at once.
  for (const char* statement :
       {"SELECT 1 AS Um, zor_Fotos_Imagem FROM zor_Fotos",
        "SELECT * FROM zor_Fotos ORDER BY zor_Fotos_Imagem",
        "SELECT zor_Fotos_Imagem FROM zor_Fotos UNION ALL SELECT zor_Fotos_Imagem FROM zor_Fotos",
        "SELECT zor_Fotos_Imagem FROM zor_Fotos AS F LEFT JOIN zor_PV_Marcas AS M ON M.Codigo = "
        "F.zor_Fotos_Entidade"}) {
    late.AbrirLeitura("", statement, rows);
    EXPECT_EQ(rows->Fields("zor_Fotos_Imagem").Value().ToBytes(), platform::Bytes(photo.begin(), photo.end()))
        << statement;
  }
  database_->ExecutarSql("", "UPDATE zor_Fotos SET zor_Fotos_Imagem = NULL");
  EXPECT_FALSE(store::BringPhoto(*database_, "SELECT zor_Fotos_Imagem FROM zor_Fotos", file));
}

}  // namespace
}  // namespace store_tests

#include "host/fotos.h"

#include <filesystem>

#include "drivers/motoristas.h"
#include "platform/files.h"
#include "support/database_test.h"
#include "support/files.h"
#include "support/temporary_folder.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using namespace testing_support;

class FotosTest : public RecordedTest {
 protected:
  FotosTest() {
    host.temporaryFolder = folder.File("");
    viatura.bd = motorista.bd = bd;
    viatura.Matricula = motorista.Codigo = "7";
  }

  std::string File(const std::string& content) {
    std::string path = folder.File("original");
    platform::WriteFile(path, content);
    return path;
  }

  TemporaryFolder folder;
  clViaturas viatura;
  clMotoristas motorista;
};

TEST_F(FotosTest, EachKindKeepsOneImageAKey) {
  EXPECT_EQ(viatura.Foto_Get(), "");
  EXPECT_FALSE(viatura.Foto_Add(File("primeira"))) << "it never answers true";
  viatura.Foto_Add(File(std::string("segunda\0\xFF", 9)));
  motorista.Foto_Add(File("outra"));
  EXPECT_EQ(Rows(bd,
                 "SELECT zor_Fotos_Entidade, zor_Fotos_TipoEntidade, zor_Fotos_NumeroFoto FROM zor_Fotos "
                 "order by zor_Fotos_TipoEntidade"),
            (Table{{"7", "20", "NULL"}, {"7", "30", "1"}}));
  const std::string copy = viatura.Foto_Get();
  EXPECT_EQ(std::filesystem::path(copy).extension(), ".jpg");
  EXPECT_EQ(Contents(copy), std::string("segunda\0\xFF", 9));
  EXPECT_NE(viatura.Foto_Get(), copy) << "no copy is written over another";
  EXPECT_TRUE(viatura.Foto_Del());
  EXPECT_TRUE(viatura.Foto_Del()) << "a removal that hits no row succeeds";
  EXPECT_EQ(viatura.Foto_Get(), "");
  EXPECT_EQ(Contents(motorista.Foto_Get()), "outra");
}

TEST_F(FotosTest, FailuresAreSaidOrRaised) {
  EXPECT_FALSE(viatura.Foto_Add(folder.File("nada.jpg")));
  EXPECT_TRUE(bd->statements.empty()) << "a missing file is no failure";
  viatura.Matricula = motorista.Codigo = "D'Arcy";
  const auto box = [&](const std::string& where) {
    host.ExpectBox("Erro -2147217900\r\n(Incorrect syntax near 'Arcy'.)\r\nNa função " + where);
  };
  box("Foto_Add do cl_Viaturas");
  EXPECT_FALSE(viatura.Foto_Add(File("x")));
  box("Foto_Del do Viaturas");
  EXPECT_FALSE(viatura.Foto_Del());
  box("Foto_Add do cl_Motoristas");
  motorista.Foto_Add(File("x"));
  box("Foto_Del da cl_Motoristas");
  motorista.Foto_Del();
  EXPECT_THROW(viatura.Foto_Get(), platform::RuntimeError);
  viatura.Matricula = "7";
  viatura.Foto_Add(File("x"));
  host.temporaryFolder = folder.File("nenhuma/");
  EXPECT_THROW(viatura.Foto_Get(), platform::RuntimeError) << "no room for the copy";
}

}  // namespace
}  // namespace zorCrmParvel

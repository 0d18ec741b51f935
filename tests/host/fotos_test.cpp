#include "host/fotos.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "drivers/motoristas.h"
#include "platform/files.h"
#include "platform/runtime_error.h"
#include "support/recording_data_access.h"
#include "support/scripted_host.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

namespace fs = std::filesystem;
using testing_support::Rows;
using Table = std::vector<std::vector<std::string>>;

class FotosTest : public testing::Test {
 protected:
  FotosTest() {
    std::string name = (fs::temp_directory_path() / "parvel-fotos-XXXXXX").string();
    folder = mkdtemp(name.data());
    host.temporaryFolder = folder.string() + "/";
    viatura.bd = motorista.bd = bd;
    viatura.Matricula = motorista.Codigo = "7";
  }
  ~FotosTest() override { fs::remove_all(folder); }

  std::string File(const std::string& content) {
    const std::string path = (folder / "original").string();
    platform::WriteFile(path, content);
    return path;
  }
  static std::string Content(const std::string& path) {
    const platform::Bytes bytes = platform::ReadFile(path);
    return {bytes.begin(), bytes.end()};
  }

  testing_support::ScriptedHost host;
  fs::path folder;
  platform::Ref<testing_support::RecordingDataAccess> bd =
      platform::MakeRef<testing_support::RecordingDataAccess>(testing_support::MemoryDatabase());
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
  EXPECT_EQ(fs::path(copy).extension(), ".jpg");
  EXPECT_EQ(Content(copy), std::string("segunda\0\xFF", 9));
  EXPECT_NE(viatura.Foto_Get(), copy) << "no copy is written over another";
  EXPECT_TRUE(viatura.Foto_Del());
  EXPECT_TRUE(viatura.Foto_Del()) << "a removal that hits no row succeeds";
  EXPECT_EQ(viatura.Foto_Get(), "");
  EXPECT_EQ(Content(motorista.Foto_Get()), "outra");
}

TEST_F(FotosTest, FailuresAreSaidOrRaised) {
  EXPECT_FALSE(viatura.Foto_Add((folder / "nada.jpg").string()));
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
  host.temporaryFolder = (folder / "nenhuma").string() + "/";
  EXPECT_THROW(viatura.Foto_Get(), platform::RuntimeError) << "no room for the copy";
}

}  // namespace
}  // namespace zorCrmParvel

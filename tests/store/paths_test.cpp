#include "store/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "embedded/database.h"
#include "store/table_watch.h"
#include "support/files.h"
#include "support/recording_data_access.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

std::string Told(const std::function<void()>& act) {
  try {
    act();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return {};
}

TEST(PathsTest, FilesAndFoldersAreMadeForTheirOwnerAlone) {
  const testing_support::TemporaryFolder folder;
  const std::string file = folder.File("a/b/f.txt");
  store::CreatePrivateFile(file);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  for (const char* made : {"a", "a/b"})
    EXPECT_EQ(fs::status(folder.File(made)).permissions(), fs::perms::owner_all);
  std::ofstream(file) << "cheio";
  store::CreatePrivateFile(file);
  EXPECT_EQ(testing_support::Contents(file), "cheio") << "one that is there stays";
  EXPECT_EQ(Told([&] { store::CreatePrivateFile(file + "/g"); }),
            "Não é possível criar a pasta " + file + ": há um ficheiro com esse nome. Escolha outra pasta.");
  EXPECT_EQ(Told([&] { store::CreatePrivateFile("/proc/nada"); }).substr(0, 47),
            "Não é possível criar o ficheiro /proc/nada: ");
  EXPECT_EQ(store::DatabaseFileNamed(":memory:"), "./:memory:");
  EXPECT_EQ(store::DatabaseFileNamed("x.db"), "x.db");
}

TEST(TableWatchTest, NamesTheTablesOfEachStatement) {
  const std::pair<const char*, store::TableNames> cases[] = {
      {"SELECT a, from_b FROM [Zor A] AS x LEFT JOIN b ON x.c = b.d WHERE e IN (SELECT f FROM G)",
       {"zor a", "b", "g"}},
      {"INSERT INTO T (from1) VALUES ('update x')", {"t"}},
      {"UPDATE T SET a = 1", {"t"}},
      {"DELETE FROM T", {"t"}},
      {"delete T", {"t"}},
      {"SELECT 1", {}}};
  for (const auto& [statement, names] : cases) EXPECT_EQ(store::TablesIn(statement), names) << statement;
  const auto watch = std::make_shared<store::TableWatch>(embedded::Database::Open(":memory:"));
  const zorCrmParvel::DataAccessRef bd(watch);
  bd->ExecutarSql("", "UPDATE zor_PV_Marcas SET Nome = N'x'");
  zorCrmParvel::RecordsetRef rows;
  bd->AbrirEdicao("SELECT * FROM zor_PV_Modelos WHERE 1 = 0", rows);
  testing_support::Rows(bd, "SELECT * FROM zor_PV_Viagens");
  EXPECT_EQ(watch->TakeWritten(), (store::TableNames{"zor_pv_marcas", "zor_pv_modelos"}));
  EXPECT_TRUE(watch->TakeWritten().empty());
  EXPECT_EQ(watch->TakeRead(), store::TableNames{"zor_pv_viagens"});
}

}  // namespace

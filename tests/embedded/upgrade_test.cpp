#include "embedded/storage/collation.h"
#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"

namespace embedded_tests {
namespace {

using embedded::Database;
using testing_support::Rows;

constexpr const char* kOld = R"(-- versão 1
CREATE TABLE Gastos (
  Id int IDENTITY(1,1) NOT NULL,
  Nome nvarchar(5) NULL,
  Valor int NULL,
  Codigo nvarchar(10) NULL,
  CONSTRAINT PK_Gastos PRIMARY KEY (Id)
);
CREATE TABLE Chaves (
  A nvarchar(5) NOT NULL,
  B int NULL,
  CONSTRAINT PK_Chaves PRIMARY KEY (A)
);
CREATE INDEX IX_Gastos ON Gastos (Nome);
)";

constexpr const char* kNew = R"(-- versão 2
CREATE TABLE Gastos (
  Id int IDENTITY(1,1) NOT NULL,
  Nome nvarchar(50) NOT NULL,
  Valor money NULL,
  Codigo int NULL,
  Obs nvarchar(20) NULL,
  Tipo smallint NOT NULL,
  CONSTRAINT PK_Gastos PRIMARY KEY (Id)
);
CREATE TABLE Chaves (
  A nvarchar(5) NOT NULL,
  B int NOT NULL,
  CONSTRAINT PK_Chaves PRIMARY KEY (A, B)
);
CREATE TABLE Novas (Codigo nvarchar(10) NULL);
CREATE UNIQUE INDEX IX_Gastos ON Gastos (Nome, Valor);
)";

class UpgradeTest : public testing::Test {
 protected:
  UpgradeTest() {
    const auto old = Database::Open(file_, Options(kOld));
    for (const char* statement :
         {"INSERT INTO Gastos (Nome, Valor, Codigo) VALUES ('ç1', 7, '12')",
          "INSERT INTO Gastos (Valor) VALUES (-3)", "INSERT INTO Gastos (Nome) VALUES ('fora')",
          "DELETE FROM Gastos WHERE Nome = 'fora'", "INSERT INTO Chaves (A) VALUES ('a')"})
      old->ExecutarSql("", statement);
  }
  embedded::SqliteConnection Beside() const {
    embedded::SqliteConnection connection(file_, SQLITE_OPEN_READWRITE);
    embedded::RegisterCollation(connection.get());
    return connection;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.File("frota.parvel");
};

TEST_F(UpgradeTest, KeepsEveryRowInTheNewColumns) {
  const auto database = Database::Open(file_, Options(kNew));
  EXPECT_EQ(Rows(database, "SELECT * FROM Gastos ORDER BY Id"),
            (Table{{"1", "ç1", "7", "12", "NULL", "0"}, {"2", "", "-3", "NULL", "NULL", "0"}}));
  EXPECT_EQ(Rows(database, "SELECT * FROM Chaves"), (Table{{"a", "0"}}));
  EXPECT_EQ(Rows(database, "SELECT * FROM Novas"), Table{});
  database->ExecutarSql("",
                        "INSERT INTO Gastos (Nome, Valor, Tipo) VALUES ('um nome mais comprido', 7.5, 1)");
  EXPECT_EQ(Rows(database, "SELECT Id FROM Gastos WHERE Valor = 7.5"), (Table{{"4"}}));  // 3 was given once
  EXPECT_EQ(NumberOf([&] {
              database->ExecutarSql("", "INSERT INTO Gastos (Nome, Valor, Tipo) VALUES (N'Ç1 ', 7, 1)");
            }),
            platform::kConstraint);
}

TEST_F(UpgradeTest, ColumnsAreAddedToATableWhereItStandsIfTheyStandLast) {
  const auto places = [&] {
    return Beside().Text(
        "SELECT group_concat(rootpage) FROM (SELECT rootpage FROM sqlite_master WHERE type = 'table' ORDER "
        "BY name)");
  };
  const std::string before = places();
  std::string schema = kOld;
  const auto change = [&](const std::string& what, const std::string& into) {
    schema.replace(schema.find(what), what.size(), into);
  };
  change("versão 1", "versão 2");
  change("  Codigo nvarchar(10) NULL,\n",
         "  Codigo nvarchar(10) NULL,\n  Obs nvarchar(20) NULL,\n  Feito bit NULL,\n");
  change("Gastos (Nome)", "Gastos (Obs)");
  auto database = Database::Open(file_, Options(schema));
  EXPECT_EQ(places(), before) << "nothing is copied";
  EXPECT_EQ(Rows(database, "SELECT * FROM Gastos ORDER BY Id"),
            (Table{{"1", "ç1", "7", "12", "NULL", "NULL"}, {"2", "NULL", "-3", "NULL", "NULL", "NULL"}}));
  EXPECT_EQ(Beside().Text("SELECT group_concat(name) FROM pragma_index_info('IX_Gastos')"), "Obs");
  database.reset();
  change("versão 2", "versão 3");
  change("  Nome nvarchar(5) NULL,\n", "  Antes int NULL,\n  Nome nvarchar(5) NULL,\n");
  EXPECT_EQ(Rows(Database::Open(file_, Options(schema)), "SELECT * FROM Gastos WHERE Id = 1"),
            (Table{{"1", "NULL", "ç1", "7", "12", "NULL", "NULL"}}))
      << "in the order in which they are declared";
}

TEST_F(UpgradeTest, LeavesASoundDatabaseWithTheColumnsAndIndexesThatItDoesNotKnow) {
  Beside().Execute(
      "ALTER TABLE Gastos ADD COLUMN Extra text; UPDATE Gastos SET Extra = 'x' || Id; CREATE INDEX Alheio ON "
      "Gastos (Extra)");
  Database::Open(file_, Options(kNew));
  const auto beside = Beside();
  EXPECT_EQ(beside.Text("SELECT group_concat(Extra) FROM Gastos"), "x1,x2");
  EXPECT_EQ(beside.Number("SELECT count(*) FROM sqlite_master WHERE name = 'Alheio'"), 1);
  EXPECT_EQ(beside.Number("PRAGMA user_version"), 2);
  EXPECT_EQ(beside.Text("PRAGMA integrity_check"), "ok");
  EXPECT_EQ(beside.Number("SELECT count(*) FROM sqlite_master WHERE name LIKE '%nova%' AND name <> 'Novas'"),
            0);
  EXPECT_NE(ErrorOf([&] { Database::Open(file_, Options(kOld)); }).find("versão 2"), std::string::npos);
}

TEST_F(UpgradeTest, AnUpgradeThatWouldLoseAValueIsNotMade) {
  Database::Open(file_, Options(kOld))->ExecutarSql("", "UPDATE Gastos SET Codigo = 'x'");
  const std::string error = ErrorOf([&] { Database::Open(file_, Options(kNew)); });
  EXPECT_NE(error.find("não pôde ser actualizada da versão 1 para a versão 2 e ficou como estava"),
            std::string::npos)
      << error;
  EXPECT_EQ(Rows(Database::Open(file_, Options(kOld)), "SELECT Codigo FROM Gastos"), (Table{{"x"}, {"x"}}));
}

TEST_F(UpgradeTest, IndexesOfOtherRulesOfOrderAreBuiltAnew) {
  Beside().Execute("UPDATE parvel_settings SET value = '0'");
  Database::Open(file_, Options(kOld));
  EXPECT_NE(Beside().Text("SELECT value FROM parvel_settings WHERE name = 'collation'"), "0");
}

}  // namespace
}  // namespace embedded_tests

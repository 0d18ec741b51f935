#include "contract/engines.h"
#include "history/act.h"
#include "sqlserver/database.h"
#include "sqlserver/session.h"
#include "support/database_test.h"

namespace history {
namespace {

using contract_tests::kSchema;
using testing_support::Rows;
using testing_support::Table;
using zorCrmParvel::DataAccessRef;

constexpr const char* kHistory =
    "CREATE TABLE parvel_historico (Id int IDENTITY(1,1) NOT NULL, Operacao int NULL, Momento datetime NULL, "
    "Operador nvarchar(60) NULL, Posto nvarchar(60) NULL, Texto nvarchar(200) NULL, Registo nvarchar(60) "
    "NULL, "
    "Anula int NULL, Tabela nvarchar(60) NULL, Chave nvarchar(100) NULL, Linhas int NULL, Antes "
    "nvarchar(max) NULL, "
    "Depois nvarchar(max) NULL, CONSTRAINT PK PRIMARY KEY (Id));";
constexpr const char* kTables[] = {
    "CREATE TABLE PT_Codigos (Codigo nvarchar(10) NOT NULL PRIMARY KEY, Nome nvarchar(50))",
    "CREATE TABLE parvel_historico (Id INTEGER PRIMARY KEY AUTOINCREMENT, Operacao int, Momento datetime, "
    "Operador nvarchar(60), Posto nvarchar(60), Texto nvarchar(200), Registo nvarchar(60), Anula int, "
    "Tabela nvarchar(60), Chave nvarchar(100), Linhas int, Antes nvarchar(99999), Depois nvarchar(99999))"};

/// Over ODBC, as on a server, what is written and its record stand or fall together.
TEST(OdbcHistory, KeepsAWriteAndItsRecordTogether) {
  const testing_support::TemporaryFolder folder;
  sqlserver::OpenOptions server;
  server.connection = contract_tests::SqliteConnection(folder.File("servidor.db"));
  server.schema = kSchema + kHistory;
  const auto database = sqlserver::Database::Open(server);
  sqlserver::Parameters none;
  for (const char* table : kTables) database->session().Write(table, none);
  Options options;
  options.who = {"ana", "posto 1"};
  options.schema = kSchema;
  const auto store = std::make_shared<KeepingStore>(database, options);
  ASSERT_TRUE(store->Keeps());
  const DataAccessRef bd(store);
  const auto name = [&](const char* text) {
    zorCrmParvel::RecordsetRef rows;
    bd->AbrirEdicao("SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo = 'r'", rows);
    if (rows->Eof()) rows->AddNew();
    rows->Fields("Codigo").SetValue("r");
    rows->Fields("Nome").SetValue(text);
    rows->Update();
    rows->Close();
  };
  Act(store.get(), "Códigos: Confirmar", [&] { name("Um"); });
  Act(store.get(), "Códigos: Confirmar", [&] { name("Dois"); });
  store->BeginAct("Códigos: Confirmar");
  name("Nunca");
  store->AbandonAct();
  Act(store.get(), "Códigos: Remover",
      [&] { bd->ExecutarSql("", "DELETE FROM PT_Codigos WHERE Codigo = 'r'"); });
  EXPECT_TRUE(Rows(bd, "SELECT Codigo FROM PT_Codigos").empty());
  EXPECT_EQ(Rows(bd, "SELECT Operador, Texto, Antes, Depois FROM parvel_historico ORDER BY Id"),
            (Table{{"ana", "Códigos: Confirmar, r", "NULL", R"({"Codigo":"r","Nome":"Um"})"},
                   {"ana", "Códigos: Confirmar, r", R"({"Codigo":"r","Nome":"Um"})", R"({"Nome":"Dois"})"},
                   {"ana", "Códigos: Remover, r", R"({"Codigo":"r","Nome":"Dois"})", "NULL"}}));
}

}  // namespace
}  // namespace history

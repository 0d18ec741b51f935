#include "contract/engines.h"
#include "history/act.h"
#include "history/undo.h"
#include "sqlserver/database.h"
#include "sqlserver/faults.h"
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
    "Depois nvarchar(max) NULL, CONSTRAINT PK PRIMARY KEY (Id));"
    "CREATE TABLE parvel_conteudos (Resumo nvarchar(64) NOT NULL, Conteudo varbinary(max) NULL, CONSTRAINT "
    "PC "
    "PRIMARY KEY (Resumo));"
    "CREATE TABLE parvel_opcoes (Nome nvarchar(60) NOT NULL, Valor nvarchar(200) NULL, CONSTRAINT PO PRIMARY "
    "KEY (Nome));";
constexpr const char* kTables[] = {
    "CREATE TABLE PT_Codigos (Codigo nvarchar(10) NOT NULL PRIMARY KEY, Nome nvarchar(50))",
    "CREATE TABLE parvel_historico (Id INTEGER PRIMARY KEY AUTOINCREMENT, Operacao int, Momento datetime, "
    "Operador nvarchar(60), Posto nvarchar(60), Texto nvarchar(200), Registo nvarchar(60), Anula int, "
    "Tabela nvarchar(60), Chave nvarchar(100), Linhas int, Antes nvarchar(99999), Depois nvarchar(99999))",
    "CREATE TABLE PT_Tudo (Id INTEGER PRIMARY KEY AUTOINCREMENT, Nome nvarchar(10), Notas nvarchar(99999), "
    "Activa bit, Ano smallint, Km int, Valor moneychar, Razao float, Data datetime, Foto varbinary(99999))",
    "CREATE TABLE parvel_conteudos (Resumo nvarchar(64) PRIMARY KEY, Conteudo varbinary(99999))",
    "CREATE TABLE parvel_opcoes (Nome nvarchar(60) PRIMARY KEY, Valor nvarchar(200))"};

/// A database behind ODBC that remembers, as on a server.
class OdbcHistory : public testing::Test {
 protected:
  ~OdbcHistory() override { sqlserver_tests::ClearFaults(); }

  void Open() {
    sqlserver::OpenOptions server;
    server.connection = contract_tests::SqliteConnection(folder.File("servidor.db"));
    server.schema = kSchema + kHistory;
    database = sqlserver::Database::Open(server);
    sqlserver::Parameters none;
    for (const char* table : kTables) database->session().Write(table, none);
    OpenHistory();
  }
  void OpenHistory() {
    Options options;
    options.who = {"ana", "posto 1"};
    options.schema = kSchema;
    store = std::make_shared<KeepingStore>(database, options);
    bd = DataAccessRef(store);
  }
  void Name(const char* text) const {
    zorCrmParvel::RecordsetRef rows;
    bd->AbrirEdicao("SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo = 'r'", rows);
    if (rows->Eof()) rows->AddNew();
    rows->Fields("Codigo").SetValue("r");
    rows->Fields("Nome").SetValue(text);
    rows->Update();
    rows->Close();
  }
  void Confirm(const char* text) const {
    Act(
        store.get(), "Códigos: Confirmar", [&] { Name(text); }, false);
  }
  void Remove(const char* statement) const {
    Act(store.get(), "Códigos: Remover", [&] { bd->ExecutarSql("", statement); });
  }

  testing_support::TemporaryFolder folder;
  std::shared_ptr<sqlserver::Database> database;
  std::shared_ptr<KeepingStore> store;
  DataAccessRef bd;
};

TEST_F(OdbcHistory, KeepsAWriteAndItsRecordTogether) {
  Open();
  ASSERT_TRUE(store->Keeps());
  Confirm("Um");
  Confirm("Dois");
  store->BeginAct("Códigos: Confirmar");
  Name("Nunca");
  store->AbandonAct();
  Remove("DELETE FROM PT_Codigos WHERE Codigo = 'r'");
  EXPECT_TRUE(Rows(bd, "SELECT Codigo FROM PT_Codigos").empty());
  EXPECT_EQ(Rows(bd, "SELECT Operador, Texto, Antes, Depois FROM parvel_historico ORDER BY Id"),
            (Table{{"ana", "Códigos: Confirmar, r", "NULL", R"({"Codigo":"r","Nome":"Um"})"},
                   {"ana", "Códigos: Confirmar, r", R"({"Codigo":"r","Nome":"Um"})", R"({"Nome":"Dois"})"},
                   {"ana", "Códigos: Remover, r", R"({"Codigo":"r","Nome":"Dois"})", "NULL"}}));
}

TEST_F(OdbcHistory, PutsRowsBackUnderTheirNumbers) {
  sqlserver_tests::PretendServer();
  Open();
  zorCrmParvel::RecordsetRef rows;
  database->AbrirEdicao("SELECT Id, Nome, Valor, Foto FROM PT_Tudo WHERE Id = 0", rows);
  for (int i = 0; i < 12; ++i) {
    rows->AddNew();
    rows->Fields("Nome").SetValue("n" + std::to_string(i));
    rows->Fields("Valor").SetValue(platform::Currency(i));
    if (i == 3) rows->Fields("Foto").SetValue(platform::Bytes{0, 1, 255});
    rows->Update();
  }
  rows->Close();
  const char* const all = "SELECT Id, Nome, Valor FROM PT_Tudo ORDER BY Id";
  const Table before = Rows(bd, all);
  Remove("DELETE FROM PT_Tudo WHERE Id > 2");
  EXPECT_EQ(Rows(bd, all).size(), 2U);
  sqlserver_tests::Settings();
  Undo(store, store->LastOperation());
  EXPECT_EQ(Rows(bd, all), before);
  EXPECT_EQ(sqlserver_tests::Settings(),
            "SET IDENTITY_INSERT [PT_Tudo] ON; SET IDENTITY_INSERT [PT_Tudo] OFF; ");
  database->AbrirLeitura("", "SELECT Foto FROM PT_Tudo WHERE Id = 4", rows);
  EXPECT_EQ(rows->Fields("Foto").Value().ToBytes(), (platform::Bytes{0, 1, 255}));

  Confirm("Um");  // its table has no numbers to bring
  Remove("DELETE FROM PT_Codigos WHERE Codigo = 'r'");
  sqlserver_tests::Settings();
  Undo(store, store->LastOperation());
  EXPECT_EQ(Rows(bd, "SELECT Codigo, Nome FROM PT_Codigos"), (Table{{"r", "Um"}}));
  EXPECT_EQ(sqlserver_tests::Settings(), "");
}

TEST_F(OdbcHistory, RefusesWhatItMayNotRemember) {
  Open();
  Confirm("Um");
  const auto deny = [](const char* in) {
    sqlserver_tests::FailNextStatement({"42000", 229, "The permission was denied.", in});
  };
  deny("INSERT INTO [parvel_historico]");
  const std::string told = contract_tests::ErrorOf([&] { Confirm("Dois"); });
  EXPECT_NE(told.find("desligar o histórico"), std::string::npos) << told;
  EXPECT_EQ(Rows(bd, "SELECT Nome FROM PT_Codigos"), (Table{{"Um"}}));
  deny("FROM parvel_historico WHERE Id = 0");
  OpenHistory();
  EXPECT_TRUE(store->Keeps() && !store->HasHistory());
  Confirm("Três");  // the right was given meanwhile
  EXPECT_EQ(Rows(bd, "SELECT Chave FROM parvel_historico").size(), 2U);
}

TEST_F(OdbcHistory, CostsNoMoreThanATripAWrite) {
  Open();
  const auto trips = [&](const char* text) {
    const long before = database->session().traffic().trips;
    Confirm(text);
    return database->session().traffic().trips - before;
  };
  Confirm("Um");  // opens what all acts share
  const long kept = trips("Dois");
  zorCrmParvel::RecordsetRef options;
  database->AbrirEdicao("SELECT Nome, Valor FROM parvel_opcoes", options);
  options->AddNew();
  options->Fields("Nome").SetValue("historico");
  options->Fields("Valor").SetValue("nao");
  options->Update();
  options->Close();
  OpenHistory();
  EXPECT_LE(kept, trips("Três") + 1);
}

}  // namespace
}  // namespace history

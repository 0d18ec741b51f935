#include <sys/stat.h>

#include <sstream>

#include "embedded/database.h"
#include "server_fixture.h"
#include "sqlserver/schema/schema_script.h"
#include "sqlserver/schema/table_check.h"
#include "sqlserver/schema/transfer.h"
#include "tsql/parser.h"

namespace sqlserver_tests {
namespace {

class TablesTest : public ServerTest {
 protected:
  TablesTest() {
    embedded::OpenOptions options;
    options.schema = kSchema;
    from_ = embedded::Database::Open(":memory:", options);
    for (int i = 0; i < 40; ++i)
      from_->ExecutarSql("",
                         "INSERT INTO PT_Tudo (Nome, Valor, Razao, Data) VALUES (N'Évora', 12.5, 0.1, "
                         "'2024.03.01 08:30:00')");
    from_->ExecutarSql("", "DELETE FROM PT_Tudo WHERE Id < 5");
    from_->ExecutarSql("", "INSERT INTO PT_Codigos (Codigo) VALUES ('A')");
  }

  /// What a transfer tells: a word a table, with its rows.
  std::string Transfer() {
    std::ostringstream told;
    sqlserver::Transfer(*from_, database(), [&](const sqlserver::TransferredTable& table) {
      if (!table.refused.empty())
        told << table.refused << "; ";
      else
        told << table.table << ' ' << table.rows << (table.already ? " already; " : "; ");
    });
    return told.str();
  }
  Table Rows(const zorCrmParvel::DataAccessRef& data) {
    return testing_support::Rows(data, "SELECT Id, Nome, Valor, Razao, Data, Km FROM PT_Tudo ORDER BY Id");
  }

  std::shared_ptr<embedded::Database> from_;
};

TEST_F(TablesTest, AnInterruptedTransferIsRunAgain) {
  FailNextStatement({"08S01", 0, "Communication link failure", "INSERT INTO [PT_Codigos]"});
  EXPECT_EQ(NumberOf([&] { Transfer(); }), platform::kEngineFailure);
  EXPECT_EQ(Count("PT_Tudo"), 36);
  EXPECT_EQ(Transfer(), "PT_Tudo 36 already; PT_Codigos 1; ");
  Run("DELETE FROM PT_Tudo");
  FailNextStatement({"42000", 1105, "Could not allocate space.", "INSERT INTO [PT_Tudo]"});
  EXPECT_NE(ErrorOf([&] { Transfer(); }), "");
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(TablesTest, ARefusedRowIsNamedAndTheOtherTablesAreBrought) {
  FailNextStatement({"23000", 547, "The INSERT statement conflicted.", "INSERT INTO [PT_Tudo]"});
  EXPECT_EQ(Transfer(),
            "PT_Tudo, registo de Id «5», Nome «Évora»: The INSERT statement conflicted.; PT_Codigos 1; ");
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(TablesTest, OneTextOfManyRowsNamesTheRowThatIsRefused) {
  PretendServer();
  store_ = contract_tests::OpenSqliteFile(folder_.File("contrato.db"));
  sqlserver::Parameters none;
  session().Write("CREATE UNIQUE INDEX um ON PT_Tudo (Nome)", none);
  EXPECT_NE(ErrorOf([&] { Transfer(); }).find("PT_Tudo, registo de Id «6», Nome «Évora»: "),
            std::string::npos);
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(TablesTest, AServerIsToldWhichTableBringsItsNumbers) {
  PretendServer();
  store_ = contract_tests::OpenSqliteFile(folder_.File("contrato.db"));
  EXPECT_EQ(Transfer(), "PT_Tudo 36; PT_Codigos 1; ");
  EXPECT_EQ(
      Settings(),
      "15 s; SET DATEFORMAT ymd; SET IDENTITY_INSERT [PT_Tudo] ON; SET IDENTITY_INSERT [PT_Tudo] OFF; ");
}

TEST_F(TablesTest, ATransferRefusesTablesWithOtherRows) {
  Run("INSERT INTO PT_Codigos (Codigo) VALUES ('B')");
  EXPECT_EQ(NumberOf([&] { Transfer(); }), platform::kKeyInUse);
  EXPECT_EQ(Count("PT_Tudo"), 0);
  session().Read("DROP TABLE PT_Codigos", [](sqlserver::ResultReader&) {});
  EXPECT_EQ(NumberOf([&] { Transfer(); }), platform::kInvalidObject);
}

TEST_F(TablesTest, ATransferBringsAllRowsAndTellsThemApartByEveryValue) {
  EXPECT_EQ(Transfer(), "PT_Tudo 36; PT_Codigos 1; ");
  EXPECT_EQ(Rows(store_), Rows(from_));
  const std::vector<std::pair<const char*, const char*>> changes = {
      {"Nome = 'evora'", "Nome = 'Évora'"},
      {"Valor = 12.5001", "Valor = 12.5"},
      {"Razao = 0.2", "Razao = 0.1"},
      {"Data = '2024-03-01 08:30:01'", "Data = '2024-03-01 08:30:00'"},
      {"Km = 0", "Km = NULL"}};
  for (const auto& [changed, back] : changes) {
    SCOPED_TRACE(changed);
    const std::string update = "UPDATE PT_Tudo SET ";
    Run(update + changed + " WHERE Id = 7");
    EXPECT_EQ(NumberOf([&] { Transfer(); }), platform::kKeyInUse);
    Run(update + back + " WHERE Id = 7");
    EXPECT_EQ(Transfer(), "PT_Tudo 36 already; PT_Codigos 1 already; ");
  }
}

TEST_F(TablesTest, ATableThatMayNotBeReadIsNotOneThatLacks) {
  const Fault denied{"42000", 229, "The SELECT permission was denied.", "[PT_Tudo]"};
  FailNextStatement(denied);
  EXPECT_EQ(NumberOf([&] { sqlserver::Differences(session(), tsql::ParseSchema(kSchema)); }),
            platform::kStatementRefused);
  FailNextStatement(denied);
  EXPECT_EQ(NumberOf([&] { sqlserver::CreateLackingTables(database(), kSchema); }),
            platform::kStatementRefused);
}

TEST_F(TablesTest, OnlyTablesThatLackAreCreated) {
  const std::string schema = std::string(kSchema) + R"(-- um comentário; com ponto e vírgula
CREATE TABLE PT_Nova (Codigo nvarchar(10) NOT NULL, CONSTRAINT PK_PT_Nova PRIMARY KEY (Codigo));
CREATE INDEX IX_PT_Nova ON PT_Nova (Codigo);
)";
  const auto scripts = sqlserver::ScriptsOf(schema);
  ASSERT_EQ(scripts.size(), 3u);
  EXPECT_EQ(scripts[1].statements.size(), 2u);
  Run("INSERT INTO PT_Codigos (Codigo) VALUES ('B')");
  EXPECT_EQ(sqlserver::CreateLackingTables(database(), schema), std::vector<std::string>{"PT_Nova"});
  EXPECT_TRUE(sqlserver::CreateLackingTables(database(), schema).empty());
  EXPECT_EQ(Count("PT_Nova"), 0);
  EXPECT_EQ(Count("PT_Codigos"), 1);
}

TEST_F(TablesTest, DifferencesAreTold) {
  const auto differences = [&](const std::string& schema) {
    return sqlserver::Differences(session(), tsql::ParseSchema(schema));
  };
  EXPECT_TRUE(differences(kSchema).empty());
  EXPECT_EQ(differences("CREATE TABLE PT_Codigos (Codigo int IDENTITY(1,1) NOT NULL, Nome nvarchar(60) NULL, "
                        "Km money NULL, CONSTRAINT K PRIMARY KEY (Codigo)); CREATE TABLE Nada (A int NULL); "
                        "CREATE TABLE PT_Tudo (Notas nvarchar(9) NULL, Km int IDENTITY(1,1) NOT NULL);"),
            (std::vector<std::string>{
                "PT_Codigos.Codigo: a coluna é de outro tipo, e devia ser int",
                "PT_Codigos.Nome: a coluna tem a largura 50, e devia ter 60",
                "PT_Codigos.Km: falta a coluna, que é money", "Nada: falta a tabela",
                "PT_Tudo.Notas: a coluna tem a largura max, e devia ter 9",
                "PT_Tudo.Km: a base de dados não numera a coluna, que devia ser IDENTITY(1,1)"}));
}

TEST_F(TablesTest, WhatTheUserMayNotDoIsAskedInOneStatement) {
  using zorCrmParvel::TableUse;
  EXPECT_TRUE(database().Refused().empty()) << "nothing tells";
  sqlserver::Parameters none;
  for (const char* statement :
       {"CREATE TABLE direitos (Tabela text, Ler int, Juntar int, Mudar int, Tirar int)",
        "INSERT INTO direitos VALUES ('PT_Tudo', 0, 1, 1, 1), ('PT_Codigos', 0, 0, 0, 0), ('PT_Nada', 1, 0, "
        "0, 1)"})
    session().Write(statement, none);
  PretendServer();
  AnswerInstead("HAS_PERMS_BY_NAME", "SELECT * FROM direitos");
  store_ = contract_tests::OpenSqliteFile(folder_.File("contrato.db"));
  StatementsSent();
  EXPECT_EQ(database().Refused(),
            (zorCrmParvel::Refusals{{"PT_Tudo", {TableUse::kAdd, TableUse::kChange, TableUse::kRemove}},
                                    {"PT_Nada", {TableUse::kRead, TableUse::kRemove}}}));
  EXPECT_EQ(StatementsSent(), 1);
  FailNextStatement({"42000", 195, "'HAS_PERMS_BY_NAME' is not a recognized function.", ""});
  EXPECT_TRUE(database().Refused().empty());
}

TEST_F(TablesTest, NumberedColumnsAreThoseOfTheServersCatalogue) {
  PretendServer();
  sqlserver::Session posing(
      sqlserver::ConnectionText(contract_tests::SqliteConnection(folder_.File("contrato.db"))), "", {});
  sqlserver::Parameters none;
  for (const char* statement :
       {"ATTACH ':memory:' AS sys", "CREATE TABLE sys.tables (object_id int, name text)",
        "CREATE TABLE sys.identity_columns (object_id int, name text)",
        "INSERT INTO sys.tables VALUES (1, 'PT_Codigos'), (2, 'pt_tudo')",
        "INSERT INTO sys.identity_columns VALUES (2, 'KM')"})
    posing.Write(statement, none);
  const auto differences = sqlserver::Differences(
      posing, tsql::ParseSchema("CREATE TABLE PT_Tudo (Id int IDENTITY(1,1) NOT NULL, Km int IDENTITY(1,1) "
                                "NOT NULL, CONSTRAINT K PRIMARY KEY (Id));"));
  EXPECT_EQ(differences.back(),
            "PT_Tudo.Id: a base de dados não numera a coluna, que devia ser IDENTITY(1,1)");
  EXPECT_NE(differences.front().find("precisa de uma collation com CI"), std::string::npos);
}

}  // namespace
}  // namespace sqlserver_tests

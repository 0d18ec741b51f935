#include "server_fixture.h"

namespace sqlserver_tests {
namespace {

const Fault kLost{"08S01", 0, "[Maker][Driver]Communication link failure", ""};

class SessionTest : public ServerTest {
 protected:
  static constexpr std::chrono::seconds kLimit{1};

  std::shared_ptr<sqlserver::Database> Reopened(const char* ahead = nullptr) const {
    sqlserver::OpenOptions options;
    if (ahead != nullptr)
      options.expected = [ahead](const std::string& table, const store::WrittenValue& value) {
        return std::vector<std::string>{ahead + value(table == "PT_Codigos" ? "Codigo" : "Km") + "'"};
      };
    options.connection = contract_tests::SqliteConnection(folder_.File("contrato.db"));
    options.schema = kSchema;
    options.limits.statement = kLimit;
    return sqlserver::Database::Open(options);
  }
  void Write() { Run("INSERT INTO PT_Tudo (Km) VALUES (1)"); }
};

TEST_F(SessionTest, AReadThatLosesTheConnectionIsSentAgainOnce) {
  Write();
  ConnectionsMade();
  FailNextStatement(kLost);
  EXPECT_EQ(Count("PT_Tudo"), 1);
  EXPECT_EQ(ConnectionsMade(), 1);
  FailNextStatement(kLost);
  FailNextStatement(kLost);
  const std::string error = ErrorOf([&] { Count("PT_Tudo"); });
  EXPECT_NE(error.find("-2147467259: A ligação a "), std::string::npos) << error;
  EXPECT_NE(error.find("(Communication link failure)"), std::string::npos) << error;
  EXPECT_EQ(Count("PT_Tudo"), 1);
}

TEST_F(SessionTest, AWriteThatLosesTheConnectionIsNotSentAgain) {
  FailNextStatement(kLost);
  const std::string error = ErrorOf([&] { Write(); });
  EXPECT_NE(error.find("veja o registo antes de repetir"), std::string::npos) << error;
  Write();
  EXPECT_EQ(Count("PT_Tudo"), 1);
}

TEST_F(SessionTest, ABatchThatLosesTheConnectionIsLostWhole) {
  EXPECT_EQ(NumberOf([&] {
              zorCrmParvel::Batch batch(*store_);
              Write();
              FailNextStatement(kLost);
              EXPECT_EQ(NumberOf([&] { Write(); }), platform::kEngineFailure);
              EXPECT_EQ(NumberOf([&] { Write(); }), platform::kEngineFailure);  // nothing on its own
              batch.Commit();
            }),
            platform::kEngineFailure);
  EXPECT_EQ(Count("PT_Tudo"), 0);
  Write();
  EXPECT_EQ(Count("PT_Tudo"), 1);
}

TEST_F(SessionTest, WhatTheServerUndidIsNotCommitted) {
  PretendServer();
  store_ = Reopened();
  const std::string error = ErrorOf([&] {
    zorCrmParvel::Batch batch(*store_);
    Write();
    FailNextStatement({"22007", 242, "The conversion resulted in an out-of-range value.", ""});
    EXPECT_EQ(NumberOf([&] { Write(); }), platform::kStatementRefused);
    Write();
    batch.Commit();
  });
  EXPECT_NE(error.find("nada dela ficou gravado"), std::string::npos) << error;
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(SessionTest, AConnectionThatDiesAfterTheCommitLosesNothing) {
  zorCrmParvel::Batch batch(*store_);
  Write();
  FailAfterBatch(kLost);
  batch.Commit();
  EXPECT_EQ(Count("PT_Tudo"), 1);
}

TEST_F(SessionTest, ASilentServerIsLeftAtTheTimeLimitAndNotAskedAgain) {
  GoSilentOn("PT_Tudo");
  store_ = Reopened();
  StatementsSent();
  ConnectionsMade();
  const auto begin = std::chrono::steady_clock::now();
  const std::string error = ErrorOf([&] { Count("PT_Tudo"); });
  EXPECT_LT(std::chrono::steady_clock::now() - begin, kLimit + std::chrono::seconds(2));
  EXPECT_NE(error.find("dentro do tempo limite"), std::string::npos) << error;
  EXPECT_EQ(StatementsSent(), 1);
  EXPECT_EQ(ConnectionsMade(), 0);
  EXPECT_EQ(Count("PT_Codigos"), 0);
  EXPECT_EQ(ConnectionsMade(), 1);
}

TEST_F(SessionTest, AnUnusedConnectionIsTriedBeforeAWrite) {
  sqlserver::Limits limits;
  limits.idle = std::chrono::seconds(0);
  sqlserver::Session session(
      sqlserver::ConnectionText(contract_tests::SqliteConnection(folder_.File("contrato.db"))), "", limits);
  ConnectionsMade();
  FailNextStatement(kLost);  // hits the trial
  sqlserver::Parameters none;
  EXPECT_EQ(session.Write("INSERT INTO PT_Tudo (Km) VALUES (1)", none), 1);
  EXPECT_EQ(ConnectionsMade(), 1);
}

TEST_F(SessionTest, RoundTripsAreFew) {
  Run("INSERT INTO PT_Codigos (Codigo, Nome) VALUES ('A', 'um')");
  StatementsSent();
  EXPECT_EQ(Open("SELECT * FROM PT_Codigos WHERE Codigo = 'A'")->RecordCount(), 1);
  EXPECT_EQ(StatementsSent(), 1);
  const auto rows = Edit("SELECT * FROM PT_Codigos WHERE Codigo = 'A'");
  rows->Fields("Nome").SetValue("dois");
  rows->Update();
  EXPECT_EQ(StatementsSent(), 2);
}

TEST_F(SessionTest, ABatchComesWithItsStatementsAndReadsAheadWithItsWrites) {
  Run("INSERT INTO PT_Codigos (Codigo, Nome) VALUES ('A', 'um')");
  PretendServer();
  store_ = Reopened("SELECT Nome FROM PT_Codigos WHERE Codigo = '");
  const auto sent = [](int wanted) { EXPECT_EQ(StatementsSent(), wanted); };
  const auto named = [&](const char* name) {
    EXPECT_EQ(testing_support::Rows(store_, "SELECT Nome FROM PT_Codigos WHERE Codigo = 'A'"),
              Table({{name}}));
  };
  StatementsSent();
  zorCrmParvel::Batch batch(*store_);
  sent(0);
  auto rows = Edit("SELECT * FROM PT_Codigos WHERE Codigo = 'A'");
  sent(1);
  rows->Fields("Nome").SetValue("dois");
  rows->Update();
  sent(1);
  named("dois");
  named("dois");
  sent(0);
  Run("UPDATE PT_Codigos SET Nome = 'três'");
  named("três");
  sent(2);
  rows = Edit("SELECT * FROM PT_Tudo WHERE Id = 0");
  rows->AddNew();
  rows->Fields("Km").SetValue(7);
  rows->Update();
  EXPECT_EQ(rows->Fields("Id").Value().ToLong(), 1);
  sent(2);
  batch.Commit();
  sent(1);
  named("três");
  named("três");
  sent(2);
  EXPECT_EQ(Count("PT_Tudo"), 1);
}

TEST_F(SessionTest, WhatFailsAheadIsToldWhenItIsAsked) {
  Run("INSERT INTO PT_Codigos (Codigo, Nome) VALUES ('A', 'um')");
  PretendServer();
  const std::string lacking = "SELECT * FROM PT_Nada WHERE Codigo = '";
  store_ = Reopened(lacking.c_str());
  zorCrmParvel::Batch batch(*store_);
  const auto rows = Edit("SELECT * FROM PT_Codigos WHERE Codigo = 'A'");
  rows->Fields("Nome").SetValue("dois");
  rows->Update();
  EXPECT_NE(ErrorOf([&] { Open(lacking + "A'"); }), "");
}

TEST_F(SessionTest, ABatchThatCouldNotBeginBeginsWithTheNextStatement) {
  PretendServer();
  store_ = Reopened();
  {
    zorCrmParvel::Batch batch(*store_);
    FailNextStatement({"42000", 1222, "Lock request time out.", "BEGIN TRANSACTION"});
    EXPECT_EQ(NumberOf([&] { Count("PT_Tudo"); }), platform::kEngineFailure);
    Write();
    EXPECT_EQ(Count("PT_Tudo"), 1);
  }
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(SessionTest, FailuresOfStatementsSayWhatToDo) {
  const std::vector<std::pair<Fault, std::string>> cases = {
      {{"42S02", 208, "[F][S]Invalid object name 'X'.", ""},
       "-2147217865: Invalid object name 'X'. Falta a tabela na base de dados."},
      {{"42S22", 207, "[F][S]Invalid column name 'X'.", ""}, "-2147217904: Invalid column name 'X'."},
      {{"23000", 2627, "Violation of PRIMARY KEY constraint.", ""},
       "-2147217873: Violation of PRIMARY KEY constraint."},
      {{"42000", 229, "The SELECT permission was denied.", ""},
       "-2147217900: The SELECT permission was denied. O utilizador da ligação não tem permissão"},
      {{"25000", 3906, "Failed to update database.", ""},
       "-2147217900: Failed to update database. A base de dados só permite leitura"},
      {{"22001", 8152, "String or binary data would be truncated.", ""},
       "-2147217900: String or binary data would be truncated."},
      {{"40001", 1205, "Deadlocked.", ""}, "-2147467259: Deadlocked. Outro utilizador"},
      {{"42000", 102, "Incorrect syntax near 'x'.", ""}, "-2147217900: Incorrect syntax near 'x'."},
      {{"HYT00", 0, "Timeout expired", ""}, "-2147467259: Timeout expired. O servidor não respondeu"}};
  for (const auto& [fault, error] : cases) {
    SCOPED_TRACE(error);
    FailNextStatement(fault);
    EXPECT_EQ(ErrorOf([&] { Count("PT_Tudo"); }).substr(0, error.size()), error);
  }
  EXPECT_EQ(Count("PT_Tudo"), 0);
}

TEST_F(SessionTest, FailuresToConnectSayWhatToDoAndKeepThePassword) {
  sqlserver::OpenOptions options;
  options.connection = contract_tests::SqliteConnection(folder_.File("contrato.db")) + ";Server=srv;UID=ana";
  options.password = "segredo";
  const std::vector<std::pair<Fault, const char*>> cases = {
      {{"28000", 18456, "Login failed for user 'ana'.", ""}, "recusou o utilizador ou a senha"},
      {{"28000", 18487, "The password of the account has expired.", ""}, "ou a senha expirou"},
      {{"28000", 18488, "The password of the account must be changed.", ""}, "ou a senha expirou"},
      {{"42000", 4060, "Cannot open database \"x\".", ""}, "não existe no servidor, ou o utilizador"},
      {{"08001", 0, "Unable to connect to data source", ""}, "Confirme Server e Port"},
      {{"08001",
        20002,
        "Adaptive Server connection failed",
        "",
        {{"01000", 5701, "Changed database context.", ""}, {"42000", 17892, "Logon failed: trigger.", ""}}},
       "O servidor recusou a ligação, e diz porquê. Se não depende de si, peça ao seu administrador que "
       "veja. "
       "(Logon failed: trigger.)"},
      {{"HYT00", 0, "Login timeout expired", ""}, "Confirme Server e Port"},
      {{"01000", 0, "Can't open lib 'x'", ""}, "não está instalado nesta máquina"},
      {{"IM002", 0, "Data source name not found", ""}, "não está instalado nesta máquina"}};
  for (const auto& [fault, advice] : cases) {
    SCOPED_TRACE(advice);
    FailNextConnection(fault);
    const std::string error = ErrorOf([&] { sqlserver::Database::Open(options); });
    EXPECT_NE(error.find("-2147467259: Não foi possível ligar a "), std::string::npos) << error;
    EXPECT_NE(error.find(advice), std::string::npos) << error;
    EXPECT_EQ(error.find("segredo"), std::string::npos);
  }
}

TEST_F(SessionTest, APasswordThatTheDriverWouldMisreadIsNotSent) {
  const std::string connection = contract_tests::SqliteConnection(folder_.File("contrato.db"));
  const auto open = [](const std::string& text, const char* password) {
    return ErrorOf([&] { sqlserver::Session(sqlserver::ConnectionText(text), password, {}); });
  };
  for (const char* fine : {"a;b", "a}b", "a{b"}) EXPECT_EQ(open(connection + ";Server=FreeTDS", fine), "");
  EXPECT_EQ(open(connection, "a;b}c"), "");
  ConnectionsMade();
  for (const char* misread : {"a;b}c", "{a}", " a}"})
    EXPECT_NE(open("Driver=FreeTDS;Server=srv", misread).find("Nada foi enviado"), std::string::npos);
  EXPECT_EQ(ConnectionsMade(), 0);
}

}  // namespace
}  // namespace sqlserver_tests

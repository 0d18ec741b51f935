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

TEST_F(SessionTest, EveryKindOfValueGoesAsItsColumnTakesIt) {
  using platform::FieldType;
  using platform::Variant;
  const auto bound = [&](FieldType type, long width, const Variant& value) {
    sqlserver::Parameters parameters;
    platform::FieldInfo field;
    field.type = type;
    field.definedSize = width;
    parameters.Add(field, value);
    Bindings();
    session().Write("DELETE FROM PT_Codigos WHERE Codigo = ?", parameters);
    return Bindings();
  };
  EXPECT_EQ(bound(FieldType::kBool, 2, true) + bound(FieldType::kInteger, 2, std::int16_t{7}) +
                bound(FieldType::kLong, 4, 7) + bound(FieldType::kDouble, 8, 0.5) +
                bound(FieldType::kCurrency, 8, platform::Currency(12)) +
                bound(FieldType::kDate, 16, platform::Date::FromParts(2024, 1, 2)),
            "-7/-7/1/0/1/ -15/5/5/0/2/ -16/4/10/0/4/ 8/8/15/0/8/ 1/3/19/4/2/ 93/93/23/3/16/ ");
  EXPECT_EQ(
      bound(FieldType::kText, 10, "ação") + bound(FieldType::kText, 10, Variant::Null{}) +
          bound(FieldType::kText, 0, "x") +
          bound(FieldType::kText, platform::kUnlimitedSize, std::string(4000, 'x')) +
          bound(FieldType::kText, platform::kUnlimitedSize, std::string(4001, 'x')) +
          bound(FieldType::kBytes, platform::kUnlimitedSize, platform::Bytes(8000)) +
          bound(FieldType::kBytes, platform::kUnlimitedSize, platform::Bytes(8001)),
      "-8/-9/10/0/8/ -8/-9/10/0/-1/ -8/-9/1/0/2/ -8/-9/4000/0/8000/ -8/-10/4001/0/8002/ -2/-3/8000/0/8000/ "
      "-2/-4/8001/0/8001/ ");
}

TEST_F(SessionTest, EveryTypeOfColumnIsReadAsTheProgramKnowsIt) {
  const std::pair<const char*, const char*> columns[] = {{"bit", "1"},
                                                         {"tinyint", "2"},
                                                         {"smallint", "3"},
                                                         {"integer", "4"},
                                                         {"bigint", "5"},
                                                         {"real", "0.5"},
                                                         {"float", "0.25"},
                                                         {"double", "0.125"},
                                                         {"decimal(9,2)", "1.5"},
                                                         {"money", "12.3456"},
                                                         {"smallmoney", "-0.0001"},
                                                         {"date", "'2024-02-29'"},
                                                         {"datetime", "'2024-02-29 08:09:10'"},
                                                         {"binary(4)", "x'0102'"},
                                                         {"varbinary(9)", "x'010203'"},
                                                         {"varchar(7)", "'ação'"},
                                                         {"nvarchar(8000)", "'a'"},
                                                         {"nvarchar(8001)", "'b'"},
                                                         {"text", "'c'"},
                                                         {"blob", "x'00FF'"},
                                                         {"bigint", "3000000000"}};
  sqlserver::Parameters none;
  std::string all;
  for (const auto& [type, value] : columns) {
    for (const std::string& sql :
         {std::string("DROP TABLE IF EXISTS tipos"), std::string("CREATE TABLE tipos (c ") + type + ")",
          std::string("INSERT INTO tipos VALUES (NULL), (") + value + ")"})
      session().Write(sql, none);
    const std::string error = ErrorOf([&] {
      session().Read("SELECT c FROM tipos ORDER BY c", [&, type = type](sqlserver::ResultReader& reader) {
        platform::RowStore store(1);
        reader.ReadAll(store);
        const platform::FieldInfo& field = reader.fields()[0];
        const platform::Variant read = store.At(1, 0).ToVariant();
        all += std::string(type) + " " + std::to_string(static_cast<int>(field.type)) + "/" +
               std::to_string(field.definedSize) + " " + (store.At(0, 0).IsNull() ? "" : "? ") +
               (field.type == platform::FieldType::kBytes ? std::to_string(read.ToBytes().size())
                                                          : read.ToText()) +
               "\n";
      });
    });
    if (!error.empty()) all += error + "\n";
  }
  // The driver takes "binary" for a text, which then is longer than it says.
  EXPECT_EQ(all, R"(bit 0/2 True
tinyint 1/2 2
smallint 1/2 3
integer 2/4 4
bigint 2/4 5
real 3/8 0,5
float 3/8 0,25
double 3/8 0,125
decimal(9,2) 6/9 1.5
money 4/8 12,3456
smallmoney 4/8 -0,0001
date 5/16 29-02-2024
datetime 5/16 29-02-2024 08:09:10
-2147467259: O servidor enviou um texto maior do que a coluna declara.
varbinary(9) 7/9 3
varchar(7) 6/7 ação
nvarchar(8000) 6/8000 a
nvarchar(8001) 6/1073741823 b
text 6/1073741823 c
blob 7/255 2
-2147217900: Arithmetic overflow error converting expression to data type int.
)");
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

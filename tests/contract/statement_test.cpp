#include "engines.h"

namespace contract_tests {
namespace {

class StatementContract : public ContractTest {
 protected:
  void AddDates() {
    for (const char* date : {"2024.03.01 08:30:00", "2024-03-02", "1900.01.01"})
      Run(std::string("INSERT INTO PT_Tudo (Nome, Km, Valor, Data) VALUES (N'Ávila', 3, 500, '") + date +
          "')");
  }
};

INSTANTIATE_TEST_SUITE_P(Engine, StatementContract, testing::ValuesIn(Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(StatementContract, FailuresHaveTheirNumbersAndTheServersWords) {
  AddCodes(2);
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"SELECT * FROM Nada", "-2147217865: Invalid object name 'Nada'."},
      {"DELETE FROM Nada", "-2147217865: Invalid object name 'Nada'."},
      {"SELECT Nada FROM PT_Codigos", "-2147217904: Invalid column name 'Nada'."},
      {"INSERT INTO PT_Codigos (Codigo) VALUES ('C1001')", "-2147217873: "},
      {"INSERT INTO PT_Codigos (Nome) VALUES ('x')", "-2147217873: "},
      {"UPDATE PT_Codigos SET Nome = 'igual'", "-2147217873: "},
      {"SELECT * FROM PT_Codigos WHERE Codigo = 'a",
       "-2147217900: Unclosed quotation mark after the character string 'a'."},
      {"SELECT * FROM PT_Codigos WHERE", "-2147217900: Incorrect syntax near"},
      {"DROP TABLE PT_Codigos", "-2147217900: Incorrect syntax near the keyword 'DROP'."},
      {"DELETE FROM PT_Codigos; DELETE FROM PT_Codigos", "-2147217900: "}};
  for (const auto& [statement, error] : cases) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(ErrorOf([&, text = statement] { Run(text); }).substr(0, std::string(error).size()), error);
  }
  EXPECT_EQ(Open("SELECT * FROM PT_Codigos")->RecordCount(), 2);
}

TEST_P(StatementContract, WritesThatHitNothingAreNoFailures) {
  AddCodes(2);
  EXPECT_TRUE(store_->ExecutarSql("", "DELETE FROM PT_Codigos WHERE Codigo = 'nenhum'"));
  EXPECT_TRUE(store_->ExecutarSql("", "UPDATE PT_Codigos SET Nome = 'x' WHERE Codigo = 'nenhum'"));
  EXPECT_EQ(Open("SELECT * FROM PT_Codigos")->RecordCount(), 2);
}

TEST_P(StatementContract, OnlyRowsOfOneTableAreOpenedForEditing) {
  for (const char* statement :
       {"SELECT PT_Tudo.Id FROM PT_Tudo JOIN PT_Codigos ON Codigo = PT_Tudo.Nome",
        "SELECT DISTINCT Nome FROM PT_Codigos", "SELECT MAX(Nome) AS x FROM PT_Codigos",
        "SELECT Nome FROM PT_Codigos UNION SELECT Nome FROM PT_Tudo", "SELECT 1 AS x",
        "DELETE FROM PT_Codigos"}) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(NumberOf([&] { Edit(statement); }), platform::kStatementRefused);
  }
  EXPECT_EQ(NumberOf([&] { Edit("SELECT * FROM Nada"); }), platform::kInvalidObject);
}

TEST_P(StatementContract, ABatchIsKeptWholeOrNotAtAll) {
  {
    zorCrmParvel::Batch abandoned(*store_);
    AddCodes(3);
    EXPECT_EQ(Open("SELECT * FROM PT_Codigos")->RecordCount(), 3);
  }
  EXPECT_EQ(Open("SELECT * FROM PT_Codigos")->RecordCount(), 0);
  zorCrmParvel::Batch kept(*store_);
  AddCodes(2);
  EXPECT_NE(ErrorOf([&] { AddCodes(1); }), "");  // one failing statement leaves the others
  kept.Commit();
  EXPECT_EQ(Open("SELECT * FROM PT_Codigos")->RecordCount(), 2);
  Run("DELETE FROM PT_Codigos");
}

TEST_P(StatementContract, TheDialectIsTheServers) {
  if (!GetParam().speaksTsql) GTEST_SKIP() << "SQLite does not read the server's dialect.";
  AddDates();
  const std::vector<std::pair<const char*, Table>> cases = {
      {"SELECT Top 1 Nome as ' ' FROM PT_Tudo WHERE Nome = N'ávila  '", {{"Ávila"}}},
      {"SELECT Nome AS 'Descrição' FROM PT_Tudo WHERE Nome = 'avila'", {}},
      {"SELECT count(*) AS n FROM PT_Tudo WHERE Nome LIKE N'á%'", {{"3"}}},
      {"SELECT Km FROM PT_Tudo WHERE Data>'' AND Km = N'3' AND Data<='2024-03-01'", {}},
      {"SELECT CONVERT(nvarchar(10), Data, 102) AS a, CONVERT(nvarchar(10), Data, 105) AS b FROM PT_Tudo "
       "WHERE Data>='2024.03.02'",
       {{"2024.03.02", "02-03-2024"}}},
      {"SELECT cast(Valor AS nvarchar(20)) AS v FROM PT_Tudo WHERE Data < '1950.01.01'", {{"500.00"}}},
      {"SELECT datediff(d, '2024.02.28', Data) AS d FROM PT_Tudo WHERE Data > '2024.03.01' ORDER BY Data",
       {{"2"}, {"3"}}},
      {"SELECT COALESCE(Notas, LEFT(Nome, 2)) AS c, CASE WHEN Km > 3 THEN 1 END AS k FROM PT_Tudo "
       "WHERE Data < '1950.01.01'",
       {{"Áv", "NULL"}}},
      {"SELECT Nome FROM PT_Tudo UNION SELECT N'ÁVILA ' FROM PT_Tudo", {{"Ávila"}}}};
  for (const auto& [statement, rows] : cases) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(Rows(statement), rows);
  }
}

TEST_P(StatementContract, TextTooLongForItsColumnIsRefused) {
  if (!GetParam().speaksTsql) GTEST_SKIP() << "SQLite keeps a text of any length.";
  const std::string error = ErrorOf([&] { Run("INSERT INTO PT_Tudo (Nome) VALUES ('0123456789a')"); });
  EXPECT_EQ(error.substr(0, 50), "-2147217900: String or binary data would be trunca");
  Run("INSERT INTO PT_Tudo (Nome) VALUES ('0123456789   ')");
}

TEST_P(StatementContract, AFailureOnARowIsRaised) {
  if (!GetParam().speaksTsql) GTEST_SKIP() << "SQLite gives null for a division by zero.";
  for (int km = 9; km >= 0; --km) Run("INSERT INTO PT_Tudo (Km) VALUES (" + std::to_string(km) + ")");
  const auto readAll = [&] {
    const RecordsetRef rows = Open("SELECT 90 / Km AS x FROM PT_Tudo ORDER BY Id");
    for (; !rows->Eof(); rows->MoveNext()) {
    }
  };
  EXPECT_EQ(ErrorOf(readAll), "-2147217900: Divide by zero error encountered.");
}

}  // namespace
}  // namespace contract_tests

#include <filesystem>

#include "engine_fixture.h"
#include "support/files.h"

namespace embedded_tests {
namespace {

class SelectTest : public EngineTest {
 protected:
  SelectTest() {
    AddCodes(3);
    Run("INSERT INTO Tudo (Nome, Km, Valor) VALUES ('c1002', 5, 20)");
    Run("INSERT INTO Tudo (Nome, Km, Valor) VALUES ('C1001', 9, 10)");
    Run("INSERT INTO Tudo (Nome, Km, Activa) VALUES ('nenhum', 1, 1)");
  }
  std::vector<std::string> Names(const std::string& statement) const {
    std::vector<std::string> names;
    const RecordsetRef rows = Open(statement);
    for (const auto& field : rows->FieldList()) names.push_back(field.name);
    return names;
  }
};

TEST_F(SelectTest, JoinsKeepOrDropRowsWithoutAMatch) {
  EXPECT_EQ(
      Rows("SELECT Tudo.Nome, C.Nome FROM Tudo INNER JOIN Codigos AS C ON C.Codigo = Tudo.Nome ORDER BY Id"),
      (Table{{"c1002", "Nome 1002"}, {"C1001", "Nome 1001"}}));
  EXPECT_EQ(Rows("SELECT Km, C.Nome FROM Tudo LEFT OUTER JOIN Codigos C ON C.Codigo = Tudo.Nome ORDER BY 1"),
            (Table{{"1", "NULL"}, {"5", "Nome 1002"}, {"9", "Nome 1001"}}));
}

TEST_F(SelectTest, NamesAreSpelledAsInTheStatementOrTheTable) {
  EXPECT_EQ(Names("SELECT codigo, NOME AS Título, Nome as ' ', Nome + '' FROM Codigos"),
            (std::vector<std::string>{"codigo", "Título", " ", ""}));
  EXPECT_EQ(Names("SELECT * FROM codigos AS a INNER JOIN Codigos AS b ON a.Codigo = b.Codigo"),
            (std::vector<std::string>{"Codigo", "Nome", "Codigo", "Nome"}));
}

TEST_F(SelectTest, ColumnsHaveTheTypesOfTheServer) {
  const RecordsetRef rows = Open(
      "SELECT Tudo.Nome, Notas, Foto, Tudo.Nome + 'abc' AS a, CASE WHEN Km = 1 THEN 'um' ELSE 'outro' END AS "
      "b, Valor - Km AS c, Outra.Nome AS d, 100 AS e, Activa, Ano, Razao, Data, COALESCE(Notas, '') AS f "
      "FROM Tudo LEFT JOIN Codigos "
      "AS Outra ON 1 = 0");
  using platform::FieldType;
  const std::vector<FieldType> types = {
      FieldType::kText,     FieldType::kText, FieldType::kBytes, FieldType::kText, FieldType::kText,
      FieldType::kCurrency, FieldType::kText, FieldType::kLong,  FieldType::kBool, FieldType::kInteger,
      FieldType::kDouble,   FieldType::kDate, FieldType::kText};
  const long unlimited = platform::kUnlimitedSize;
  const std::vector<long> sizes = {10, unlimited, unlimited, 13, 5, 8, 50, 4, 2, 2, 8, 16, unlimited};
  std::string notNull;
  ASSERT_EQ(rows->FieldList().size(), types.size());
  for (std::size_t i = 0; i < types.size(); ++i) {
    SCOPED_TRACE(i);
    const platform::FieldInfo& field = rows->FieldList()[i];
    EXPECT_EQ(field.type, types[i]);
    EXPECT_EQ(field.definedSize, sizes[i]);
    if (!field.nullable) notNull += field.name;
  }
  EXPECT_EQ(notNull, "bef");
}

TEST_F(SelectTest, AliasWinsInTheOrder) {
  EXPECT_EQ(Rows("SELECT Km AS Valor, Valor AS Km FROM Tudo ORDER BY Valor DESC"),
            (Table{{"9", "10"}, {"5", "20"}, {"1", "NULL"}}));
  EXPECT_EQ(Rows("SELECT Km AS Valor FROM Tudo ORDER BY Tudo.Valor"), (Table{{"1"}, {"9"}, {"5"}}));
  // The column of the select list, though both tables have one of this name.
  EXPECT_EQ(Rows("SELECT Codigos.Nome FROM Tudo INNER JOIN Codigos ON Codigo = Tudo.Nome ORDER BY nome"),
            (Table{{"Nome 1001"}, {"Nome 1002"}}));
}

TEST_F(SelectTest, UnionKeepsTheFirstOfEqualRows) {
  const std::string both =
      "SELECT 'ab' AS Letra, 1 AS n UNION SELECT 'AB ', 1 UNION SELECT 'á', 2 UNION SELECT 'a', 2";
  EXPECT_EQ(Rows(both + " ORDER BY letra DESC"), (Table{{"ab", "1"}, {"á", "2"}, {"a", "2"}}));
  EXPECT_EQ(Rows(both + " ORDER BY n DESC, Letra"), (Table{{"a", "2"}, {"á", "2"}, {"ab", "1"}}));
  EXPECT_EQ(Rows(both + " ORDER BY 2"), (Table{{"ab", "1"}, {"a", "2"}, {"á", "2"}}));
  EXPECT_EQ(Rows(both + " UNION ALL SELECT 'AB', 1 ORDER BY Letra, n"),
            (Table{{"a", "2"}, {"á", "2"}, {"ab", "1"}, {"AB", "1"}}));
  EXPECT_EQ(Open(both)->RecordCount(), 3);
  const std::string all = "SELECT 'x' AS a UNION ALL SELECT 'X' UNION SELECT 'x ' UNION ALL SELECT 'x'";
  EXPECT_EQ(Rows(all), (Table{{"x"}, {"x"}})) << "the last plain union makes what is before it distinct";
  EXPECT_EQ(Open(all)->RecordCount(), 2);
  EXPECT_EQ(Rows("SELECT 'A' AS a UNION SELECT 'a' UNION ALL SELECT 'a'"), (Table{{"A"}, {"a"}}));
  EXPECT_EQ(Rows("SELECT 'A' AS a UNION SELECT 'b' UNION SELECT 'a' UNION ALL SELECT 'c' ORDER BY a"),
            (Table{{"A"}, {"b"}, {"c"}}));
  EXPECT_EQ(Rows("SELECT NULL AS a, Valor FROM Tudo WHERE Valor = 20 UNION SELECT NULL, 20"),
            (Table{{"NULL", "20"}}));
  EXPECT_EQ(Rows("SELECT DISTINCT LEFT(Nome, 1) AS x FROM Tudo ORDER BY x").size(), 2u);
  EXPECT_EQ(Rows("SELECT DISTINCT Km AS x, Nome AS y FROM Tudo ORDER BY Tudo.Nome DESC"),
            Rows("SELECT DISTINCT Km AS x, Nome AS y FROM Tudo ORDER BY y DESC"));
}

TEST_F(SelectTest, TopIsPartOfTheShape) {
  for (const char* top : {"1", "2", "3", "1"})
    EXPECT_EQ(Rows(std::string("SELECT TOP ") + top + " Codigo FROM Codigos ORDER BY Codigo DESC").size(),
              static_cast<std::size_t>(*top - '0'));
  EXPECT_EQ(Names("SELECT Nome AS 'a b' FROM Codigos"), std::vector<std::string>{"a b"});
  EXPECT_EQ(Names("SELECT Nome AS 'c' FROM Codigos"), std::vector<std::string>{"c"});
  EXPECT_EQ(Open("SELECT 'ab' AS x FROM Codigos")->FieldList()[0].definedSize, 2);
  EXPECT_EQ(Open("SELECT 'abc' AS x FROM Codigos")->FieldList()[0].definedSize, 3);
}

TEST_F(SelectTest, LiteralsOfOneShapeAreReadEachTime) {
  for (const char* km : {"5", "9", "77"}) {
    const std::string where = std::string(" FROM Tudo WHERE Km = ");
    EXPECT_EQ(Rows("SELECT Nome" + where + km).size(), km == std::string("77") ? 0u : 1u);
    EXPECT_EQ(Rows("SELECT Nome" + where + "N'" + km + "'").size(), km == std::string("77") ? 0u : 1u);
  }
  EXPECT_EQ(Rows("SELECT Nome FROM Tudo WHERE Nome = 'o''x'").size(), 0u);
  EXPECT_EQ(Rows("SELECT Nome FROM Tudo WHERE Nome = 'C1001'"), (Table{{"C1001"}}));
  // A comment may hold anything that a shape is made of.
  EXPECT_EQ(Rows("SELECT Nome FROM Tudo WHERE Nome = /* a 'x' 1 */ 'C1001' -- 'y'"), (Table{{"C1001"}}));
}

TEST_F(SelectTest, CountsTheRowsThatItReads) {
  for (const char* statement :
       {"SELECT TOP 2 * FROM Codigos", "SELECT TOP 9 * FROM Codigos WHERE Codigo > 'C1001'", "SELECT 1 AS x",
        "SELECT DISTINCT 1 AS x FROM Codigos", "SELECT MAX(Nome) AS x FROM Codigos WHERE Codigo = ''",
        "SELECT Tudo.Nome FROM Tudo LEFT JOIN Codigos ON Codigo = Tudo.Nome",
        "SELECT Tudo.Nome FROM Tudo LEFT JOIN Codigos ON Codigo > Tudo.Nome ORDER BY Codigo",
        "SELECT TOP 1 Nome FROM Codigos UNION ALL SELECT TOP 2 Nome FROM Tudo"}) {
    const RecordsetRef rows = Open(statement);
    const long count = rows->RecordCount();
    EXPECT_EQ(static_cast<std::size_t>(count), ReadOn(rows)) << statement;
    EXPECT_EQ(rows->RecordCount(), count) << statement;
  }
}

TEST_F(SelectTest, RefusesWhatTheServerRefuses) {
  const std::vector<Refusal> cases = {
      {"SELECT Tudo.Nada FROM Tudo", "-2147217904: Invalid column name 'Nada'."},
      {"SELECT T.Nome FROM Tudo", "-2147217900: The multi-part identifier \"T.Nome\" could not be bound."},
      {"SELECT Tudo.Nome FROM Tudo AS T",
       "-2147217900: The multi-part identifier \"Tudo.Nome\" could not be bound."},
      {"SELECT Nome FROM Tudo, Codigos", "-2147217900: Incorrect syntax near ','."},
      {"SELECT Nome FROM Tudo JOIN Codigos ON Codigo = ''", "-2147217900: Ambiguous column name 'Nome'."},
      {"SELECT * FROM Tudo ORDER BY Nada", "-2147217904: Invalid column name 'Nada'."},
      {"SELECT Km AS a, Ano AS a FROM Tudo ORDER BY a", "-2147217900: Ambiguous column name 'a'."},
      {"SELECT * FROM Tudo JOIN Tudo ON 1 = 1",
       "-2147217900: The objects \"Tudo\" and \"Tudo\" in the FROM clause have the same exposed names. Use "
       "correlation names to distinguish them."},
      {"SELECT Nome FROM Tudo UNION SELECT Nome, Codigo FROM Codigos",
       "-2147217900: All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal "
       "number of expressions in their target lists."},
      {"SELECT Nome FROM Tudo UNION SELECT Nome FROM Codigos ORDER BY Km",
       "-2147217900: ORDER BY items must appear in the select list if the statement contains a UNION, "
       "INTERSECT or EXCEPT operator, or if SELECT DISTINCT is specified."},
      {"SELECT Nome FROM Tudo ORDER BY 2",
       "-2147217900: The ORDER BY position number 2 is out of range of the number of items in the select "
       "list."},
      {"SELECT Nome, MAX(Km) AS m FROM Tudo",
       "-2147217900: Column 'Nome' is invalid in the select list because it is not contained in either an "
       "aggregate function or the GROUP BY clause."},
      {"SELECT Nome FROM Tudo WHERE Data = 'amanhã'",
       "-2147217900: Conversion failed when converting date and/or time from character string."}};
  for (const Refusal& refusal : cases) {
    SCOPED_TRACE(refusal.statement);
    EXPECT_EQ(ErrorOf([&] { Open(refusal.statement); }), refusal.error);
  }
}

/// Every statement that the module is known to send runs on the program's own tables.
TEST(ModuleStatements, Compile) {
  const auto database = embedded::Database::Open(":memory:", Options(""));
  std::size_t count = 0;
  for (const auto& file :
       std::filesystem::directory_iterator(PARVEL_SOURCE_DIR "/tests/fuzz/corpus/accepted")) {
    const std::string text = testing_support::Contents(file.path().string());
    RecordsetRef rows;
    EXPECT_EQ(ErrorOf([&] {
                database->AbrirLeitura("", text.c_str(), rows);
                if (rows->IsOpen()) rows->RecordCount();
              }),
              "")
        << file.path().filename();
    ++count;
  }
  EXPECT_GT(count, 100u);
}

using SelectRecordsetTest = EngineTest;

TEST_F(SelectRecordsetTest, ReadsRowsAsTheyAreAskedFor) {
  AddCodes(300);
  const RecordsetRef rows = Open("SELECT Codigo FROM Codigos ORDER BY Codigo");
  EXPECT_LT(rows->RowsAtHand(), 10u);
  EXPECT_EQ(rows->RecordCount(), 300);
  EXPECT_LT(rows->RowsAtHand(), 10u);
  EXPECT_EQ(rows->CellAt(120, 0).block(), "C1121");
  EXPECT_LT(rows->RowsAtHand(), 250u);
  EXPECT_EQ(rows->Fields("codigo").Value().ToText(), "C1001");
  rows->MoveLast();
  EXPECT_EQ(rows->Fields("codigo").Value().ToText(), "C1300");
  EXPECT_EQ(rows->RecordCount(), 300);
}

TEST_F(SelectRecordsetTest, OneShapeIsOpenManyTimesAtOnce) {
  AddCodes(150);
  const RecordsetRef outer = Open("SELECT Codigo FROM Codigos WHERE Codigo > 'C0'");
  const RecordsetRef other = Open("SELECT Codigo FROM Codigos WHERE Codigo > 'C1100'");
  std::size_t found = 0;
  for (; !outer->Eof(); outer->MoveNext())
    found +=
        Rows("SELECT Codigo FROM Codigos WHERE Codigo > '" + outer->Fields("Codigo").Value().ToText() + "'")
            .size();
  EXPECT_EQ(found, 150u * 149u / 2u);
  EXPECT_EQ(ReadOn(other), 50u);
}

TEST_F(SelectRecordsetTest, AFailureComesWithTheRowThatCouldNotBeRead) {
  for (int km = 90; km >= 0; --km) Run("INSERT INTO Tudo (Km) VALUES (" + std::to_string(km) + ")");
  EXPECT_EQ(ErrorOf([&] { Open("SELECT 1 / (Km - 90) AS x FROM Tudo ORDER BY Id"); }),
            "-2147217900: Divide by zero error encountered.");
  for (const bool interrupted : {false, true}) {
    const RecordsetRef rows = Open("SELECT 90 / Km AS x FROM Tudo ORDER BY Id");
    if (interrupted) Run("DELETE FROM Codigos");
    for (int i = 0; i < 89; ++i) rows->MoveNext();
    EXPECT_EQ(rows->Fields("x").Value().ToLong(), 90);
    EXPECT_EQ(ErrorOf([&] {
                rows->MoveNext();
                rows->Eof();
              }),
              "-2147217900: Divide by zero error encountered.");
  }
}

TEST_F(SelectRecordsetTest, ManyShapesPushOutTheOldOnes) {
  AddCodes(1);
  const RecordsetRef rows = Open("SELECT Codigo FROM Codigos");
  for (int i = 0; i < 600; ++i)
    ASSERT_EQ(Rows("SELECT TOP 1 Nome AS n" + std::to_string(i) + " FROM Codigos").size(), 1u);
  for (int i = 0; i < 20; ++i)
    ASSERT_LE(Rows("SELECT TOP " + std::to_string(i) + " Nome FROM Codigos").size(), 1u);
  EXPECT_EQ(ReadOn(rows), 1u);
}

}  // namespace
}  // namespace embedded_tests

#include "engine_fixture.h"

namespace embedded_tests {
namespace {

using platform::Bytes;
using platform::Currency;
using platform::Date;
using platform::Variant;

class WriteTest : public EngineTest {};

TEST_F(WriteTest, StatementsWriteWithinTheWidthsOfTheirColumns) {
  Run("INSERT INTO Tudo (Nome, Km) VALUES ('0123456789   ', N'12')");  // blanks beyond the width are dropped
  EXPECT_EQ(Rows("SELECT Nome + '|' AS x, Km FROM Tudo"), (Table{{"0123456789|", "12"}}));
  Run("UPDATE Tudo SET Nome = N'çãoçãoçãoç', Notas = Nome + Nome, Valor = Km * 2.5, Data = ''");
  EXPECT_EQ(Rows("SELECT Nome, Notas, Valor, Data FROM Tudo"),
            (Table{{"çãoçãoçãoç", "01234567890123456789", "30", "01-01-1900"}}));
  const std::string truncated = "-2147217900: String or binary data would be truncated.";
  EXPECT_EQ(ErrorOf([&] { Run("UPDATE Tudo SET Nome = '0123456789a'"); }), truncated);
  EXPECT_EQ(ErrorOf([&] { Run("UPDATE Tudo SET Nome = Nome + Nome"); }), truncated);
  EXPECT_EQ(ErrorOf([&] { Run("UPDATE Tudo SET Nome = '12345678😀'"); }), "");
  EXPECT_EQ(ErrorOf([&] { Run("UPDATE Tudo SET Nome = '123456789😀'"); }), truncated);
  EXPECT_EQ(ErrorOf([&] { Run("UPDATE Tudo SET Ano = 40000"); }),
            "-2147217900: Arithmetic overflow error converting expression to data type smallint.");
}

TEST_F(WriteTest, RefusalsLeaveTheTableAlone) {
  AddCodes(2);
  const std::vector<Refusal> cases = {
      {"INSERT INTO Codigos (Nome) VALUES ('x')",
       "-2147217873: Cannot insert the value NULL into column 'Codigo', table 'Codigos'; column does not "
       "allow nulls."},
      {"INSERT INTO Codigos (Codigo) VALUES ('c1001 ')",
       "-2147217873: Violation of PRIMARY KEY constraint 'PK_Codigos'. Cannot insert duplicate key in object "
       "'Codigos'."},
      {"UPDATE Codigos SET Nome = 'igual'",
       "-2147217873: Cannot insert duplicate key row in object 'Codigos' with a unique index."},
      {"INSERT INTO Tudo (Id) VALUES (7)",
       "-2147217900: Cannot insert explicit value for identity column in table 'Tudo' when IDENTITY_INSERT "
       "is set to OFF."},
      {"UPDATE Tudo SET Id = 7", "-2147217900: Cannot update identity column."},
      {"UPDATE Codigos SET Nome = 'a', nome = 'b'",
       "-2147217900: The column name 'nome' is specified more than once in the SET clause or column list of "
       "an INSERT."},
      {"UPDATE Codigos SET Nada = 1", "-2147217904: Invalid column name 'Nada'."},
      {"DELETE FROM Nada", "-2147217865: Invalid object name 'Nada'."},
      {"DROP TABLE Codigos", "-2147217900: Incorrect syntax near the keyword 'DROP'."},
      {"DELETE FROM Codigos DELETE FROM Codigos",
       "-2147217900: Incorrect syntax near the keyword 'DELETE'."}};
  for (const Refusal& refusal : cases) {
    SCOPED_TRACE(refusal.statement);
    EXPECT_EQ(ErrorOf([&] { Run(refusal.statement); }), refusal.error);
  }
  EXPECT_EQ(Rows("SELECT * FROM Codigos"), (Table{{"C1001", "Nome 1001"}, {"C1002", "Nome 1002"}}));
}

TEST_F(WriteTest, DeletesAndUpdatesHitTheRowsOfTheirCondition) {
  AddCodes(3);
  Run("Delete  From Codigos  WHERE (Codigo ='c1002' )");
  Run("Delete Codigos WHERE Codigo = 'nenhum'");
  Run("UPDATE Codigos SET Nome = Codigo + '-' + Nome WHERE Nome LIKE '%3'");
  EXPECT_EQ(Rows("SELECT Nome FROM Codigos ORDER BY Codigo"), (Table{{"Nome 1001"}, {"C1003-Nome 1003"}}));
}

TEST_F(WriteTest, AddsARowOfEveryKindAndReadsItBack) {
  const RecordsetRef rows = Edit("SELECT * FROM Tudo WHERE Id = N'0'");
  EXPECT_TRUE(rows->Eof());
  const Bytes picture = {0, 255, 1, 0};
  rows->AddNew();
  rows->Fields("nome").SetValue("Ávila");
  rows->Fields("Activa").SetValue(std::int16_t{-1});
  rows->Fields("Ano").SetValue(2024);
  rows->Fields("Valor").SetValue(Currency::FromTenThousandths(-5));
  rows->Fields("Razao").SetValue(0.1);
  rows->Fields("Data").SetValue(Date::FromParts(1899, 12, 29, 23, 0, 0));
  rows->Fields("Foto").SetValue(picture);
  rows->Update();
  EXPECT_EQ(rows->Fields("Id").Value().ToLong(), 1);  // the database's own number, and the row is current
  EXPECT_EQ(rows->RecordCount(), 1);

  const RecordsetRef read = Open("SELECT * FROM Tudo");
  EXPECT_EQ(read->Fields("Nome").Value(), Variant("Ávila"));
  EXPECT_TRUE(read->Fields("Notas").Value().IsNull());
  EXPECT_EQ(read->Fields("Activa").Value(), Variant(true));
  EXPECT_EQ(read->Fields("Ano").Value(), Variant(std::int16_t{2024}));
  EXPECT_EQ(read->Fields("Valor").Value(), Variant(Currency::FromTenThousandths(-5)));
  EXPECT_EQ(read->Fields("Razao").Value(), Variant(0.1));
  EXPECT_EQ(read->Fields("Data").Value(), Variant(Date::FromParts(1899, 12, 29, 23, 0, 0)));
  EXPECT_EQ(read->Fields("Foto").Value(), Variant(picture));
}

TEST_F(WriteTest, UpdateSendsOnlyWhatWasAssigned) {
  AddCodes(2);
  const RecordsetRef first = Edit("SELECT Nome, Codigo FROM Codigos WHERE Codigo = 'C1002'");
  const RecordsetRef second = Edit("SELECT Codigo FROM Codigos WHERE Codigo = 'C1002'");
  first->Fields("Nome").SetValue("novo");
  first->Update();
  second->Fields("Codigo").SetValue("X");
  second->Update();
  EXPECT_EQ(Rows("SELECT * FROM Codigos"), (Table{{"C1001", "Nome 1001"}, {"X", "novo"}}));
  EXPECT_EQ(first->Fields("Nome").Value(), Variant("novo"));

  Run("DELETE FROM Codigos");
  first->Fields("Nome").SetValue("tarde");
  EXPECT_EQ(ErrorOf([&] { first->Update(); }),
            "-2147217864: Row cannot be located for updating. Some values may have been changed since it was "
            "last read.");
}

TEST_F(WriteTest, FieldsRefuseWhatTheirColumnsCannotHold) {
  AddCodes(1);
  const RecordsetRef rows = Edit("SELECT Codigo, Nome, Nome + '' AS Soma FROM Codigos");
  EXPECT_EQ(ErrorOf([&] { rows->Fields("Codigo").SetValue("01234567890"); }).substr(0, 11), "-2147217887");
  EXPECT_EQ(ErrorOf([&] { rows->Fields("Codigo").SetValue(Variant::Null{}); }).substr(0, 11), "-2147217887");
  rows->Fields("Soma").SetValue("x");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }).substr(0, 11), "-2147217887");
  rows->AddNew();
  rows->Fields("Nome").SetValue("sem código");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }).substr(0, 11), "-2147217873");

  const RecordsetRef numbered = Edit("SELECT Id FROM Tudo");
  numbered->AddNew();
  numbered->Fields("Id").SetValue(5);
  EXPECT_EQ(ErrorOf([&] { numbered->Update(); }).substr(0, 11), "-2147217887");
}

TEST_F(WriteTest, OnlyRowsOfOneTableAreOpenedForEditing) {
  for (const char* statement :
       {"SELECT Tudo.Id FROM Tudo JOIN Codigos ON Codigo = Tudo.Nome", "SELECT DISTINCT Nome FROM Codigos",
        "SELECT MAX(Nome) AS x FROM Codigos", "SELECT Nome FROM Codigos UNION SELECT Nome FROM Tudo",
        "SELECT 1 AS x", "DELETE FROM Codigos"}) {
    SCOPED_TRACE(statement);
    EXPECT_EQ(ErrorOf([&] { Edit(statement); }).substr(0, 11), "-2147217900");
  }
}

}  // namespace
}  // namespace embedded_tests

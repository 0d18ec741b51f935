#include <algorithm>

#include "engine_fixture.h"

namespace embedded_tests {
namespace {

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
      {"UPDATE Codigos SET Nada = 1", "-2147217904: Invalid column name 'Nada'."}};
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

TEST_F(WriteTest, ManyRowsGoInUnderTheirOwnNumbers) {
  using platform::Variant;
  std::vector<zorCrmParvel::RowValues> rows;
  for (int i = 0; i < 150; ++i) {
    rows.push_back({Variant(std::int32_t{1000 - i}), Variant("n" + std::to_string(i)),
                    Variant(platform::Currency(i)), std::nullopt});
    if (i % 70 == 3) rows.back()[2].reset();
    if (i == 149) rows.back()[3] = Variant(platform::Bytes{0, 255});
  }
  const std::vector<std::string> columns = {"Id", "nome", "Valor", "Foto"};
  const auto add = [&] {
    std::vector<const zorCrmParvel::RowValues*> together(rows.size());
    std::transform(rows.begin(), rows.end(), together.begin(), [](const auto& row) { return &row; });
    zorCrmParvel::Batch batch(*store_);
    store_->AddRows("tudo", columns, together);
    batch.Commit();
  };
  add();
  EXPECT_EQ(Rows("SELECT COUNT(*) AS n, MIN(Id) AS a, MAX(Id) AS b, SUM(Valor) AS s FROM Tudo"),
            (Table{{"150", "851", "1000", "10956"}}));
  EXPECT_EQ(Rows("SELECT Id, Nome, Valor FROM Tudo WHERE Id IN (936, 927) ORDER BY Id"),
            (Table{{"927", "n73", "NULL"}, {"936", "n64", "64"}}));
  EXPECT_EQ(Rows("SELECT COUNT(Foto) AS f FROM Tudo WHERE Id = 851"), (Table{{"1"}}));
  Run("INSERT INTO Tudo (Nome) VALUES ('depois')");
  EXPECT_EQ(Rows("SELECT Id FROM Tudo WHERE Nome = 'depois'"), (Table{{"1001"}}));

  rows = {{Variant(std::int32_t{5000}), Variant("novo")}, {Variant(std::int32_t{900}), Variant("outro")}};
  const std::string taken = "-2147217873: Violation of PRIMARY KEY constraint";
  EXPECT_EQ(ErrorOf(add).substr(0, taken.size()), taken);
  EXPECT_TRUE(Rows("SELECT Id FROM Tudo WHERE Id = 5000").empty());
  EXPECT_EQ(ErrorOf([&] { store_->AddRows("Tudo", {"Nada"}, {}); }),
            "-2147217904: Invalid column name 'Nada'.");
}

}  // namespace
}  // namespace embedded_tests

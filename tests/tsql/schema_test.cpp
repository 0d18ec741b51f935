#include <algorithm>

#include "reading.h"

namespace tsql {
namespace {

TEST(Schema, TheTablesOfTheModuleAreWhole) {
  const std::string text = Contents(std::filesystem::path(PARVEL_SOURCE_DIR) / "schema" / "tables.sql");
  EXPECT_EQ(text.rfind("-- versão ", 0), 0U);
  const Catalog catalog = ParseSchema(text);
  EXPECT_EQ(std::count_if(catalog.tables().begin(), catalog.tables().end(),
                          [](const Table& table) { return !table.name.starts_with("parvel_"); }),
            24);
  for (const Table& table : catalog.tables()) {
    SCOPED_TRACE(table.name);
    ASSERT_FALSE(table.primaryKey.empty());
    for (const Column& column : table.columns) {
      const bool isKey = std::count(table.primaryKey.begin(), table.primaryKey.end(), column.name) > 0;
      EXPECT_EQ(column.nullable, !isKey) << column.name;
    }
    const Column& key = *table.Find(table.primaryKey[0]);
    EXPECT_EQ(key.identity, key.type.base == BaseType::kInt && table.primaryKey.size() == 1);
  }
  EXPECT_EQ(catalog.Get("ZOR_PV_VIATURAS").Find("matricula")->type.ToText(), "nvarchar(15)");
  EXPECT_EQ(catalog.Get("zor_PV_Gastos").indexes.at(0).columns,
            (std::vector<std::string>{"Matricula", "Data"}));
  EXPECT_EQ(catalog.Get("zor_Fotos").Find("zor_Fotos_Imagem")->type,
            (Type{BaseType::kVarBinary, Type::kMax}));
  EXPECT_EQ(catalog.Find("zor_PV_Nada"), nullptr);
}

TEST(Schema, DelimitedNamesAndUniqueIndexesAreRead) {
  const Catalog catalog = ParseSchema(Contents(std::filesystem::path(PARVEL_SOURCE_DIR) / "tests" / "fuzz" /
                                               "corpus" / "schema" / "tabela.sql"));
  const Table& table = catalog.Get("Tabela Um");
  EXPECT_TRUE(table.Find("Id")->identity);
  EXPECT_TRUE(table.Find("Valor")->nullable);
  EXPECT_TRUE(table.indexes.at(0).unique);
}

TEST(Schema, RefusesWhatDoesNotHoldTogether) {
  const std::string table = "CREATE TABLE t (a int NOT NULL, b money NULL);\n";
  const std::pair<std::string, std::string> cases[] = {
      {table + "DROP TABLE t", "-2147217900 linha 2, coluna 1: Incorrect syntax near the keyword 'DROP'."},
      {table + "CREATE INDEX i ON u (a)", "-2147217865 Catalog: Invalid object name 'u'."},
      {table + "CREATE INDEX i ON t (c)",
       "-2147217904 Catalog: Column name 'c' does not exist in the target table 't'."},
      {table + table, "-2147217900 Catalog: There is already an object named 't' in the database."},
      {"CREATE TABLE t (a int NULL, CONSTRAINT k PRIMARY KEY (a))",
       "-2147217900 Catalog: Cannot define PRIMARY KEY constraint on nullable column in table 't'."},
      {"CREATE TABLE t (a nvarchar)", "-2147217900 linha 1, coluna 27: Incorrect syntax near ')'."},
      {"CREATE TABLE t (a int IDENTITY(5,1))", "-2147217900 linha 1, coluna 32: Incorrect syntax near '5'."},
  };
  for (const auto& [text, words] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Refusal([&schema = text] { ParseSchema(schema); }), words);
  }
}

}  // namespace
}  // namespace tsql

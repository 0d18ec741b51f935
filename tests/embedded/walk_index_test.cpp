#include "embedded/compiler/select_compiler.h"
#include "embedded/storage/collation.h"
#include "embedded/storage/functions.h"
#include "embedded/storage/sqlite.h"
#include "engine_fixture.h"
#include "tsql/parser.h"

namespace embedded_tests {
namespace {

constexpr const char* kEvents = R"(-- versão 3
CREATE TABLE Multas (
  Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Data datetime NULL,
  CONSTRAINT PK_Multas PRIMARY KEY (Id)
);
CREATE INDEX IX_Multas ON Multas (Matricula, Data);
)";

/// The events at or past a plate and a day, as the walk through them asks; plates are filled up with
/// `padding`.
std::string Ahead(const std::string& plate, const std::string& padding = "000000000000000 ") {
  return "SELECT * FROM Multas where LEFT(Matricula + '" + padding +
         "', 15) + CONVERT(nvarchar(10), Data, 102)>= left('" + plate +
         "'+'000000000000000',15)+'2024.02.01'";
}

class WalkIndexTest : public EngineTest {
 protected:
  WalkIndexTest() {
    store_ = embedded::Database::Open(file_, Options(kEvents));
    for (const char* event : {"'AA', '2024-01-31'", "'AA', '2024-02-01'", "'AB', '2023-01-01'",
                              "'ab''c', '2024-03-01'", "NULL, '2024-03-01'"})
      Run("INSERT INTO Multas (Matricula, Data) VALUES (" + std::string(event) + ")");
  }
  ~WalkIndexTest() override { store_.reset(); }  // before its folder
  /// The count, which the index gives, and the rows, which it doesn't.
  long CountOf(const std::string& statement) const {
    const RecordsetRef rows = Open(statement);
    const long count = rows->RecordCount();
    EXPECT_EQ(static_cast<std::size_t>(count), ReadOn(rows)) << statement;
    return count;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.File("frota.parvel");
};

TEST_F(WalkIndexTest, WhatLiesAheadIsCountedByItsIndex) {
  EXPECT_EQ(CountOf(Ahead("AA")), 3);
  EXPECT_EQ(CountOf(Ahead("AB''D")), 1) << "an apostrophe stands before the figures";
  EXPECT_EQ(CountOf(Ahead("ab")), 0);

  embedded::SqliteConnection beside(file_, SQLITE_OPEN_READWRITE);
  embedded::RegisterCollation(beside.get());
  embedded::RegisterFunctions(beside.get());
  const tsql::Catalog catalog = tsql::ParseSchema(kEvents);
  embedded::Parameters parameters;
  const tsql::StatementNode node = tsql::ParseStatement(Ahead("AA"));
  const std::string sql = embedded::SelectCompiler(catalog, parameters).Count(std::get<tsql::Select>(node));
  const embedded::SqliteStatement plan(beside.get(), "EXPLAIN QUERY PLAN " + sql);
  ASSERT_TRUE(plan.Step());
  EXPECT_NE(plan.Text(3).find("SEARCH t0 USING INDEX IX_Multas_Percurso"), std::string::npos)
      << plan.Text(3) << '\n'
      << sql;
}

TEST_F(WalkIndexTest, ATextThatIsWrittenOutHoldsForItsOwnStatementAlone) {
  EXPECT_EQ(CountOf(Ahead("AA", "0")), 4) << "'AA0' and a day sorts behind 'AA0000…'";
  EXPECT_EQ(CountOf(Ahead("AA")), 3);
  EXPECT_EQ(CountOf(Ahead("AA", "''; DROP TABLE Multas --")), CountOf(Ahead("AA", "''; DELETE FROM x --")));
  EXPECT_EQ(CountOf("SELECT * FROM Multas WHERE LEFT(Matricula, 2) = 'AB'"), 2);
  EXPECT_EQ(CountOf("SELECT * FROM Multas WHERE LEFT(Matricula, 1) = 'A'"), 4);
  EXPECT_EQ(CountOf("SELECT * FROM Multas WHERE LEFT(Matricula, '2') = 'AB'"), 2);
}

}  // namespace
}  // namespace embedded_tests

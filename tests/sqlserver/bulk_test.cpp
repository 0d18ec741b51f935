// Many rows on their way to the server, and walks that read only what they show.

#include "platform/runtime_error.h"
#include "server_fixture.h"
#include "sqlserver/bulk/literals.h"
#include "sqlserver/bulk/table_changes.h"
#include "sqlserver/rows/walk_recordset.h"
#include "support/errors.h"
#include "tsql/parser.h"

namespace sqlserver_tests {
namespace {

using platform::Currency;
using platform::Date;
using platform::Variant;

class BulkTest : public ServerTest {
 protected:
  /// As a server, which takes many statements in one text, or as one that takes them one by one.
  void OpenAs(bool server) {
    if (server) PretendServer();
    store_ = contract_tests::OpenSqliteFile(folder_.File("contrato.db"));
  }
  sqlserver::TableChanges Changes(const char* table) {
    sqlserver::TableChanges changes;
    changes.table = table;
    changes.fields = Open(std::string("SELECT * FROM ") + table)->FieldList();
    return changes;
  }
  std::vector<long> Write(const sqlserver::TableChanges& changes) {
    return sqlserver::WriteChanges(session(), database().catalog(), changes);
  }
  Table All(const char* table) {
    return testing_support::Rows(zorCrmParvel::DataAccessRef(store_),
                                 std::string("SELECT * FROM ") + table + " ORDER BY 1");
  }
};

TEST_F(BulkTest, RowsAreAddedChangedAndRemovedWithEveryKindOfValue) {
  for (const bool server : {false, true}) {
    SCOPED_TRACE(server);
    OpenAs(server);
    sqlserver::TableChanges changes = Changes("PT_Tudo");
    changes.numbered = true;
    using Row = sqlserver::RowWriter::Values;
    const Variant null{Variant::Null{}};
    const auto row = [&](const char* name, Variant bytes) {
      return Row{std::nullopt,
                 Variant(name),
                 Variant("linha\nde 'notas'"),
                 Variant(true),
                 Variant(std::int16_t{2024}),
                 Variant(std::int32_t{-7}),
                 Variant(Currency::Parse("12,3456")),
                 Variant(0.1),
                 Variant(Date::FromParts(2024, 3, 1, 8, 30, 15)),
                 std::move(bytes)};
    };
    changes.added = {row("um", null), row("dois", Variant(platform::Bytes{1, 0, 255})), Row(10)};
    EXPECT_EQ(Write(changes), (std::vector<long>{1, 2, 3}));
    const std::vector<std::string> same = {"linha\nde 'notas'",  "True", "2024", "-7", "12,3456", "0,1",
                                           "01-03-2024 08:30:15"};
    const Table rows = All("PT_Tudo");
    ASSERT_EQ(rows.size(), 3U);
    for (const std::size_t i : {0U, 1U})
      EXPECT_EQ(std::vector<std::string>(rows[i].begin() + 2, rows[i].begin() + 9), same);
    EXPECT_EQ(rows[0][1] + rows[1][1] + rows[0][9], "umdoisNULL");
    EXPECT_EQ(rows[2], (std::vector<std::string>{"3", "NULL", "NULL", "NULL", "NULL", "NULL", "NULL", "NULL",
                                                 "NULL", "NULL"}));

    changes.added.clear();
    Row change(10);
    change[1] = Variant("três");
    change[5] = Variant(std::int32_t{8});
    change[6] = null;
    changes.changed = {{{Variant(std::int32_t{2})}, change}};
    changes.removed = {{Variant(std::int32_t{1})}};
    EXPECT_TRUE(Write(changes).empty());
    const Table after = All("PT_Tudo");
    ASSERT_EQ(after.size(), 2U);
    EXPECT_EQ(after[0][1] + " " + after[0][4] + " " + after[0][5] + " " + after[0][6] + " " + after[0][8],
              "três 2024 8 NULL 01-03-2024 08:30:15");
    Run("DELETE FROM PT_Tudo");
    Run("DELETE FROM sqlite_sequence");
  }
}

TEST_F(BulkTest, WhatCannotBeDoneNamesTheTableAndTheRow) {
  for (const bool server : {false, true}) {
    SCOPED_TRACE(server);
    OpenAs(server);
    Run("DELETE FROM PT_Codigos");
    sqlserver::TableChanges changes = Changes("PT_Codigos");
    using Row = sqlserver::RowWriter::Values;
    changes.added = {Row{Variant("a"), Variant("um")}, Row{Variant("b"), Variant("dois")}};
    Write(changes);
    changes.added = {Row{Variant("c"), Variant("três")}, Row{Variant("d"), Variant("um")}};
    EXPECT_NE(ErrorOf([&] { Write(changes); }).find("PT_Codigos, registo de Codigo «d», Nome «um»: "),
              std::string::npos);
    changes.added.clear();
    changes.changed = {{{Variant("a")}, Row{std::nullopt, Variant("1")}},
                       {{Variant("z")}, Row{std::nullopt, Variant("2")}}};
    EXPECT_EQ(NumberOf([&] { Write(changes); }), -2147217864);
    EXPECT_NE(ErrorOf([&] {
                Write(changes);
              }).find("PT_Codigos, registo de Codigo «z»: O registo já não está na base de dados."),
              std::string::npos);
    std::swap(changes.changed[0], changes.changed[1]);
    EXPECT_EQ(NumberOf([&] { Write(changes); }), -2147217864);
    changes.changed.clear();
    changes.removed = {{Variant("z")}};
    EXPECT_EQ(NumberOf([&] { Write(changes); }), -2147217864);
  }
}

TEST_F(BulkTest, ARowOfWhichTheServerSaysNothingIsNotTakenForWritten) {
  OpenAs(true);
  sqlserver::TableChanges changes = Changes("PT_Codigos");
  changes.removed = {{Variant("a")}, {Variant("b")}};
  AnswerInstead("DELETE FROM [PT_Codigos]", "SELECT 1 AS Linhas");
  EXPECT_EQ(ErrorOf([&] { Write(changes); }),
            "-2147467259: PT_Codigos, registo de Codigo «b»: O servidor não disse se o gravou.");
}

TEST_F(BulkTest, ManyRowsGoTogether) {
  OpenAs(true);
  sqlserver::TableChanges changes = Changes("PT_Codigos");
  for (int i = 0; i < 600; ++i)
    changes.added.push_back({Variant("c" + std::to_string(i)), Variant("nome " + std::to_string(i))});
  StatementsSent();
  Write(changes);
  EXPECT_EQ(StatementsSent(), 3) << "250 a trip";
  EXPECT_EQ(Count("PT_Codigos"), 600);
  changes.added.clear();
  for (int i = 0; i < 4; ++i)
    changes.changed.push_back({{Variant("c" + std::to_string(i))},
                               {std::nullopt, Variant(std::string(50, static_cast<char>('a' + i)))}});
  Write(changes);
  EXPECT_EQ(StatementsSent(), 2) << "counting them and this";
}

TEST_F(BulkTest, ValuesStandAsLiteralsOnlyWhereThatIsSafe) {
  using platform::FieldType;
  const std::string none = "-";
  const struct {
    FieldType type;
    Variant value;
    std::string literal;
  } cases[] = {{FieldType::kText, Variant("O'R"), "N'O''R'"},
               {FieldType::kText, Variant("a\\\nb"), none},
               {FieldType::kText, Variant("a\\\rb"), none},
               {FieldType::kText, Variant("a\\b"), "N'a\\b'"},
               {FieldType::kText, Variant("a\\"), "N'a\\'"},
               {FieldType::kText, Variant(std::string("a\0b", 3)), none},
               {FieldType::kText, Variant(std::string(4000, 'x')), "N'" + std::string(4000, 'x') + "'"},
               {FieldType::kText, Variant(std::string(4001, 'x')), none},
               {FieldType::kBool, Variant(true), "1"},
               {FieldType::kBool, Variant(false), "0"},
               {FieldType::kInteger, Variant(std::int16_t{-5}), "-5"},
               {FieldType::kLong, Variant(std::int32_t{70000}), "70000"},
               {FieldType::kDouble, Variant(0.1), "1e-01"},
               {FieldType::kCurrency, Variant(Currency::Parse("-1,25")), "-1.25"},
               {FieldType::kDate, Variant(Date::FromParts(2024, 3, 1, 8, 5, 6)), "'2024-03-01 08:05:06'"},
               {FieldType::kDate, Variant(Variant::Null{}), "NULL"},
               {FieldType::kBytes, Variant(platform::Bytes{1}), none}};
  for (const auto& one : cases)
    EXPECT_EQ(sqlserver::LiteralOf(one.type, one.value).value_or(none), one.literal) << one.literal;
}

TEST_F(BulkTest, AWalkReadsItsFirstRowsAndTheOthersWhenTheyAreWanted) {
  Run("DELETE FROM PT_Codigos");
  for (int i = 1; i <= 7; ++i)
    Run("INSERT INTO PT_Codigos (Codigo, Nome) VALUES ('c" + std::to_string(i) + "', 'n" + std::to_string(i) +
        "')");
  const std::string all = "SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo > 'c0' ORDER BY Codigo";
  const auto walk = [&](const std::string& from) {
    return platform::MakeRef<sqlserver::WalkRecordset>(
        std::shared_ptr<sqlserver::Session>(&session(), [](sqlserver::Session*) {}),
        sqlserver::Walk{
            .first =
                "SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo > '" + from + "' ORDER BY Codigo LIMIT 3",
            .count = "SELECT COUNT(*) AS n FROM PT_Codigos WHERE Codigo > '" + from + "'",
            .all = "SELECT Codigo, Nome FROM PT_Codigos WHERE Codigo > '" + from + "' ORDER BY Codigo"});
  };
  StatementsSent();
  const auto rows = walk("c0");
  EXPECT_EQ(rows->Fields("Codigo").Value().ToText(), "c1");
  rows->MoveNext();
  EXPECT_EQ(StatementsSent(), 1);
  EXPECT_EQ(rows->RecordCount() + rows->RecordCount(), 14);
  EXPECT_EQ(StatementsSent(), 1);
  std::string read;
  for (; !rows->Eof(); rows->MoveNext()) read += rows->Fields("Nome").Value().ToText() + ";";
  EXPECT_EQ(read, "n2;n3;n4;n5;n6;n7;");
  EXPECT_EQ(StatementsSent(), 1);
  const auto few = walk("c5");
  EXPECT_EQ(few->RecordCount(), 2);
  few->MoveNext();
  few->MoveNext();
  EXPECT_TRUE(few->Eof());
  EXPECT_EQ(StatementsSent(), 1) << "fewer than it asked for are all";
}

TEST(WalkTest, IsASelectOfOneTableFromAPlaceOn) {
  const auto of = [](const std::string& statement) {
    const auto walk = sqlserver::Walk::Of(statement, std::get<tsql::Select>(tsql::ParseStatement(statement)));
    return walk ? walk->first + " | " + walk->count + " | " + walk->all : "-";
  };
  const std::string walk = "SELECT a FROM t WHERE LEFT(a + b, 9) >= 'x' ORDER BY a";
  EXPECT_EQ(of(walk),
            "SELECT TOP 3 a FROM t WHERE LEFT(a + b, 9) >= 'x' ORDER BY a | SELECT COUNT(*) AS n FROM t "
            "WHERE LEFT(a "
            "+ b, 9) >= 'x'  | " +
                walk);
  for (const char* other :
       {"SELECT a FROM t WHERE LEFT(a, 9) >= 'x'", "SELECT a FROM t WHERE a >= 'x' ORDER BY a",
        "SELECT a FROM t ORDER BY LEFT(a, 9)", "SELECT TOP 1 a FROM t WHERE LEFT(a, 9) >= 'x' ORDER BY a",
        "SELECT DISTINCT a FROM t WHERE LEFT(a, 9) >= 'x' ORDER BY a",
        "SELECT t.a FROM t INNER JOIN u ON t.a = u.a WHERE LEFT(t.a, 9) >= 'x' ORDER BY t.a",
        "SELECT a FROM t WHERE LEFT(a, 9) >= 'x' UNION SELECT a FROM u ORDER BY a"})
    EXPECT_EQ(of(other), "-") << other;
}

}  // namespace
}  // namespace sqlserver_tests

#include <algorithm>

#include "reading.h"

namespace tsql {
namespace {

const std::filesystem::path kCorpus = std::filesystem::path(PARVEL_SOURCE_DIR) / "tests" / "fuzz" / "corpus";

TEST(Statements, EveryStatementOfTheModuleIsRead) {
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(kCorpus / "accepted")) {
    SCOPED_TRACE(file.path().filename());
    ++count;
    EXPECT_EQ(Refusal([&] { ParseStatement(ReadFile(file.path())); }), "accepted");
  }
  EXPECT_GT(count, 100);
}

TEST(Statements, SelectHasItsPartsAndAliases) {
  const Select select = Parsed<Select>(
      "SELECT DISTINCT TOP(3) *, G.*, G.Id as ' ', Nome AS 'Tipo Seguro', [Data] Matrícula, 'x' \"y z\", Km\n"
      "FROM zor_A AS G LEFT OUTER JOIN [zor B] ON LEFT(G.a, 2) = b left join C c ON 1=1 JOIN D ON x = y "
      "INNER JOIN E ON x = y WHERE G.Km > 0 ORDER BY Data desc, 2 ASC, Nome");
  const SelectCore& core = select.cores.at(0);
  EXPECT_TRUE(core.distinct);
  EXPECT_EQ(core.top, 3);
  ASSERT_EQ(core.items.size(), 7U);
  EXPECT_TRUE(core.items[0].star && core.items[0].starTable.empty());
  EXPECT_TRUE(core.items[1].star);
  EXPECT_EQ(core.items[1].starTable, "G");
  const char* const aliases[] = {"", "", " ", "Tipo Seguro", "Matrícula", "y z", ""};
  for (std::size_t i = 0; i < core.items.size(); ++i) EXPECT_EQ(core.items[i].alias, aliases[i]);
  EXPECT_EQ(As<Literal>(core.items[5].expression).ordinal, 3U)
      << "the count and two quoted aliases come before";
  EXPECT_EQ(core.items[2].offset, 31U);

  EXPECT_EQ(core.from->Qualifier(), "G");
  ASSERT_EQ(core.joins.size(), 4U);
  const std::pair<Join::Kind, std::string> joins[] = {{Join::Kind::kLeft, "zor B"},
                                                      {Join::Kind::kLeft, "c"},
                                                      {Join::Kind::kInner, "D"},
                                                      {Join::Kind::kInner, "E"}};
  for (std::size_t i = 0; i < core.joins.size(); ++i) {
    EXPECT_EQ(core.joins[i].kind, joins[i].first);
    EXPECT_EQ(core.joins[i].table.Qualifier(), joins[i].second);
  }
  EXPECT_EQ(Bracketed(core.joins[0].on), "(LEFT(G.a, 2#4) = b)");
  EXPECT_EQ(Bracketed(core.where), "(G.Km > 0#7)");
  ASSERT_EQ(select.orderBy.size(), 3U);
  EXPECT_TRUE(select.orderBy[0].descending);
  EXPECT_FALSE(select.orderBy[1].descending || select.orderBy[2].descending);
}

TEST(Statements, OrderByBelongsToTheWholeUnion) {
  const Select select =
      Parsed<Select>("select a from t where b = 1 union select c from u union all select 'x' order by a");
  ASSERT_EQ(select.cores.size(), 3U);
  EXPECT_EQ(select.unionAll, (std::vector<bool>{false, true}));
  EXPECT_TRUE(select.cores[0].where);
  EXPECT_FALSE(select.cores[1].where || select.cores[2].from);
  EXPECT_EQ(select.orderBy.size(), 1U);
}

TEST(Statements, LiteralsAreNumberedAsTheyStandInTheText) {
  const Select select = Parsed<Select>(
      "SELECT TOP 1 'a' AS 'b', CONVERT(nvarchar(10), x, 105), NULL, 2.5 FROM t WHERE y = N'c' ORDER BY 1");
  const SelectCore& core = select.cores[0];
  EXPECT_EQ(As<Literal>(core.items[0].expression).ordinal, 1U);
  EXPECT_EQ(As<Literal>(core.items[3].expression).ordinal, 5U);
  EXPECT_EQ(Bracketed(core.where), "(y = c#6)");
  EXPECT_EQ(As<Literal>(select.orderBy[0].expression).ordinal, 7U);
}

TEST(Statements, WritesNameTheirTableColumnsAndRows) {
  const Insert insert = Parsed<Insert>("INSERT INTO t (a, [b c]) VALUES (N'x', -1)");
  EXPECT_EQ(insert.table.name, "t");
  ASSERT_EQ(insert.values.size(), 2U);
  EXPECT_EQ(insert.values[1].column, "b c");
  EXPECT_EQ(Bracketed(insert.values[1].value), "(-1#1)");

  const Update update = Parsed<Update>("UPDATE t SET a = b + 1, c = NULL WHERE d = 'x';");
  ASSERT_EQ(update.assignments.size(), 2U);
  EXPECT_EQ(Bracketed(update.assignments[0].value), "(b + 1#0)");
  EXPECT_EQ(Bracketed(update.where), "(d = x#1)");

  EXPECT_FALSE(Parsed<Update>("update t set a = 1").where);
  for (const char* text : {"Delete zor_Fotos", "DELETE  FROM zor_Fotos -- all"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Parsed<Delete>(text).table.name, "zor_Fotos");
    EXPECT_FALSE(Parsed<Delete>(text).where);
  }
}

}  // namespace
}  // namespace tsql

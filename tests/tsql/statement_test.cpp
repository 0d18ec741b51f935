#include "reading.h"

namespace tsql {
namespace {

/// "items | from, joins | where | order", with a bar between the selects of a union; literals have their
/// ordinals.
std::string Told(const Select& select) {
  std::string told;
  for (std::size_t i = 0; i < select.cores.size(); ++i) {
    const SelectCore& core = select.cores[i];
    if (i > 0) told += select.unionAll[i - 1] ? " UNION ALL " : " UNION ";
    if (core.distinct) told += "distinct ";
    if (core.top) told += "top " + std::to_string(*core.top) + " ";
    for (const SelectItem& item : core.items)
      told += (item.star ? item.starTable + "*" : Bracketed(item.expression)) + "=" + item.alias + "; ";
    if (core.from) told += "from " + core.from->Qualifier();
    for (const Join& join : core.joins)
      told += (join.kind == Join::Kind::kLeft ? " left " : " inner ") + join.table.Qualifier() + " on " +
              Bracketed(join.on);
    if (core.where) told += " where " + Bracketed(core.where);
  }
  for (const OrderItem& item : select.orderBy)
    told += " by " + Bracketed(item.expression) + (item.descending ? " desc" : "");
  return told;
}

TEST(Statements, SelectHasItsPartsAndAliases) {
  const std::pair<const char*, const char*> cases[] = {
      {"SELECT DISTINCT TOP(3) *, G.*, G.Id as ' ', Nome AS 'Tipo Seguro', [Data] Matrícula, 'x' \"y z\", "
       "Km\n"
       "FROM zor_A AS G LEFT OUTER JOIN [zor B] ON LEFT(G.a, 2) = b left join C c ON 1=1 JOIN D ON x = y "
       "INNER JOIN E ON x = y WHERE G.Km > 0 ORDER BY Data desc, 2 ASC, Nome",
       "distinct top 3 *=; G*=; G.Id= ; Nome=Tipo Seguro; Data=Matrícula; x#3=y z; Km=; from G left zor B on "
       "(LEFT(G.a, 2#4) = b) left c on (1#5 = 1#6) inner D on (x = y) inner E on (x = y) where (G.Km > 0#7) "
       "by Data desc by 2#8 by Nome"},
      {"select a from t where b = 1 union select c from u union all select 'x' order by a",
       "a=; from t where (b = 1#0) UNION c=; from u UNION ALL x#1=;  by a"},
      {"SELECT TOP 1 'a' AS 'b', CONVERT(nvarchar(10), x, 105), NULL, 2.5 FROM t WHERE y = N'c' ORDER BY 1",
       "top 1 a#1=b; (x as nvarchar(10) style 105)=; NULL=; 2.5#5=; from t where (y = c#6) by 1#7"}};
  for (const auto& [text, told] : cases) EXPECT_EQ(Told(Parsed<Select>(text)), told);
  EXPECT_EQ(Parsed<Select>(cases[0].first).cores[0].items[2].offset, 31U);
}

TEST(Statements, WritesNameTheirTableColumnsAndRows) {
  const Insert insert = Parsed<Insert>("INSERT INTO t (a, [b c]) VALUES (N'x', -1)");
  EXPECT_EQ(insert.table.name + "." + insert.values.at(1).column, "t.b c");
  EXPECT_EQ(Bracketed(insert.values[1].value), "(-1#1)");
  const Update update = Parsed<Update>("UPDATE t SET a = b + 1, c = NULL WHERE d = 'x';");
  ASSERT_EQ(update.assignments.size(), 2U);
  EXPECT_EQ(Bracketed(update.assignments[0].value) + Bracketed(update.where), "(b + 1#0)(d = x#1)");
  EXPECT_FALSE(Parsed<Update>("update t set a = 1").where);
  for (const char* text : {"Delete zor_Fotos", "DELETE  FROM zor_Fotos -- all"})
    EXPECT_TRUE(Parsed<Delete>(text).table.name == "zor_Fotos" && !Parsed<Delete>(text).where) << text;
}

}  // namespace
}  // namespace tsql

#include <map>
#include <random>

#include "engine_fixture.h"

// Statements put together by chance: they run, or they are refused in the server's words. Nothing else may
// happen.
namespace embedded_tests {
namespace {

/// What each symbol may become; "$x" is the symbol x.
const std::map<char, std::string> kGrammar = {
    {'S',
     "UPDATE Tudo SET $c = $v WHERE $b|INSERT INTO Tudo ($c, Nome) VALUES ($v, $v)|"
     "DELETE FROM Tudo WHERE Id > 5 AND $b|$s UNION $s UNION ALL $s ORDER BY 1|$s|$s|$s|$s|"
     "$s ORDER BY $v DESC|$s ORDER BY $v DESC|$s ORDER BY $v DESC|$s ORDER BY $v DESC"},
    {'s', "SELECT $d$v AS x, $v FROM Tudo|SELECT $d$v AS x, $v FROM Tudo WHERE $b"},
    {'d', "||TOP 2 |DISTINCT "},
    {'c', "Id|Nome|Notas|Activa|Ano|Km|Valor|Razao|Data|Foto"},
    {'l',
     "0|1|-1|7|2.5|.00005|2147483648|922337203685477.5807|99999999999999999999|''|' '|'a'|N'Ávila'|'5'|"
     "'-3.5'|'x''y'|'2024.02.29'|'1753-01-01'|NULL|getdate()"},
    {'a', "$c|$l"},
    {'t', "bit|smallint|int|money|float|datetime|nvarchar(3)|nvarchar(max)|varbinary(max)"},
    {'y', "0|102|105|120|7"},
    {'o', "+|-|*|/|%"},
    {'f', "COALESCE|ISNULL|LEFT"},
    {'g', "LEN|SUM|MIN|MAX|COUNT"},
    {'v',
     "-($v)|+($v)|($v $o $v)|($v $o $v)|($v $o $v)|CAST($v AS $t)|CAST($v AS $t)|CONVERT($t, $v, $y)|"
     "CASE $v WHEN $v THEN $v ELSE $v END|CASE WHEN $b THEN $v END|$f($v, $v)|$g($v)|datediff(d, $v, $v)|"
     "$v|$v"},
    {'p', "$v IS NULL|$v LIKE $v|$v NOT LIKE $v|$v IN ($v, $v)|$v = $v|$v <> $v|$v < $v|$v >= $v"},
    {'b', "$p|$p|$p|$p|$p|NOT ($b)|($b AND $b)|($b OR $b)"}};

/// A symbol written out; values and conditions hold others to this depth.
std::string Written(char symbol, int depth, std::mt19937& random) {
  if (depth == 0 && symbol == 'v') symbol = 'a';
  if (depth == 0 && symbol == 'b') symbol = 'p';
  if (depth > 0 && (symbol == 'v' || symbol == 'b')) --depth;
  const std::string& all = kGrammar.at(symbol);
  std::vector<std::string> choices(1);
  for (const char c : all)
    if (c == '|')
      choices.emplace_back();
    else
      choices.back() += c;
  const std::string& chosen = choices[random() % choices.size()];
  std::string text;
  for (std::size_t i = 0; i < chosen.size(); ++i)
    text += chosen[i] == '$' ? Written(chosen[++i], depth, random) : std::string(1, chosen[i]);
  return text;
}

class RandomStatementTest : public EngineTest {
 protected:
  RandomStatementTest() {
    Run("INSERT INTO Tudo (Nome, Activa, Ano, Km, Valor, Razao, Data) VALUES (N'Ávila', 1, 2024, 7, 60.5, "
        "0.25, '2024.02.29 13:05:09')");
    Run("INSERT INTO Tudo (Nome, Km, Valor) VALUES ('5', -2147483648, -922337203685477.5808)");
  }

  /// True when it ran.
  bool Tried(const std::string& statement) {
    try {
      if (!statement.starts_with("SELECT")) {
        Run(statement);
        return true;
      }
      const RecordsetRef rows = Open(statement);
      EXPECT_EQ(static_cast<std::size_t>(rows->RecordCount()), Rows(statement).size());
      return true;
    } catch (const platform::RuntimeError& error) {
      const std::string words = error.description();
      for (const char* foreign :
           {"near \"", "no such", "misuse", "wrong number", "ORDER BY term", "constraint failed", "datatype",
            "row value", "parameters", "overflow", "too "})
        EXPECT_TRUE(words.find(foreign) == std::string::npos || words.starts_with("Arithmetic overflow") ||
                    words.ends_with("column caused an overflow.") || words.ends_with("nested too deeply."))
            << words;
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    return false;
  }
};

TEST_F(RandomStatementTest, RunsOrIsRefused) {
  int ran = 0;
  for (unsigned seed = 0; seed < 4000 && !HasFailure(); ++seed) {
    std::mt19937 random(seed);  // the same numbers everywhere
    const std::string statement = Written('S', 1 + static_cast<int>(seed % 2), random);
    SCOPED_TRACE(statement);
    ran += Tried(statement) ? 1 : 0;
  }
  EXPECT_GT(ran, 400) << "most are refused before much happens";
}

}  // namespace
}  // namespace embedded_tests

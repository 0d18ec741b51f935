#include "reading.h"

namespace tsql {
namespace {

const std::filesystem::path kRefused =
    std::filesystem::path(PARVEL_SOURCE_DIR) / "tests" / "fuzz" / "corpus" / "refused";

TEST(Refusals, SayWhereAndWhatAsTheServerDoes) {
  const std::pair<std::string, std::string> cases[] = {
      {Contents(kRefused / "seguros_mapa.sql"),
       "linha 1, coluna 25: Incorrect syntax near the keyword 'AS'."},
      {Contents(kRefused / "revisoes_mapa.sql"),
       "linha 1, coluna 31: Incorrect syntax near the keyword 'AS'."},
      {Contents(kRefused / "apostrofo.sql"), "linha 1, coluna 59: Incorrect syntax near 'AB'."},
      {Contents(kRefused / "segunda.sql"), "linha 1, coluna 48: Incorrect syntax near the keyword 'DROP'."},
      {"SELECT a FROM t DELETE t", "linha 1, coluna 17: Incorrect syntax near the keyword 'DELETE'."},
      {"SELECT a FROM t;;", "linha 1, coluna 17: Incorrect syntax near ';'."},
      {"drop table t", "linha 1, coluna 1: Incorrect syntax near the keyword 'drop'."},
      {"EXEC xp_cmdshell 'dir'", "linha 1, coluna 1: Incorrect syntax near the keyword 'EXEC'."},
      {"sp_who", "linha 1, coluna 1: Incorrect syntax near 'sp_who'."},
      {"", "linha 1, coluna 1: Incorrect syntax near ''."},
      {"SELECT a\r\nFROM t\r\nWHERE á é",
       "linha 3, coluna 9: An expression of non-boolean type specified in a "
       "context where a condition is expected, near 'é'."},
      {"SELECT 'it''s", "linha 1, coluna 8: Unclosed quotation mark after the character string 'it's'."},
      {"SELECT á + N'x", "linha 1, coluna 12: Unclosed quotation mark after the character string 'x'."},
      {"SELECT a,\r\n [b", "linha 2, coluna 2: Unclosed quotation mark after the character string 'b'."},
      {"SELECT a /* b /* c */", "linha 1, coluna 10: Missing end comment mark '*/'."},
      {"SELECT 0x1F", "linha 1, coluna 9: Incorrect syntax near 'x1F'."},
      {"SELECT 1.5e3", "linha 1, coluna 11: Incorrect syntax near 'e3'."},
      {"SELECT a FROM t WHERE", "linha 1, coluna 17: Incorrect syntax near the keyword 'WHERE'."},
      {"SELECT a FROM t WHERE b = c = d", "linha 1, coluna 29: Incorrect syntax near '='."},
      {"SELECT a FROM t WHERE (b = c) + 1 > 0", "linha 1, coluna 31: Incorrect syntax near '+'."},
      {"SELECT a = 1", "linha 1, coluna 10: Incorrect syntax near '='."},
      {"SELECT f(a IS NULL)", "linha 1, coluna 12: Incorrect syntax near the keyword 'IS'."},
      {"DELETE t WHERE a = 1 AND b",
       "linha 1, coluna 26: An expression of non-boolean type specified in a context "
       "where a condition is expected, near 'b'."},
      {"DELETE t WHERE a BETWEEN 1 AND 2",
       "linha 1, coluna 18: Incorrect syntax near the keyword 'BETWEEN'."},
      {"SELECT a '(' FROM order", "linha 1, coluna 19: Incorrect syntax near the keyword 'order'."},
      {"SELECT a AS '' FROM t", "linha 1, coluna 13: An object or column name is missing or empty."},
      {"SELECT TOP 1.5 a FROM t", "linha 1, coluna 12: Incorrect syntax near '1.5'."},
      {"SELECT TOP 99999999999999999999 a FROM t",
       "linha 1, coluna 12: Incorrect syntax near '99999999999999999999'."},
      {"SELECT CASE END", "linha 1, coluna 13: Incorrect syntax near the keyword 'END'."},
      {"SELECT CAST(a AS xml)", "linha 1, coluna 18: Type xml is not a defined system type."},
      {"SELECT CAST(a AS nvarchar(4001))", "linha 1, coluna 27: Incorrect syntax near '4001'."},
      {"SELECT @x", "linha 1, coluna 8: Incorrect syntax near '@'."},
      {"SELECT a FROM t WHERE b = (SELECT 1)",
       "linha 1, coluna 28: Incorrect syntax near the keyword 'SELECT'."},
      {"INSERT INTO t (a, b) VALUES (1)",
       "linha 1, coluna 31: There are more columns in the INSERT statement than "
       "values specified in the VALUES clause."},
      {"INSERT INTO t (a) VALUES (1, 2)",
       "linha 1, coluna 28: There are fewer columns in the INSERT statement than "
       "values specified in the VALUES clause."},
  };
  for (const auto& [text, words] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Refusal([&statement = text] { ParseStatement(statement); }), "-2147217900 " + words);
  }
}

TEST(Refusals, TheKnownBadStatementsStayBad) {
  for (const auto& file : std::filesystem::directory_iterator(kRefused)) {
    SCOPED_TRACE(file.path().filename());
    EXPECT_NE(Refusal([&] { ParseStatement(Contents(file.path())); }), "accepted");
  }
}

}  // namespace
}  // namespace tsql

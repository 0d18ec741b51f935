#include "reading.h"

namespace tsql {
namespace {

struct Case {
  const char* text;
  const char* bracketed;  // literals with their ordinals
};

TEST(Expressions, ValuesBindAsOnTheServer) {
  const Case cases[] = {
      {"a + b * -c % 2 - d", "((a + ((b * (-c)) % 2#0)) - d)"},
      {"a - b - c", "((a - b) - c)"},
      {"a - (b - c)", "(a - (b - c))"},
      {"LEFT(m + '0 ', 15) + CONVERT(nvarchar(10), d, 102)",
       "(LEFT((m + 0 #0), 15#1) + (d as nvarchar(10) style 102))"},
      {"left('x'+'0',15)+'2024'", "(left((x#0 + 0#1), 15#2) + 2024#3)"},
      {"cast(t.a - t.[b c] as nvarchar(max)) + 1", "(((t.a - t.b c) as nvarchar(max)) + 1#0)"},
      {"DateDiff(dd, getdate(), COALESCE(a, NULL, 1.50))",
       "DateDiff(dd; getdate(), COALESCE(a, NULL, 1.50#0))"},
      {"count(*)", "count(*)"},
      {"case x when 1 then 'a' else N'b' end", "CASE x WHEN 1#0 THEN a#1 ELSE b#2 END"},
      {"CASE WHEN a = 1 AND b IS NULL THEN (2) END", "CASE WHEN ((a = 1#0) AND (b IS NULL)) THEN 2#1 END"},
  };
  for (const auto& [text, bracketed] : cases) {
    SCOPED_TRACE(text);
    const Select select = Parsed<Select>(std::string("SELECT ") + text + " AS v");
    ASSERT_EQ(select.cores[0].items.size(), 1U);
    EXPECT_EQ(Bracketed(select.cores[0].items[0].expression), bracketed);
  }
}

TEST(Expressions, ConditionsBindAsOnTheServer) {
  const Case cases[] = {
      {"a = 1 OR b <> 2 AND NOT c < 3", "((a = 1#0) OR ((b <> 2#1) AND (NOT (c < 3#2))))"},
      {"(a = 1 OR b != 2) AND c >= d + 1", "(((a = 1#0) OR (b <> 2#1)) AND (c >= (d + 1#2)))"},
      {"NOT NOT a IS NOT NULL", "(NOT (NOT (a IS NOT NULL)))"},
      {"NOT (a) = (b) AND c > 0", "((NOT (a = b)) AND (c > 0#0))"},
      {"a + b IN (1, -2, c) AND d NOT IN ('x')", "(((a + b) IN (1#0, (-2#1), c)) AND (d NOT IN (x#2)))"},
      {"a LIKE 'b%' AND c NOT LIKE d + '_'", "((a LIKE b%#0) AND (c NOT LIKE (d + _#1)))"},
  };
  for (const auto& [text, bracketed] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Bracketed(Parsed<Delete>(std::string("DELETE t WHERE ") + text).where), bracketed);
  }
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(Expressions, DepthIsLimitedInEveryDirection) {
  const auto accepts = [](const std::string& value) {
    return Refusal([&] { ParseStatement("SELECT " + value); });
  };
  EXPECT_EQ(accepts(Repeated("(", 199) + "1" + Repeated(")", 199)), "accepted");
  EXPECT_EQ(accepts("1" + Repeated("+1", 200)), "accepted");
  EXPECT_EQ(accepts("1" + Repeated("+1", 200) + ", 1" + Repeated("+1", 200)), "accepted");
  const std::string tooDeep[] = {Repeated("(", 100000) + "1" + Repeated(")", 100000),
                                 Repeated("- ", 100000) + "1", Repeated("f(", 100000),
                                 Repeated("CASE ", 100000), "1" + Repeated("+1", 100000)};
  for (const std::string& value : tooDeep) {
    SCOPED_TRACE(value.substr(0, 10));
    EXPECT_NE(accepts(value).find("Some part of your SQL statement is nested too deeply."),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tsql

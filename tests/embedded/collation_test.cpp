#include "embedded/storage/collation.h"

#include <random>

#include "engine_fixture.h"

namespace embedded_tests {
namespace {

int Compare(const std::string& a, const std::string& b) {
  const int order = embedded::ServerCollation::Instance().Compare(a, b);
  return (order > 0) - (order < 0);
}

std::vector<std::string> RandomTexts(std::size_t count) {
  const std::vector<std::string> pieces = {"a", "A", "b", "B",    "z",        "0", "9", " ",   "-", "_",
                                           "'", ".", "/", "\x01", "\t",       "á", "Á", "ã",   "ç", "é",
                                           "ß", "l", "·", "€",    "\xcc\x81", "n", "ñ", "\xff"};
  std::mt19937 random(7);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t kinds = i % 2 == 0 ? 15 : pieces.size();  // every other text is plain ASCII
    std::string text;
    for (std::size_t length = random() % 7; length > 0; --length) text += pieces[random() % kinds];
    texts.push_back(text);
  }
  return texts;
}

TEST(Collation, IgnoresCaseAndTrailingBlanksAndCountsAccents) {
  const std::vector<std::string> ascending = {"",  "-",  "0",  "00-AA-01", "10", "9", "a",
                                              "á", "ab", "aç", "b",        "É1", "f", "Z"};
  for (std::size_t i = 0; i + 1 < ascending.size(); ++i)
    EXPECT_EQ(Compare(ascending[i], ascending[i + 1]), -1) << i;
  for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{{"ab ", "AB"},
                                                                             {"", "   "},
                                                                             {"ÁGUA", "água  "},
                                                                             {"a b", "A B"},
                                                                             {"a\xcc\x81", "á"},
                                                                             {"a\x01", "a"}})
    EXPECT_EQ(Compare(a, b), 0) << a << "|" << b;
  EXPECT_EQ(Compare(" a", "a"), -1);
}

// A foreign character in front sends both texts to the full rules.
TEST(Collation, ShortWayAgreesWithTheRules) {
  const auto texts = RandomTexts(600);
  for (const std::string& a : texts)
    for (const std::string& b : texts) ASSERT_EQ(Compare(a, b), Compare("€" + a, "€" + b)) << a << "|" << b;
  for (char c = 1; c < 127; ++c)
    for (char d = 1; d < 127; ++d) {
      const std::string a = {'x', c, 'y'};
      const std::string b = {'x', d, 'y'};
      ASSERT_EQ(Compare(a, b), Compare("€" + a, "€" + b))
          << static_cast<int>(c) << "|" << static_cast<int>(d);
    }
}

using CollationInTables = EngineTest;

TEST_F(CollationInTables, KeysOrderAndSearch) {
  for (const char* code : {"b", "Á", "a ", "C", "10", "9"})
    Run(std::string("INSERT INTO Codigos (Codigo) VALUES (N'") + code + "')");
  EXPECT_EQ(Rows("SELECT Codigo FROM Codigos ORDER BY codigo"),
            (Table{{"10"}, {"9"}, {"a "}, {"Á"}, {"b"}, {"C"}}));
  EXPECT_EQ(Value("SELECT Codigo FROM Codigos WHERE Codigo = 'A'"), "a ");
  EXPECT_EQ(NumberOf([&] { Run("INSERT INTO Codigos (Codigo) VALUES ('B  ')"); }), platform::kConstraint);
  EXPECT_EQ(Value("SELECT MAX(Codigo + '') AS x FROM Codigos"), "C");
  EXPECT_EQ(
      Rows("SELECT Codigo FROM Codigos WHERE Codigo > 'a' AND Codigo < 'zzzzzzzzzzzz' ORDER BY Codigo DESC"),
      (Table{{"C"}, {"b"}, {"Á"}}));
}

}  // namespace
}  // namespace embedded_tests

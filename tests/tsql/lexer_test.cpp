#include "tsql/lexer.h"

#include <vector>

#include "reading.h"

namespace tsql {
namespace {

std::vector<Token> Tokens(std::string_view text) {
  Lexer lexer(text);
  std::vector<Token> tokens;
  while (true) {
    tokens.push_back(lexer.Next());
    if (tokens.back().kind == TokenKind::kEnd) return tokens;
  }
}

TEST(Lexer, TellsTheKindsOfTokens) {
  struct Expected {
    TokenKind kind;
    std::string text;
    bool delimited;
  };
  const std::vector<Expected> expected = {{TokenKind::kName, "Código", false},
                                          {TokenKind::kSymbol, "<>", false},
                                          {TokenKind::kNationalString, "d''Or", false},
                                          {TokenKind::kSymbol, ",", false},
                                          {TokenKind::kName, "a]]b", true},
                                          {TokenKind::kSymbol, ".", false},
                                          {TokenKind::kName, "Tipo Seguro", true},
                                          {TokenKind::kSymbol, ">=", false},
                                          {TokenKind::kString, "", false},
                                          {TokenKind::kInteger, "100", false},
                                          {TokenKind::kSymbol, "-", false},
                                          {TokenKind::kDecimal, ".5", false},
                                          {TokenKind::kDecimal, "12.", false},
                                          {TokenKind::kSymbol, "!=", false},
                                          {TokenKind::kName, "n", false},
                                          {TokenKind::kEnd, "", false}};
  const std::string text =
      "Código<>N'd''Or' , -- a comment\r\n[a]]b].\"Tipo Seguro\">=''100/* two /* nested */ */-.5 12.!=n";
  const std::vector<Token> tokens = Tokens(text);
  ASSERT_EQ(tokens.size(), expected.size());
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(tokens[i].kind, expected[i].kind);
    EXPECT_EQ(tokens[i].text, expected[i].text);
    EXPECT_EQ(tokens[i].delimited, expected[i].delimited);
  }
  EXPECT_EQ(StringValue(tokens[2]), "d'Or");
  EXPECT_EQ(NameValue(tokens[4], text), "a]b");
  EXPECT_EQ(text.substr(tokens[2].begin, tokens[2].end - tokens[2].begin), "N'd''Or'");
}

TEST(Lexer, RefusesWhatHasNoEndAndNumbersThatRunIntoNames) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a = 'it''s", "linha 1, coluna 5: Unclosed quotation mark after the character string 'it's'."},
      {"á = N'x", "linha 1, coluna 5: Unclosed quotation mark after the character string 'x'."},
      {"a,\r\n [b", "linha 2, coluna 2: Unclosed quotation mark after the character string 'b'."},
      {"a /* b /* c */", "linha 1, coluna 3: Missing end comment mark '*/'."},
      {"0x1F", "linha 1, coluna 2: Incorrect syntax near 'x1F'."},
      {"1.5e3", "linha 1, coluna 4: Incorrect syntax near 'e3'."},
  };
  for (const auto& [text, words] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Refusal([&statement = text] { Tokens(statement); }), "-2147217900 " + words);
  }
}

}  // namespace
}  // namespace tsql

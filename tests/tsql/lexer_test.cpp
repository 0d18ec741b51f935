#include "tsql/lexer.h"

#include <map>
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
  const std::map<TokenKind, std::string> kinds = {
      {TokenKind::kName, "name "},     {TokenKind::kSymbol, ""},
      {TokenKind::kString, "text "},   {TokenKind::kNationalString, "national "},
      {TokenKind::kInteger, "whole "}, {TokenKind::kDecimal, "decimal "},
      {TokenKind::kEnd, "end"}};
  const std::string text =
      "Código<>N'd''Or' , -- a comment\r\n[a]]b].\"Tipo Seguro\">=''100/* two /* nested */ */-.5 12.!=n";
  const std::vector<Token> tokens = Tokens(text);
  std::string told;
  for (const Token& token : tokens)
    told.append(kinds.at(token.kind)).append(token.text).append(token.delimited ? " delimited|" : "|");
  EXPECT_EQ(told,
            "name Código|<>|national d''Or|,|name a]]b delimited|.|name Tipo Seguro delimited|>=|text |"
            "whole 100|-|decimal .5|decimal 12.|!=|name n|end|");
  EXPECT_EQ(StringValue(tokens[2]), "d'Or");
  EXPECT_EQ(NameValue(tokens[4], text), "a]b");
  EXPECT_EQ(text.substr(tokens[2].begin, tokens[2].end - tokens[2].begin), "N'd''Or'");
}

}  // namespace
}  // namespace tsql

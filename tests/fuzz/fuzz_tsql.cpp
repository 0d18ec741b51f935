// Any bytes at all are read or refused with a RuntimeError; whatever else happens is a fault.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/runtime_error.h"
#include "tsql/lexer.h"
#include "tsql/parser.h"

namespace {

template <typename Read>
bool Accepts(Read read) {
  try {
    read();
    return true;
  } catch (const platform::RuntimeError&) {
    return false;
  }
}

void Require(bool holds) {
  if (!holds) std::abort();
}

// Tokens follow one another inside the text, and what they show lies within their bounds.
void ReadTokens(std::string_view text) {
  tsql::Lexer lexer(text);
  std::size_t at = 0;
  while (true) {
    const tsql::Token token = lexer.Next();
    Require(token.begin >= at && token.end >= token.begin && token.end <= text.size());
    if (token.kind == tsql::TokenKind::kEnd) return;
    Require(token.end > token.begin && token.text.size() <= token.end - token.begin);
    at = token.end;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const bool lexes = Accepts([text] { ReadTokens(text); });
  const bool parses = Accepts([text] { tsql::ParseStatement(text); });
  Require(lexes || !parses);
  Accepts([text] { tsql::ParseSchema(text); });
  return 0;
}

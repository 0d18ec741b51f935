#include "host/literal.h"

namespace zorCrmParvel {

std::string InsideLiteral(std::string_view text) {
  std::string inside;
  inside.reserve(text.size());
  for (const char c : text) {
    inside += c;
    if (c == '\'') inside += c;
  }
  return inside;
}

std::string TextLiteral(std::string_view text) { return "N'" + InsideLiteral(text) + "'"; }

}  // namespace zorCrmParvel

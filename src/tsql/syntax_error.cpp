#include "tsql/syntax_error.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace tsql {

std::string Place(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const std::string_view sinceLine = before.substr(before.rfind('\n') + 1);
  const auto column = 1 + std::count_if(sinceLine.begin(), sinceLine.end(), [](char c) {
                        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;  // not a continuation byte
                      });
  return "linha " + std::to_string(line) + ", coluna " + std::to_string(column);
}

void RaiseSyntaxError(std::string_view text, std::size_t offset, const std::string& description) {
  throw platform::RuntimeError(platform::kStatementRefused, Place(text, offset), description);
}

}  // namespace tsql

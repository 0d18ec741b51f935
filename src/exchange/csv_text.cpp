#include "exchange/csv_text.h"

#include <algorithm>

namespace exchange {
namespace {

bool BeginsLikeAFormula(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

/// The text behind the apostrophes that it begins with.
std::string_view BehindApostrophes(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of('\''), text.size()));
  return text;
}

}  // namespace

std::string Guarded(std::string text) {
  if (BeginsLikeAFormula(BehindApostrophes(text))) text.insert(0, 1, '\'');
  return text;
}

std::string WithoutGuard(std::string text) {
  if (text.starts_with('\'') && BeginsLikeAFormula(BehindApostrophes(text))) text.erase(0, 1);
  return text;
}

std::string CsvField(std::string text) {
  if (text.find_first_of(";\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
  return quoted + "\"";
}

}  // namespace exchange

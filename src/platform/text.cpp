#include "platform/text.h"

namespace platform {
namespace {

/// Bytes of the character that starts with `lead`; 1 for a stray continuation byte.
std::size_t BytesOf(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  if (lead >= 0xC0) return 2;
  return 1;
}

/// UTF-16 units of the character that starts with `lead`.
std::size_t UnitsOf(unsigned char lead) { return lead >= 0xF0 ? 2 : 1; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::size_t Length(std::string_view text) {
  std::size_t units = 0;
  for (char c : text)
    if (!IsContinuation(c)) units += UnitsOf(static_cast<unsigned char>(c));
  return units;
}

std::string Left(std::string_view text, std::size_t units) {
  if (text.size() <= units) return std::string(text);
  std::size_t at = 0;
  while (at < text.size()) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (UnitsOf(lead) > units) break;
    units -= UnitsOf(lead);
    at += BytesOf(lead);
  }
  return std::string(text.substr(0, at));
}

std::string Right(std::string_view text, std::size_t units) {
  std::size_t begin = text.size();
  while (begin > 0) {
    std::size_t at = begin - 1;
    while (at > 0 && IsContinuation(text[at])) --at;
    const std::size_t needed = UnitsOf(static_cast<unsigned char>(text[at]));
    if (needed > units) break;
    units -= needed;
    begin = at;
  }
  return std::string(text.substr(begin));
}

std::string Padded(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a == b) return true;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (Lower(a[i]) != Lower(b[i])) return false;
  return true;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      ++i;
      continue;
    }
    const std::size_t bytes = BytesOf(lead);
    if (lead < 0xC2 || lead > 0xF4 || i + bytes > text.size()) return false;
    for (std::size_t k = 1; k < bytes; ++k)
      if (!IsContinuation(text[i + k])) return false;
    const auto second = static_cast<unsigned char>(text[i + 1]);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool outside = (lead == 0xED && second >= 0xA0) || (lead == 0xF4 && second >= 0x90);
    if (overlong || outside) return false;
    i += bytes;
  }
  return true;
}

}  // namespace platform

#include "exchange/utf8.h"

#include <array>

namespace exchange {
namespace {

/// Windows-1252 from 0x80 to 0x9F; 0 where it has no character. The rest are Latin-1.
constexpr std::array<unsigned, 32> kWindows = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

}  // namespace

void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (c < 0x80) {
    add(c);
    return;
  }
  if (c < 0x800) {
    add(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      add(0xE0 | (c >> 12));
    } else {
      add(0xF0 | (c >> 18));
      add(0x80 | ((c >> 12) & 0x3F));
    }
    add(0x80 | ((c >> 6) & 0x3F));
  }
  add(0x80 | (c & 0x3F));
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = byte >= 0x80 && byte < 0xA0;
    const unsigned mapped = special ? kWindows[byte - 0x80] : byte;
    AppendUtf8(text, mapped == 0 && special ? 0xFFFD : mapped);
  }
  return text;
}

}  // namespace exchange

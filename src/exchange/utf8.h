#pragma once

#include <string>

namespace exchange {

/// Appends a character, by its number, as UTF-8.
inline void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (c < 0x80) {
    add(c);
  } else if (c < 0x800) {
    add(0xC0 | (c >> 6));
    add(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    add(0xE0 | (c >> 12));
    add(0x80 | ((c >> 6) & 0x3F));
    add(0x80 | (c & 0x3F));
  } else {
    add(0xF0 | (c >> 18));
    add(0x80 | ((c >> 12) & 0x3F));
    add(0x80 | ((c >> 6) & 0x3F));
    add(0x80 | (c & 0x3F));
  }
}

}  // namespace exchange

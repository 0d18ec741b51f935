#include "sqlserver/utf16.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace sqlserver {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// How many bytes a character takes, by its first one.
std::size_t LengthBy(unsigned char first) {
  if (first < 0x80) return 1;
  if (first < 0xE0) return 2;
  return first < 0xF0 ? 3 : 4;
}

char32_t Decode(std::string_view character) {
  constexpr unsigned char kFirstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t code = static_cast<unsigned char>(character[0]) & kFirstBits[character.size()];
  for (std::size_t i = 1; i < character.size(); ++i)
    code = code << 6U | (static_cast<unsigned char>(character[i]) & 0x3FU);
  return code;
}

void AppendCode(char32_t code, std::string& out) {
  const auto tail = [&](unsigned shift) { out += static_cast<char>(0x80U | (code >> shift & 0x3FU)); };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0U | code >> 6U);
    tail(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0U | code >> 12U);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0U | code >> 18U);
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

std::u16string ToUtf16(std::string_view text) {
  if (!platform::IsUtf8(text))
    throw platform::RuntimeError(platform::kStatementRefused, "",
                                 "O texto tem caracteres inválidos e não foi enviado ao servidor.");
  std::u16string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = LengthBy(static_cast<unsigned char>(text[0]));
    const char32_t code = Decode(text.substr(0, length));
    if (code < 0x10000) {
      out += static_cast<char16_t>(code);
    } else {
      out += static_cast<char16_t>(0xD800U + ((code - 0x10000U) >> 10U));
      out += static_cast<char16_t>(0xDC00U + (code & 0x3FFU));
    }
    text.remove_prefix(length);
  }
  return out;
}

void AppendUtf8(std::u16string_view text, std::string& out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0x80) {
      out += static_cast<char>(unit);
    } else if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1])) {
      AppendCode(0x10000U + ((unit & 0x3FFU) << 10U) + (text[i + 1] & 0x3FFU), out);
      ++i;
    } else {
      AppendCode(IsHigh(unit) || IsLow(unit) ? kReplacement : unit, out);
    }
  }
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendUtf8(text, out);
  return out;
}

}  // namespace sqlserver

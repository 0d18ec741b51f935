#include "lists/words.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace lists {
namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string SmallLetters(std::string_view text) {
  std::string small;
  if (IsAscii(text)) {
    small.assign(text);
    std::transform(small.begin(), small.end(), small.begin(), Small);
    return small;
  }
  icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
      .foldCase()
      .toUTF8String(small);
  return small;
}

/// Small letters without accents; the other kinds of blanks and dashes become plain ones.
std::string PlainLetters(std::string_view text) {
  if (IsAscii(text)) return SmallLetters(text);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* apart = icu::Normalizer2::getNFKDInstance(status);
  if (U_FAILURE(status)) return SmallLetters(text);
  const icu::UnicodeString letters = apart->normalize(
      icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()))),
      status);
  icu::UnicodeString plain;
  for (std::int32_t i = 0; i < letters.length(); i = letters.moveIndex32(i, 1)) {
    const UChar32 letter = letters.char32At(i);
    const auto kind = u_charType(letter);
    if (kind == U_NON_SPACING_MARK) continue;
    if (kind == U_DASH_PUNCTUATION)
      plain.append(static_cast<UChar32>('-'));
    else
      plain.append(u_isUWhiteSpace(letter) ? static_cast<UChar32>(' ') : letter);
  }
  std::string folded;
  plain.foldCase().toUTF8String(folded);
  return folded;
}

}  // namespace

std::string Folded(std::string_view text) {
  std::string folded = PlainLetters(text);
  std::erase_if(folded, [](char c) { return c == '-' || IsBlank(c); });
  return folded;
}

std::vector<std::string> FoldedWords(std::string_view text) {
  std::vector<std::string> words;
  const std::string plain = PlainLetters(text);
  for (std::size_t begin = 0; begin < plain.size();) {
    const auto end = std::find_if(plain.begin() + static_cast<std::ptrdiff_t>(begin), plain.end(), IsBlank);
    const auto length = static_cast<std::size_t>(end - plain.begin()) - begin;
    std::string word = plain.substr(begin, length);
    std::erase(word, '-');
    if (!word.empty()) words.push_back(std::move(word));
    begin += length + 1;
  }
  return words;
}

std::string OrderKey(std::string_view text) {
  const std::string plain = PlainLetters(text);
  std::string key;
  key.reserve(plain.size() * 2 + 4);
  for (std::size_t i = 0; i < plain.size();) {
    if (!IsDigit(plain[i])) {
      key += plain[i++];
      continue;
    }
    while (i + 1 < plain.size() && plain[i] == '0' && IsDigit(plain[i + 1])) ++i;
    std::size_t end = i;
    while (end < plain.size() && IsDigit(plain[end])) ++end;
    // A number is its count of digits, then these: so it is compared by what it counts.
    key += '0';
    key += static_cast<char>(std::min<std::size_t>(end - i, 127));
    key.append(plain, i, end - i);
    i = end;
  }
  key += '\0';
  return IsAscii(text) ? key : key + SmallLetters(text);
}

}  // namespace lists

#include "exchange/values/fold.h"

#include <algorithm>
#include <numeric>

namespace exchange {
namespace {

/// The plain letters of U+00C0 to U+00FF; a blank where there is none.
constexpr std::string_view kLatin = "aaaaaaaceeeeiiiidnooooo ouuuuyts";

/// The plain letter of a character of two bytes; 0 when it has none.
char PlainLetter(unsigned char first, unsigned char second) {
  if (first == 0xC2 && second == 0xBA) return 'o';  // º
  if (first == 0xC2 && second == 0xAA) return 'a';  // ª
  if (first != 0xC3) return 0;
  const char letter = kLatin[static_cast<std::size_t>(second & 0x1F)];
  return letter == ' ' ? '\0' : letter;
}

/// Bytes of the blank that stands at a place; 0 when none does.
std::size_t BlankAt(std::string_view text, std::size_t place) {
  const std::string_view rest = text.substr(place);
  if (rest.empty()) return 0;
  if (std::string_view(" \t\r\n\v\f").find(rest[0]) != std::string_view::npos) return 1;
  for (const std::string_view blank : {"\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89", "\xEF\xBB\xBF"})
    if (rest.starts_with(blank)) return blank.size();
  return 0;
}

}  // namespace

std::string Folded(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  bool gap = false;
  const auto add = [&](char letter) {
    if (gap && !folded.empty()) folded += ' ';
    gap = false;
    folded += letter;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte >= 'A' && byte <= 'Z') {
      add(static_cast<char>(byte - 'A' + 'a'));
    } else if (byte == 0xC2 || byte == 0xC3) {
      const char plain =
          i + 1 < text.size() ? PlainLetter(byte, static_cast<unsigned char>(text[i + 1])) : '\0';
      ++i;
      if (plain == 0)
        gap = true;
      else
        add(plain);
    } else if (byte == '.' && (text.substr(i + 1, 2) == "\xC2\xBA" || text.substr(i + 1, 2) == "\xC2\xAA")) {
      // "N.º" is "Nº", "1.ª" is "1ª"
    } else if (byte == 0xE2) {  // dashes, quotes and signs
      gap = true;
      i += 2;
    } else if ((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte >= 0x80) {
      // letters of other scripts as they are
      add(static_cast<char>(byte));
    } else {
      gap = true;
    }
  }
  return folded;
}

std::string FoldedTight(std::string_view text) {
  std::string tight = Folded(text);
  std::erase(tight, ' ');
  return tight;
}

std::vector<std::string> FoldedWords(std::string_view text) {
  std::vector<std::string> words;
  const std::string folded = Folded(text);
  for (std::size_t begin = 0; begin < folded.size();) {
    const auto end = std::min(folded.find(' ', begin), folded.size());
    words.push_back(folded.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

std::string Stripped(std::string_view text) {
  const auto plain = [](char c) { return c > ' ' && c < 0x7F; };
  if (!text.empty() && plain(text.front()) && plain(text.back())) return std::string(text);
  std::size_t begin = 0;
  while (const std::size_t blank = BlankAt(text, begin)) begin += blank;
  std::size_t end = text.size();
  for (bool more = true; more && end > begin;) {
    more = false;
    for (const std::size_t bytes : {1U, 2U, 3U})
      if (end - begin >= bytes && BlankAt(text, end - bytes) == bytes) {
        end -= bytes;
        more = true;
        break;
      }
  }
  return std::string(text.substr(begin, end - begin));
}

std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0U);
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, replaced});
    }
  }
  return row[b.size()];
}

}  // namespace exchange

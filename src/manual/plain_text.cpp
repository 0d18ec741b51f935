#include "manual/plain_text.h"

#include <algorithm>

namespace manual {
namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// True for a line that begins something of its own: a heading, an item, a row of a table.
bool BeginsParagraph(std::string_view line) {
  if (line.empty()) return true;
  if (line.front() == '#' || line.front() == '|') return true;
  if (line.substr(0, 2) == "- " || line.substr(0, 2) == "* ") return true;
  const std::size_t digits = line.find_first_not_of("0123456789");
  return digits != 0 && digits != std::string_view::npos && line.substr(digits, 2) == ". ";
}

/// Takes marks away: emphasis, code, headings, bars of tables, and of a link where it leads to.
std::string WithoutMarks(std::string_view line) {
  std::string plain;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == ']' && line.substr(i, 2) == "](") {
      i = std::min(line.find(')', i), line.size());
    } else if (c == '\\' && i + 1 < line.size()) {
      plain += line[++i];
    } else if (c == '|') {
      plain += ' ';
    } else if (std::string_view("*`#[]").find(c) == std::string_view::npos) {
      plain += c;
    }
  }
  return plain;
}

/// The text without blanks around it, the mark of an item before it, and more than one blank in a row.
std::string OneBlankEach(std::string_view text) {
  std::string single;
  for (const char c : text)
    if (!IsBlank(c) || (!single.empty() && single.back() != ' ')) single += IsBlank(c) ? ' ' : c;
  if (!single.empty() && single.back() == ' ') single.pop_back();
  return single.substr(0, 2) == "- " ? single.substr(2) : single;
}

constexpr char kNoLetter = '-';

/// The letters of Portuguese, and of its neighbours, that stand in UTF-8 behind the byte C3; small and large
/// ones are 32 apart.
char WithoutAccent(unsigned char second) {
  constexpr std::string_view kLetters = "aaaaaa-ceeeeiiii-nooooo--uuuuy--";
  return kLetters[second & 0x1F];
}

}  // namespace

std::vector<std::string> Paragraphs(std::string_view markdown) {
  std::vector<std::string> paragraphs;
  std::string current;
  const auto finish = [&] {
    const std::string paragraph = OneBlankEach(current);
    if (paragraph.find_first_not_of("- ") != std::string::npos) paragraphs.push_back(paragraph);
    current.clear();
  };
  for (std::size_t begin = 0; begin < markdown.size();) {
    const std::size_t end = std::min(markdown.find('\n', begin), markdown.size());
    std::string_view line = markdown.substr(begin, end - begin);
    begin = end + 1;
    while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
    if (BeginsParagraph(line)) finish();
    if (!current.empty()) current += ' ';
    current += WithoutMarks(line);
  }
  finish();
  return paragraphs;
}

std::string Folded(std::string_view text) {
  constexpr unsigned char kLatin = 0xC3;
  std::string folded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool latin = static_cast<unsigned char>(c) == kLatin && i + 1 < text.size();
    const char letter = latin ? WithoutAccent(static_cast<unsigned char>(text[i + 1])) : kNoLetter;
    if (letter != kNoLetter) {
      folded += letter;
      ++i;
    } else if (!IsBlank(c)) {
      folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    } else if (!folded.empty() && folded.back() != ' ') {
      folded += ' ';
    }
  }
  return folded;
}

}  // namespace manual

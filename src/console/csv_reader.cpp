#include "console/csv_reader.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "platform/regional.h"
#include "platform/text.h"

namespace console {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Windows-1252 from 0x80 to 0x9F; 0 where it has no character. The rest are Latin-1.
constexpr std::array<unsigned, 32> kWindows = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& text, unsigned c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (c >> 12));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

bool IsNumberLike(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos &&
         text.find_first_not_of("0123456789.,+- ") == std::string_view::npos;
}

/// What one field tells of the decimal mark: a mark that doesn't stand before exactly three digits, or the
/// last of two kinds, is one. 0 when it tells nothing.
char DecimalOf(std::string_view text) {
  if (!IsNumberLike(text)) return '\0';
  const auto comma = text.rfind(',');
  const auto point = text.rfind('.');
  if (comma == std::string_view::npos && point == std::string_view::npos) return '\0';
  if (comma != std::string_view::npos && point != std::string_view::npos) return comma > point ? ',' : '.';
  const char mark = comma != std::string_view::npos ? ',' : '.';
  const auto at = comma != std::string_view::npos ? comma : point;
  if (std::count(text.begin(), text.end(), mark) > 1) return mark == ',' ? '.' : ',';  // it groups
  return text.size() - at - 1 == 3 ? '\0' : mark;
}

char SeparatorOf(std::string_view header) {
  char best = ';';
  auto most = std::count(header.begin(), header.end(), ';');
  for (char candidate : {',', '\t', '|'}) {
    const auto count = std::count(header.begin(), header.end(), candidate);
    if (count > most) {
      best = candidate;
      most = count;
    }
  }
  return best;
}

void Rewind(std::istream& file) {
  file.clear();
  file.seekg(0);
  std::array<char, 3> mark{};
  file.read(mark.data(), mark.size());
  if (file.gcount() == 3 && std::string_view(mark.data(), 3) == kByteOrderMark) return;
  file.clear();
  file.seekg(0);
}

}  // namespace

CsvShape DetectCsv(std::istream& file) {
  Rewind(file);
  CsvShape shape;
  std::string line;
  std::getline(file, line);
  shape.separator = SeparatorOf(line);
  Rewind(file);
  shape.utf8 = true;
  while (std::getline(file, line)) shape.utf8 = shape.utf8 && platform::IsUtf8(line);

  Rewind(file);
  CsvReader reader(file, shape);
  if (!reader.Next(shape.header))
    throw std::runtime_error("O ficheiro está vazio: falta a linha com os nomes das colunas.");
  std::vector<std::string> row;
  long commas = 0;
  long points = 0;
  while (reader.Next(row)) {
    for (const std::string& field : row) {
      const char mark = DecimalOf(field);
      commas += mark == ',';
      points += mark == '.';
    }
  }
  shape.decimal = points > commas ? '.' : ',';
  Rewind(file);
  return shape;
}

bool CsvReader::Next(std::vector<std::string>& row) {
  while (ReadRow(row))
    if (row.size() > 1 || !platform::Trim(row[0]).empty()) return true;
  return false;
}

bool CsvReader::ReadRow(std::vector<std::string>& row) {
  row.clear();
  rowLine_ = line_;
  std::string field;
  bool quoted = false;
  bool any = false;
  const auto close = [&] {
    row.push_back(ToUtf8(std::move(field)));
    field.clear();
  };
  std::streambuf& file = *file_.rdbuf();
  for (int c = file.sbumpc(); c != std::istream::traits_type::eof(); c = file.sbumpc()) {
    any = true;
    const char letter = static_cast<char>(c);
    if (letter == '\n') ++line_;
    if (quoted) {
      if (letter != '"')
        field += letter;
      else if (file.sgetc() == '"')
        field += static_cast<char>(file.sbumpc());
      else
        quoted = false;
    } else if (letter == '"' && field.empty()) {
      quoted = true;
    } else if (letter == shape_.separator) {
      close();
    } else if (letter == '\n') {
      close();
      return true;
    } else if (letter != '\r') {
      field += letter;
    }
  }
  if (any) close();
  return any;
}

std::string CsvReader::ToUtf8(std::string field) const {
  if (shape_.utf8) return field;
  std::string text;
  for (char c : field) {
    const auto byte = static_cast<unsigned char>(c);
    const bool special = byte >= 0x80 && byte < 0xA0;
    const unsigned mapped = special ? kWindows[byte - 0x80] : byte;
    AppendUtf8(text, mapped == 0 ? 0xFFFD : mapped);
  }
  return text;
}

std::string RegionalNumber(std::string_view text, char decimal) {
  const char grouping = decimal == ',' ? '.' : ',';
  const std::string trimmed = platform::Trim(text);
  const auto point = std::min(trimmed.find(decimal), trimmed.size());
  const auto firstDigit = trimmed.find_first_not_of("+-");
  if (firstDigit > 1) return {};  // nor when there is none
  std::string number = trimmed.substr(0, firstDigit);
  std::size_t sinceGroup = 0;
  bool grouped = false;
  for (std::size_t i = firstDigit; i < point; ++i) {
    const char c = trimmed[i];
    if (c == grouping) {
      if (i == firstDigit || (grouped && sinceGroup != 3) || sinceGroup > 3) return {};
      grouped = true;
      sinceGroup = 0;
    } else if (c >= '0' && c <= '9') {
      number += c;
      ++sinceGroup;
    } else {
      return {};
    }
  }
  if (grouped && sinceGroup != 3) return {};
  if (point < trimmed.size()) {
    const std::string decimals = trimmed.substr(point + 1);
    if (decimals.find_first_not_of("0123456789") != std::string::npos) return {};
    number += platform::Regional::Current().decimal + decimals;
  }
  return number;
}

}  // namespace console

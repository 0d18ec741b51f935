#include "exchange/csv_reader.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "exchange/utf8.h"
#include "platform/text.h"

namespace exchange {
namespace {

constexpr auto kEnd = std::istream::traits_type::eof();
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

void ToBegin(std::istream& file) {
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
  ToBegin(file);
  CsvShape shape;
  std::string line;
  std::getline(file, line);
  shape.separator = SeparatorOf(line);
  ToBegin(file);
  shape.utf8 = true;
  while (std::getline(file, line)) shape.utf8 = shape.utf8 && platform::IsUtf8(line);

  ToBegin(file);
  CsvReader reader(file, shape);
  if (!reader.Next(shape.header))
    throw std::runtime_error("O ficheiro está vazio: falta a linha com os nomes das colunas.");
  reader.Rewind();
  return shape;
}

bool CsvReader::Next(std::vector<std::string>& row) {
  while (ReadRow(row))
    if (row.size() > 1 || !platform::Trim(row[0]).empty()) return true;
  return false;
}

void CsvReader::Rewind() {
  ToBegin(file_);
  line_ = rowLine_ = lastLine_ = 1;
}

bool CsvReader::ReadRow(std::vector<std::string>& row) {
  row.clear();
  rowLine_ = line_;
  std::string field;
  bool any = false;
  const auto close = [&] {
    row.push_back(shape_.utf8 ? std::move(field) : FromWindows1252(field));
    field.clear();
  };
  std::streambuf& file = *file_.rdbuf();
  for (int c = file.sbumpc(); c != kEnd; c = file.sbumpc()) {
    any = true;
    lastLine_ = line_;
    const char letter = static_cast<char>(c);
    if (letter == '\n') ++line_;
    if (letter == '"' && field.empty()) {
      ReadQuoted(field);
      lastLine_ = line_;
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

void CsvReader::ReadQuoted(std::string& field) {
  const long opened = line_;
  std::streambuf& file = *file_.rdbuf();
  int c = file.sbumpc();
  for (; c != kEnd; c = file.sbumpc()) {
    if (c == '"') {
      if (file.sgetc() != '"') break;
      file.sbumpc();
    }
    if (c == '\n') ++line_;
    field += static_cast<char>(c);
  }
  const int next = file.sgetc();
  const bool atEnd = next == kEnd || next == shape_.separator || next == '\r' || next == '\n' || next == ' ';
  if (c != kEnd && (atEnd || line_ == opened)) return;
  throw std::runtime_error("A aspa que se abre na linha " + std::to_string(opened) +
                           " do ficheiro não se fecha no fim do seu campo, e levaria as linhas seguintes. "
                           "Corrija essa linha; nada foi importado.");
}

}  // namespace exchange

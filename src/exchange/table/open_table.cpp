#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "exchange/table/html_table.h"
#include "exchange/table/limits.h"
#include "exchange/table/ods_table.h"
#include "exchange/table/table_reader.h"
#include "exchange/table/text_table.h"
#include "exchange/table/xls_table.h"
#include "exchange/table/xlsx_table.h"
#include "exchange/table/zip_archive.h"
#include "platform/files.h"

namespace exchange {
namespace {

constexpr std::size_t kHead = 4096;

/// Beginnings of files that are no tables, and what they are.
struct KnownKind {
  std::string_view begins;
  const char* what;
};
constexpr KnownKind kKnown[] = {{"%PDF-", "é um PDF"},
                                {"\x89PNG", "é uma imagem"},
                                {"\xFF\xD8\xFF", "é uma imagem"},
                                {"GIF8", "é uma imagem"},
                                {"{\\rtf", "é um documento de texto"},
                                {"MIME-Version:", "é uma página da Web guardada num só ficheiro"},
                                {"Rar!", "é um arquivo comprimido; extraia o que tem dentro"},
                                {"7z\xBC\xAF", "é um arquivo comprimido; extraia o que tem dentro"},
                                {"\x1F\x8B", "é um arquivo comprimido; extraia o que tem dentro"},
                                {"SQLite format 3", "é uma base de dados"}};

std::string HeadOf(const std::string& file) {
  std::string head(kHead, '\0');
  std::ifstream from(file, std::ios::binary);
  if (!from)
    throw std::runtime_error("O ficheiro \"" + file +
                             "\" não pode ser lido. Veja se tem permissão para o abrir.");
  from.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(from.gcount()));
  return head;
}

/// What markup can be told by: lower case, without the zeros that UTF-16 has.
std::string Plain(std::string head) {
  head.erase(std::remove(head.begin(), head.end(), '\0'), head.end());
  for (char& c : head)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  for (std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"})
    if (head.starts_with(mark)) head.erase(0, mark.size());
  head.erase(0, std::min(head.find_first_not_of(" \t\r\n"), head.size()));
  return head;
}

std::unique_ptr<TableReader> OpenArchive(const std::string& file) {
  const ZipArchive archive(file);
  if (archive.Has("xl/workbook.bin")) throw NoTable("é uma folha de cálculo em formato binário (XLSB)");
  if (archive.Has("META-INF/manifest.xml") && archive.Has("content.xml")) return OpenOds(file);
  if (archive.Has("xl/workbook.xml") || (archive.Has("_rels/.rels") && !archive.Has("word/document.xml")))
    return OpenXlsx(file);
  throw NoTable("é um arquivo comprimido sem folha de cálculo; extraia o que tem dentro");
}

}  // namespace

std::unique_ptr<TableReader> OpenTable(const std::string& file, const TableOptions& options) {
  if (!platform::FileExists(file))
    throw std::runtime_error("O ficheiro \"" + file + "\" não existe ou não pode ser lido.");
  if (platform::FileInUse::Covers(file))
    throw std::runtime_error("O ficheiro \"" + file +
                             "\" é a base de dados que está aberta; não pode ser importado.");
  const std::string head = HeadOf(file);
  if (head.empty()) throw std::runtime_error("O ficheiro está vazio.");
  if (head.starts_with("PK")) return OpenArchive(file);
  if (head.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1")) return OpenXls(file);
  for (const KnownKind& kind : kKnown)
    if (head.starts_with(kind.begins)) throw NoTable(kind.what);
  const std::string plain = Plain(head);
  if (plain.starts_with("<?xml") && plain.find("<html") == std::string::npos)
    throw NoTable("é um documento em XML");
  if (plain.starts_with('<') &&
      (plain.find("<html") != std::string::npos || plain.find("<table") != std::string::npos))
    return OpenHtml(file);
  return OpenTextTable(file, options);
}

}  // namespace exchange

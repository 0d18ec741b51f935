#include "exchange/export/export_table.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "exchange/csv_text.h"
#include "exchange/export/export_faces.h"
#include "platform/files.h"
#include "platform/text.h"

namespace exchange {
namespace {

namespace fs = std::filesystem;

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr char kIncomplete[] = ".incompleto";

/// Text as a spreadsheet leaves it alone; numbers and dates stay what they are.
std::string CsvCell(const ExportCell& cell, const ExportColumn& column) {
  const auto* text = std::get_if<std::string>(&cell);
  return CsvField(text != nullptr ? Guarded(*text) : FaceOf(cell, column));
}

/// A field of the clipboard, which ends at a tab or a line end.
std::string OnOneLine(std::string text) {
  for (char& c : text)
    if (c == '\t' || c == '\n' || c == '\r') c = ' ';
  return text;
}

}  // namespace

ExportFormat FormatOf(const std::string& file) {
  const std::string ending = fs::path(file).extension().string();
  if (platform::EqualsIgnoringCase(ending, ".xlsx")) return ExportFormat::kXlsx;
  if (platform::EqualsIgnoringCase(ending, ".ods")) return ExportFormat::kOds;
  if (platform::EqualsIgnoringCase(ending, ".csv")) return ExportFormat::kCsv;
  throw std::runtime_error("O nome do ficheiro deve acabar em .xlsx, .ods ou .csv, que diz o formato.");
}

void WriteCsvTable(const ExportTable& table, const std::string& file) {
  std::ofstream out(file, std::ios::binary);
  const auto line = [&](const auto& fieldOf) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) out << (i == 0 ? "" : ";") << fieldOf(i);
    out << "\r\n";
  };
  out << kByteOrderMark;
  line([&](std::size_t i) { return CsvField(table.columns[i].heading); });
  for (const auto& row : table.rows) line([&](std::size_t i) { return CsvCell(row[i], table.columns[i]); });
  out.close();
  if (!out) throw std::runtime_error("veja se o disco está cheio");
}

void WriteTable(const ExportTable& table, const std::string& file, ExportFormat format) {
  if (platform::FileInUse::Covers(file))
    throw std::runtime_error("O ficheiro \"" + file +
                             "\" é a base de dados que está aberta; escolha outro nome.");
  const std::string unfinished = file + kIncomplete;
  try {
    platform::WritePrivateFile(unfinished, "");
    if (format == ExportFormat::kXlsx) WriteXlsx(table, unfinished);
    if (format == ExportFormat::kOds) WriteOds(table, unfinished);
    if (format == ExportFormat::kCsv) WriteCsvTable(table, unfinished);
    fs::permissions(unfinished, fs::perms::owner_read | fs::perms::owner_write);
    fs::rename(unfinished, file);
  } catch (const std::exception& e) {
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    throw std::runtime_error("Não foi possível escrever o ficheiro \"" + file + "\": " + e.what() + ".");
  }
}

std::string ClipboardText(const ExportTable& table) {
  std::string text;
  const auto line = [&](const auto& fieldOf) {
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      text += (i == 0 ? "" : "\t") + OnOneLine(fieldOf(i));
    text += '\n';
  };
  line([&](std::size_t i) { return table.columns[i].heading; });
  for (const auto& row : table.rows) line([&](std::size_t i) { return FaceOf(row[i], table.columns[i]); });
  return text;
}

std::string ClipboardHtml(const ExportTable& table) {
  std::string html =
      "<html><head><meta charset=\"utf-8\"><style>.t{mso-number-format:\"\\@\"}</style></head><body><table>";
  html += "<caption>" + MarkedUp(table.title) + "</caption><tr>";
  for (const ExportColumn& column : table.columns) html += "<th>" + MarkedUp(column.heading) + "</th>";
  html += "</tr>";
  for (const auto& row : table.rows) {
    html += "<tr>";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const bool text = std::holds_alternative<std::string>(row[i]);
      html += (text ? "<td class=\"t\">" : "<td>") + MarkedUp(FaceOf(row[i], table.columns[i])) + "</td>";
    }
    html += "</tr>";
  }
  return html + "</table></body></html>";
}

}  // namespace exchange

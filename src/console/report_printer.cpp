#include "console/report_printer.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "exchange/csv_text.h"
#include "platform/format.h"
#include "platform/text.h"

namespace console {
namespace {

using nlohmann::ordered_json;
using platform::Currency;
using platform::Date;
using reports::Celula;
using reports::ColunaDaTabela;
using reports::LinhaDaTabela;
using reports::Tabela;

/// A date for other programs: the day alone when the time is midnight.
std::string IsoDate(Date date) {
  if (reports::SemData(date)) return {};
  return platform::FormatDate(date, date == date.DayOnly() ? "yyyy-mm-dd" : "yyyy-mm-dd hh:mm:ss");
}

ordered_json JsonOf(const Celula& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* money = std::get_if<Currency>(&cell)) return money->ToDouble();
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return *whole;
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth;
  const auto* date = std::get_if<Date>(&cell);
  if (date == nullptr || reports::SemData(*date)) return nullptr;
  return IsoDate(*date);
}

ordered_json JsonOf(const Tabela& table, const LinhaDaTabela& row) {
  auto object = ordered_json::object();
  for (std::size_t i = 0; i < table.colunas.size(); ++i) {
    const ColunaDaTabela& column = table.colunas[i];
    (column.celula ? object["celulas"] : object)[column.chave] = JsonOf(row.celulas[i]);
  }
  return object;
}

/// Row by row, so that a long report never stands in memory twice.
void PrintJson(std::ostream& out, const reports::Relatorio& report) {
  const auto dumped = [](const ordered_json& json) {
    return json.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
  };
  out << "{";
  bool first = true;
  for (const Tabela& table : report.tabelas) {
    out << (first ? "\n" : ",\n") << "  " << dumped(table.nome) << ": ";
    first = false;
    if (table.umSo) {
      out << dumped(JsonOf(table, table.Linha(0)));
      continue;
    }
    out << "[";
    for (std::size_t i = 0; i < table.Quantas(); ++i)
      out << (i == 0 ? "\n    " : ",\n    ") << dumped(JsonOf(table, table.Linha(i)));
    out << (table.Quantas() == 0 ? "]" : "\n  ]");
  }
  out << "\n}\n";
}

std::string CsvOf(const Celula& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return exchange::CsvField(exchange::Guarded(*text));
  if (const auto* money = std::get_if<Currency>(&cell)) return money->ToText('.');
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return std::to_string(*whole);
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth ? "1" : "0";
  const auto* date = std::get_if<Date>(&cell);
  return date == nullptr ? std::string() : IsoDate(*date);
}

void PrintCsv(std::ostream& out, const Tabela& table) {
  for (std::size_t i = 0; i < table.colunas.size(); ++i)
    out << (i == 0 ? "" : ";") << exchange::CsvField(table.colunas[i].chave);
  out << '\n';
  for (std::size_t i = 0; i < table.Quantas(); ++i) {
    const LinhaDaTabela row = table.Linha(i);
    for (std::size_t j = 0; j < row.celulas.size(); ++j) out << (j == 0 ? "" : ";") << CsvOf(row.celulas[j]);
    out << '\n';
  }
}

}  // namespace

void PrintReportTable(std::ostream& out, const Tabela& table) {
  const std::vector<std::size_t> columns = reports::ColunasParaPessoas(table);
  std::vector<std::vector<std::string>> rows(1);
  for (const std::size_t column : columns) rows[0].push_back(table.colunas[column].titulo);
  for (std::size_t i = 0; i < table.Quantas(); ++i) {
    const LinhaDaTabela row = table.Linha(i);
    rows.emplace_back();
    for (const std::size_t column : columns)
      rows.back().push_back(reports::TextoDa(row.celulas[column], table.colunas[column].formato));
  }
  std::vector<std::size_t> widths(columns.size());
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], platform::Length(row[i]));
  rows.insert(rows.begin() + 1, std::vector<std::string>());
  for (const std::size_t width : widths) rows[1].push_back(std::string(width, '-'));
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string padding(widths[i] - platform::Length(row[i]), ' ');
      const bool right = reports::ENumero(table.colunas[columns[i]].formato);
      line += (i == 0 ? "" : "  ") + (right ? padding + row[i] : row[i] + padding);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

void PrintReport(std::ostream& out, const reports::Relatorio& report, Output format) {
  if (format == Output::kJson) return PrintJson(out, report);
  if (format == Output::kCsv) return PrintCsv(out, report.tabelas.front());
  for (const Tabela& table : report.tabelas) {
    if (&table != &report.tabelas.front()) {
      if (table.Quantas() == 0) continue;
      out << '\n' << table.titulo << '\n';
    }
    PrintReportTable(out, table);
  }
  out << '\n';
  for (const std::string& note : report.notas) out << note << '\n';
}

}  // namespace console

#include "exchange/export/report_table.h"

namespace exchange {
namespace {

ExportCell CellOf(const reports::Celula& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* money = std::get_if<platform::Currency>(&cell)) return *money;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return static_cast<double>(*whole);
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth;
  const auto* date = std::get_if<platform::Date>(&cell);
  if (date == nullptr || reports::SemData(*date)) return std::string();
  return *date;
}

ExportColumn ColumnOf(const reports::ColunaDaTabela& column) {
  switch (column.formato) {
    case reports::Formato::kTexto:
      return {column.titulo};
    case reports::Formato::kData:
      return {column.titulo, ExportKind::kDate};
    case reports::Formato::kLogico:
      return {column.titulo, ExportKind::kTruth};
    case reports::Formato::kInteiro:
      return {column.titulo, ExportKind::kNumber, 0, 0};
    case reports::Formato::kPorUnidade:
      return {column.titulo, ExportKind::kMoney, 0, 4};
    default:
      return {column.titulo, ExportKind::kMoney};
  }
}

}  // namespace

ExportTable ExportTableOf(const reports::Tabela& table, const std::string& title) {
  ExportTable out{.title = title, .columns = {}, .rows = {}};
  const std::vector<std::size_t> columns = reports::ColunasParaPessoas(table);
  for (const std::size_t column : columns) out.columns.push_back(ColumnOf(table.colunas[column]));
  for (std::size_t i = 0; i < table.Quantas(); ++i) {
    const reports::LinhaDaTabela row = table.Linha(i);
    auto& cells = out.rows.emplace_back();
    for (const std::size_t column : columns) cells.push_back(CellOf(row.celulas[column]));
  }
  return out;
}

}  // namespace exchange

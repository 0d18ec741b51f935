#include "desktop/reports/report_source.h"

#include <algorithm>

#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr char kTableName[] = "tabela";  // for machines and the terminal

}  // namespace

void ReportSource::Show(ResultRef result, std::size_t table) {
  result_ = std::move(result);
  table_ = table;
  Refresh();
}

long ReportSource::Rows() const { return result_ == nullptr ? 0 : static_cast<long>(Table().Quantas()); }

const reports::LinhaDaTabela& ReportSource::Line(long row) const {
  if (!Table().faz) return Table().linhas[static_cast<std::size_t>(row)];
  if (row != made_row_) made_ = Table().Linha(static_cast<std::size_t>(row));
  made_row_ = row;
  return made_;
}

reports::LinhaDaTabela ReportSource::RowAt(long row) const { return Line(row); }

QString ReportSource::Text(long row, std::size_t column) const {
  const auto& cells = Line(row).celulas;
  QString text = ToQt(reports::TextoDa(cells[column], Table().colunas[column].formato));
  if (!text.isEmpty() || column != reasoned_ || !reason_) return text;
  return ToQt(reports::TextoDa(cells[*reason_], reports::Formato::kTexto));
}

platform::Variant ReportSource::Value(long row, std::size_t column) const {
  const reports::Celula& cell = Line(row).celulas[column];
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  if (const auto* money = std::get_if<platform::Currency>(&cell)) return *money;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return static_cast<double>(*whole);
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth;
  const auto* date = std::get_if<platform::Date>(&cell);
  if (date == nullptr || reports::SemData(*date)) return platform::Variant::Null{};
  return *date;
}

/// True for a column of words in which no row has any.
bool ReportSource::IsBare(std::size_t column) const {
  const reports::Formato format = Table().colunas[column].formato;
  if (Table().faz || (format != reports::Formato::kTexto && format != reports::Formato::kLogico))
    return false;
  const auto says = [&](const reports::LinhaDaTabela& row) {
    return !reports::TextoDa(row.celulas[column], format).empty();
  };
  return std::none_of(Table().linhas.begin(), Table().linhas.end(), says);
}

void ReportSource::Refresh() {
  columns_.clear();
  reason_.reset();
  reasoned_.reset();
  made_row_ = -1;
  if (result_ == nullptr) return;
  for (std::size_t i = 0; i < Table().colunas.size(); ++i) {
    const reports::ColunaDaTabela& column = Table().colunas[i];
    if (column.chave == "motivo") reason_ = i;
    if (column.chave == "l100") reasoned_ = i;
    columns_.push_back({.key = column.chave,
                        .caption = ToQt(column.titulo),
                        .hidden = column.soParaMaquinas || column.chave == kTableName || IsBare(i),
                        .numeric = reports::ENumero(column.formato)});
  }
  if (reason_ && reasoned_) columns_[*reason_].hidden = true;
}

}  // namespace desktop

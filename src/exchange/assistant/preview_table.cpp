#include "exchange/assistant/preview_table.h"

#include "exchange/shape/column_words.h"

namespace exchange {
namespace {

ExportColumn ColumnOf(const ImportKind& kind, const ImportColumn& column) {
  ExportColumn out;
  out.heading = LabelOf(kind, column.name);
  if (column.kind == ColumnKind::kDate) out.kind = ExportKind::kDate;
  if (column.kind == ColumnKind::kNumber || column.kind == ColumnKind::kInteger)
    out.kind = ExportKind::kMoney;
  if (column.kind == ColumnKind::kInteger) out.decimals = 0;
  return out;
}

ExportCell CellOf(const ImportRow::Field& field) {
  if (field.number) return *field.number;
  if (field.date) return *field.date;
  return field.text;
}

}  // namespace

ExportTable PreviewTable(const ImportPlan& plan, std::optional<RowState> only) {
  const ImportKind& kind = *KindOf(plan.profile().kind);
  const std::vector<std::size_t> used = plan.ColumnsInUse();
  ExportTable table{.title = std::string("Importação: ") + kind.title, .columns = {}, .rows = {}};
  table.columns = {{"Linha", ExportKind::kNumber, 0, 0}, {"Estado"}, {"Porquê"}};
  for (const std::size_t column : used) table.columns.push_back(ColumnOf(kind, plan.columns()[column]));
  for (std::size_t i = 0; i < plan.size(); ++i) {
    const PlanRow& row = plan.row(i);
    if (!row.counts || (only && plan.StateOf(i) != *only)) continue;
    const Why& why = plan.why(i);
    std::vector<ExportCell> cells = {
        static_cast<double>(row.line), std::string(NameOf(plan.StateOf(i))),
        why.column.empty() ? why.reason : LabelOf(kind, why.column) + ": " + why.reason};
    ImportRow read = plan.Read(i);
    for (const std::size_t column : used) cells.push_back(CellOf(read.at(column)));
    table.rows.push_back(std::move(cells));
  }
  return table;
}

}  // namespace exchange

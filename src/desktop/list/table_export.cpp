#include "desktop/list/table_export.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>

#include "desktop/list/csv.h"
#include "desktop/look/text.h"
#include "desktop/shell/file_dialog.h"
#include "exchange/export/export_value.h"

namespace desktop {

exchange::ExportTable TableOf(const TableSource& source, const std::vector<long>& rows,
                              const QString& title) {
  exchange::ExportTable table{.title = FromQt(title), .columns = {}, .rows = {}};
  const std::vector<std::size_t> columns = source.VisibleColumns();
  for (std::size_t column : columns)
    table.columns.push_back({.heading = FromQt(source.Columns()[column].caption)});
  for (long row : rows) {
    auto& cells = table.rows.emplace_back();
    for (std::size_t column : columns)
      cells.push_back(exchange::CellOf(source.Value(row, column), FromQt(source.Text(row, column))));
  }
  for (std::size_t i = 0; i < columns.size(); ++i) exchange::DescribeColumn(table, i);
  return table;
}

QString AskForTableFile(QWidget* parent, const QString& title) {
  FileDialog dialog(
      parent, QStringLiteral("Exportar"), title + QStringLiteral(".xlsx"),
      QStringLiteral("Folha de cálculo XLSX (*.xlsx);;Folha de cálculo ODS (*.ods);;Texto CSV (*.csv)"));
  dialog.setAcceptMode(FileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("xlsx"));
  // The kind that is chosen gives the name its ending.
  QObject::connect(&dialog, &FileDialog::filterSelected, &dialog, [&](const QString& kind) {
    const QString ending = kind.section(QStringLiteral("*."), 1).chopped(1);
    dialog.setDefaultSuffix(ending);
    const QStringList names = dialog.selectedFiles();
    if (!names.isEmpty())
      dialog.selectFile(QFileInfo(names.front()).completeBaseName() + QLatin1Char('.') + ending);
  });
  return dialog.Ask();
}

void ExportRows(const QString& file, const TableSource& source, const std::vector<long>& rows,
                const QString& title) {
  const exchange::ExportFormat format = exchange::FormatOf(FromQt(file));
  if (format == exchange::ExportFormat::kCsv) return WriteCsv(file, source, rows);
  exchange::WriteTable(TableOf(source, rows, title), FromQt(file), format);
}

void CopyRows(const exchange::ExportTable& table) {
  auto* data = new QMimeData;  // the clipboard's
  data->setText(ToQt(exchange::ClipboardText(table)));
  data->setHtml(ToQt(exchange::ClipboardHtml(table)));
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace desktop
